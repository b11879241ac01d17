// SPDX-License-Identifier: MIT
#include "project/user_language.h"

#include <cstdlib>
#include <string_view>

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

}  // namespace

wxString UseUserLanguage() {
  auto *const translations = new wxTranslations;  // owned by wxTranslations::Set
  wxTranslations::Set(translations);
  wxString language = IsEnglishAskedFor() ? wxString() : framenote::BestAnnotationLanguage();
  if (language.empty()) language = kEnglish;
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
