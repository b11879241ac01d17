// SPDX-License-Identifier: MIT
#include "project/user_language.h"

#include <clocale>
#include <string>

#include <wx/translation.h>

#include <gtest/gtest.h>

#include "catalogues/languages.h"

namespace framenote::test {

namespace {

class UserLanguage : public testing::Test {
protected:
  ~UserLanguage() override { wxTranslations::Set(nullptr); }
};

TEST_F(UserLanguage, IsThatOfTheVariable) {
  WithVariable const locale("LC_ALL", nullptr);
  for (char const *language : kLanguages) {
    WithVariable const wanted("LANGUAGE", language);
    EXPECT_EQ(UseUserLanguage(), language);
    EXPECT_EQ(wxTranslations::Get()->IsLoaded("framenote"), true) << language;
  }
}

TEST_F(UserLanguage, ListGoesBeforeTheLocaleAndItsFirstCatalogueIsTaken) {
  WithVariable const locale("LC_ALL", "de_DE.UTF-8");
  struct Case {
    char const *list;
    char const *language;
  };
  for (Case const &c : {Case{"ar", "ar"}, Case{"sv:fr_CA:it", "fr"}, Case{"es_MX.UTF-8", "es"},
                        Case{"zh", "zh_CN"}, Case{"zh_TW", "de"}, Case{"sv", "de"},
                        Case{"en_GB:fr", "en"}, Case{"", "de"}, Case{":it", "it"}}) {
    WithVariable const list("LANGUAGE", c.list);
    EXPECT_EQ(UseUserLanguage(), c.language) << c.list;
  }
}

TEST_F(UserLanguage, IsThatOfALocaleThatIsNotOnTheMachine) {
  WithVariable const language("LANGUAGE", nullptr);
  WithVariable const locale("LC_ALL", "it_IT.UTF-8");
  EXPECT_EQ(UseUserLanguage(), "it");
  EXPECT_EQ(wxGetTranslation("Ellipse"), "Ellisse");
}

TEST_F(UserLanguage, PlainLocaleMeansEnglish) {
  WithVariable const language("LANGUAGE", "ar");
  for (char const *plain : {"C", "POSIX"}) {
    WithVariable const locale("LC_ALL", plain);
    EXPECT_EQ(UseUserLanguage(), "en");
    EXPECT_EQ(wxGetTranslation("Ellipse"), "Ellipse");
  }
}

TEST_F(UserLanguage, OursAreAskedBeforeTheToolkits) {
  // wxWidgets' own French for it is "&Quitter" too, but its "&Delete" is "S&upprimer".
  WithVariable const locale("LC_ALL", nullptr);
  WithVariable const language("LANGUAGE", "fr");
  UseUserLanguage();
  EXPECT_EQ(wxGetTranslation("&Delete"), wxString::FromUTF8("&Supprimer"));
}

TEST_F(UserLanguage, LeavesNumbersAlone) {
  WithVariable const locale("LC_ALL", "de_DE.UTF-8");
  UseUserLanguage();
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}

TEST(DirectionOfLanguage, ArabicAloneIsMirrored) {
  for (std::string const language : kLanguages) {
    EXPECT_EQ(DirectionOfLanguage(language),
              language == "ar" ? wxLayout_RightToLeft : wxLayout_LeftToRight)
        << language;
  }
  EXPECT_EQ(DirectionOfLanguage("en"), wxLayout_LeftToRight);
  EXPECT_EQ(DirectionOfLanguage("none such"), wxLayout_LeftToRight);
}

}  // namespace

}  // namespace framenote::test
