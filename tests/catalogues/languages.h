// SPDX-License-Identifier: MIT
#pragma once

#include <wx/translation.h>

#include "support/with_variable.h"

namespace framenote::test {

/// The languages that come with the library.
constexpr char const *kLanguages[] = {"ar", "de", "es", "fr", "it", "zh_CN"};

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
