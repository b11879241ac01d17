// SPDX-License-Identifier: MIT
#include "panel/pseudo_catalogue.h"

#include <cstdint>
#include <map>
#include <utility>

namespace framenote::test {
namespace {

constexpr char const *kLanguage = "eo";

void AppendNumber(std::string &out, std::size_t number) {
  for (unsigned shift = 0; shift < 32; shift += 8) {
    out += static_cast<char>((number >> shift) & 0xFF);
  }
}

/// A compiled catalogue, in the byte order of this format's first number.
std::string Compiled(std::map<std::string, std::string> const &texts) {
  constexpr std::size_t kHeaderSize = 28;
  constexpr std::size_t kEntrySize = 8;
  std::size_t const tableSize = texts.size() * kEntrySize;
  std::string file, originals, translations, strings;
  std::size_t const stringsAt = kHeaderSize + 2 * tableSize;
  auto const add = [&](std::string &table, std::string const &text) {
    AppendNumber(table, text.size());
    AppendNumber(table, stringsAt + strings.size());
    strings += text + '\0';
  };
  for (auto const &[text, translation] : texts) {
    add(originals, text);
    add(translations, translation);
  }
  for (std::size_t const number :
       {std::size_t{0x950412DE}, std::size_t{0}, texts.size(), kHeaderSize, kHeaderSize + tableSize,
        std::size_t{0}, stringsAt}) {
    AppendNumber(file, number);
  }
  return file + originals + translations + strings;
}

class Loader : public wxTranslationsLoader {
public:
  explicit Loader(std::string file) : m_file(std::move(file)) {}

  wxMsgCatalog *LoadCatalog(wxString const &domain, wxString const &) override {
    return wxMsgCatalog::CreateFromData(
        wxScopedCharBuffer::CreateNonOwned(m_file.data(), m_file.size()), domain);
  }
  wxArrayString GetAvailableTranslations(wxString const &) const override {
    wxArrayString languages;
    languages.Add(kLanguage);
    return languages;
  }

private:
  std::string m_file;
};

}  // namespace

PseudoCatalogue::PseudoCatalogue(std::vector<wxString> const &texts) {
  std::map<std::string, std::string> longer;
  for (wxString const &text : texts) longer[text.utf8_string()] = Longer(text).utf8_string();
  longer[""] = "Content-Type: text/plain; charset=UTF-8\n";
  auto *const translations = new wxTranslations;          // owned by wxTranslations::Set
  translations->SetLoader(new Loader(Compiled(longer)));  // owned by the translations
  translations->SetLanguage(kLanguage);
  wxTranslations::Set(translations);
  translations->AddCatalog("pseudo");
}

PseudoCatalogue::~PseudoCatalogue() {
  wxTranslations::Set(nullptr);
}

wxString PseudoCatalogue::Longer(wxString const &text) {
  return text + text.Left((text.length() + 1) / 2);
}

}  // namespace framenote::test
