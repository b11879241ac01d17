// SPDX-License-Identifier: MIT
#include "framenote/annotation_catalogue.h"

#include <filesystem>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>

#include <wx/translation.h>

#include <gtest/gtest.h>

#include "catalogues/languages.h"
#include "framenote/annotation_tool.h"

namespace framenote::test {

namespace {

namespace fs = std::filesystem;

TEST(AnnotationCatalogue, WithoutTranslationsNothingHappens) {
  ASSERT_EQ(wxTranslations::Get(), nullptr);
  EXPECT_FALSE(AddAnnotationCatalogue());
  EXPECT_EQ(BestAnnotationLanguage(), "");
  EXPECT_EQ(wxGetTranslation("Bring to Front"), "Bring to Front");
}

TEST(AnnotationCatalogue, HasEveryLanguageBesideTheLibrary) {
  for (char const *language : kLanguages) {
    HostTranslations const translations(language);
    EXPECT_TRUE(AddAnnotationCatalogue()) << language;
    EXPECT_NE(wxTranslations::Get()->GetTranslatedString("Bring to Front"), nullptr) << language;
  }
}

TEST(AnnotationCatalogue, TranslatesIntoTheLanguageOfTheHost) {
  HostTranslations const translations("de");
  ASSERT_TRUE(AddAnnotationCatalogue());
  EXPECT_EQ(wxGetTranslation("Bring to Front"), "In den Vordergrund");
  EXPECT_EQ(wxGetTranslation("Go to First Frame (%I64d)"), "Zum ersten Einzelbild (%I64d)");
}

TEST(AnnotationCatalogue, CountryFallsBackToTheLanguage) {
  HostTranslations const translations("de_AT");
  ASSERT_TRUE(AddAnnotationCatalogue());
  EXPECT_EQ(wxGetTranslation("Bring to Front"), "In den Vordergrund");
}

TEST(AnnotationCatalogue, EnglishNeedsNone) {
  HostTranslations const translations("en");
  EXPECT_TRUE(AddAnnotationCatalogue());
  EXPECT_EQ(wxGetTranslation("Bring to Front"), "Bring to Front");
}

TEST(AnnotationCatalogue, LanguageWithoutOneIsTold) {
  HostTranslations const translations("ja");
  EXPECT_FALSE(AddAnnotationCatalogue());
  EXPECT_EQ(wxGetTranslation("Bring to Front"), "Bring to Front");
}

TEST(AnnotationCatalogue, MayBeAddedAgain) {
  HostTranslations const translations("it");
  EXPECT_TRUE(AddAnnotationCatalogue());
  EXPECT_TRUE(AddAnnotationCatalogue());
  EXPECT_EQ(wxGetTranslation("Ellipse"), "Ellisse");
}

TEST(AnnotationCatalogue, FolderOfTheHostIsSearched) {
  std::string name = (fs::temp_directory_path() / "framenote-catalogue-XXXXXX").string();
  ASSERT_NE(mkdtemp(name.data()), nullptr);
  fs::path const folder = name;
  fs::create_directories(folder / "eo" / "LC_MESSAGES");
  fs::copy_file(fs::path(FRAMENOTE_CATALOGUES) / "de" / "LC_MESSAGES" / "framenote.mo",
                folder / "eo" / "LC_MESSAGES" / "framenote.mo");
  {
    HostTranslations const translations("eo");
    EXPECT_TRUE(AddAnnotationCatalogue(wxString(name)));
    EXPECT_EQ(wxGetTranslation("Bring to Front"), "In den Vordergrund");
  }
  fs::remove_all(folder);
}

TEST(AnnotationCatalogue, BestLanguageIsTheFirstWanted) {
  HostTranslations const translations;
  WithVariable const locale("LC_ALL", "C.UTF-8");
  for (auto const &[wanted, best] :
       {std::pair("ar", "ar"), std::pair("de_AT", "de"), std::pair("tlh:fr:de", "fr"),
        std::pair("en:de", "en"), std::pair("zh_CN", "zh_CN"), std::pair("tlh", "en")}) {
    WithVariable const language("LANGUAGE", wanted);
    EXPECT_EQ(BestAnnotationLanguage(), best) << wanted;
  }
}

TEST(AnnotationCatalogue, ArabicHasItsSixPlurals) {
  HostTranslations const translations("ar");
  ASSERT_TRUE(AddAnnotationCatalogue());
  auto const form = [](unsigned count) {
    return wxPLURAL("%s frame is damaged: %s", "%s frames are damaged: %s", count);
  };
  std::set<wxString> forms;
  for (unsigned const count : {0u, 1u, 2u, 3u, 11u, 100u}) forms.insert(form(count));
  EXPECT_EQ(forms.size(), 6u);
  EXPECT_EQ(form(10), form(3));
  EXPECT_EQ(form(103), form(3));
  EXPECT_EQ(form(99), form(11));
  EXPECT_EQ(form(1000), form(100));
}

TEST(AnnotationCatalogue, FrenchCountsNoneAsOne) {
  HostTranslations const translations("fr");
  ASSERT_TRUE(AddAnnotationCatalogue());
  auto const form = [](unsigned count) {
    return wxPLURAL("%s frame is damaged: %s", "%s frames are damaged: %s", count);
  };
  EXPECT_EQ(form(0), form(1));
  EXPECT_NE(form(1), form(2));
}

TEST(AnnotationCatalogue, ErrorsOfTheLibraryAreTranslated) {
  HostTranslations const translations("es");
  ASSERT_TRUE(AddAnnotationCatalogue());
  AnnotationTool tool({false, false, true, true, true, {}});
  tool.UpdateMediaInfo({0, 10, false});
  try {
    tool.UpdateMediaInfo({10, 10, false});
    ADD_FAILURE() << "a frame beyond the end is accepted";
  } catch (std::runtime_error const &error) {
    EXPECT_STREQ(error.what(), "Número de fotograma fuera de los límites.");
  }
}

}  // namespace

}  // namespace framenote::test
