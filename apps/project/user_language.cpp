// SPDX-License-Identifier: MIT
#include "project/user_language.h"

#include <cstdlib>
#include <string_view>

#include <wx/arrstr.h>
#include <wx/translation.h>
#include <wx/uilocale.h>

#include "framenote/annotation_catalogue.h"

namespace {

constexpr char const *kEnglish = "en";

/// The first of these that is set and not empty is the locale of messages.
bool IsEnglishAskedFor() {
  for (char const *variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    char const *const text = std::getenv(variable);
    std::string_view const locale = text != nullptr ? text : "";
    if (!locale.empty()) return locale == "C" || locale == "POSIX";
  }
  return false;
}

/// Which of the languages that there are catalogues for `wanted` means: itself, without its
/// country, or, where it has none, with one. Empty if none.
wxString CatalogueFor(wxString const &wanted, wxArrayString const &available) {
  wxString const language = wanted.BeforeFirst('.').BeforeFirst('@');
  wxString const withoutCountry = language.BeforeFirst('_');
  for (wxString const &candidate : {language, withoutCountry}) {
    if (candidate == kEnglish || available.Index(candidate) != wxNOT_FOUND) return candidate;
  }
  if (language != withoutCountry) return {};
  for (wxString const &candidate : available) {
    if (candidate.BeforeFirst('_') == language) return candidate;
  }
  return {};
}

/// The first language of LANGUAGE that there is: the variable lists them, the best first, and goes
/// before the locale.
wxString ListedLanguage(wxArrayString const &available) {
  char const *const list = std::getenv("LANGUAGE");
  if (list == nullptr) return {};
  for (wxString const &wanted : wxSplit(wxString::FromUTF8(list), ':', '\0')) {
    wxString const language = CatalogueFor(wanted, available);
    if (!language.empty()) return language;
  }
  return {};
}

/// REQUIRES: wxTranslations are there.
wxString LanguageToUse() {
  if (IsEnglishAskedFor()) return kEnglish;
  wxString const ofLocale = framenote::BestAnnotationLanguage();
  wxString const listed =
      ListedLanguage(wxTranslations::Get()->GetAvailableTranslations(framenote::kCatalogueDomain));
  if (!listed.empty()) return listed;
  return ofLocale.empty() ? wxString(kEnglish) : ofLocale;
}

}  // namespace

wxString UseUserLanguage() {
  auto *const translations = new wxTranslations;  // owned by wxTranslations::Set
  wxTranslations::Set(translations);
  wxString const language = LanguageToUse();
  translations->SetLanguage(language);
  // The one added last is asked first: our own words for what both have.
  translations->AddStdCatalog();
  framenote::AddAnnotationCatalogue();
  return language;
}

wxLayoutDirection DirectionOfLanguage(wxString const &language) {
  wxLanguageInfo const *const info = wxUILocale::FindLanguageInfo(language);
  return info != nullptr ? info->LayoutDirection : wxLayout_LeftToRight;
}
