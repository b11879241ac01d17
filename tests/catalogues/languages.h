// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

#include <wx/translation.h>

namespace framenote::test {

/// The languages that come with the library.
constexpr char const *kLanguages[] = {"ar", "de", "es", "fr", "it", "zh_CN"};

/// Sets a variable of the environment, or takes it away, for as long as it lives.
class WithVariable {
public:
  WithVariable(char const *name, char const *value) : m_name(name) {
    if (char const *former = std::getenv(name)) m_former = former;
    value != nullptr ? setenv(name, value, 1) : unsetenv(name);
  }
  ~WithVariable() { m_former ? setenv(m_name, m_former->c_str(), 1) : unsetenv(m_name); }
  WithVariable(WithVariable const &) = delete;
  WithVariable &operator=(WithVariable const &) = delete;

private:
  char const *m_name;
  std::optional<std::string> m_former;
};

/// Translations as a host makes them, in a language if one is given.
class HostTranslations {
public:
  explicit HostTranslations(wxString const &language = {}) {
    auto *const translations = new wxTranslations;  // owned by wxTranslations::Set
    wxTranslations::Set(translations);
    if (!language.empty()) translations->SetLanguage(language);
  }
  ~HostTranslations() { wxTranslations::Set(nullptr); }
  HostTranslations(HostTranslations const &) = delete;
  HostTranslations &operator=(HostTranslations const &) = delete;
};

}  // namespace framenote::test
