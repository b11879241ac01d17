// SPDX-License-Identifier: MIT
#include "talbase/json_conversions.h"

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <wx/colour.h>
#include <wx/font.h>
#include <wx/geometry.h>

#include <gtest/gtest.h>

#include "talbase/json_text.h"

namespace {

wxJSONValue Of(char const *text) {
  return JsonFromUtf8(text);
}

template <class T>
std::string TextOf(T const &value) {
  return JsonToUtf8(ToJson(value));
}

std::string Again(char const *fontText) {
  return ToString<wxFont>(FromString<wxFont>(fontText)).utf8_string();
}

}  // namespace

// --- Points ---

TEST(JsonPoint, IsAnArrayOfTwoNumbers) {
  EXPECT_EQ(TextOf(wxPoint2DDouble(1.5, -2.0)), "[1.5,-2.0]");
  EXPECT_EQ(TextOf(wxPoint2DInt(3, -4)), "[3,-4]");
  wxPoint2DDouble const point = FromJson<wxPoint2DDouble>(Of("[1.5,-2]"));
  EXPECT_EQ(point.m_x, 1.5);
  EXPECT_EQ(point.m_y, -2.0);
  wxPoint2DInt const whole = FromJson<wxPoint2DInt>(Of("[3.9,-4]"));
  EXPECT_EQ(whole.m_x, 3);
  EXPECT_EQ(whole.m_y, -4);
}

TEST(JsonPoint, IsZeroFromAnythingElse) {
  for (char const *text : {"null", "1", "[]", "[1]", "[1,2,3]", "[1,null]", R"(["1","2"])",
                           R"([true,1])", R"({"x":1,"y":2})", "\"[1,2]\"", "[[1],2]"}) {
    EXPECT_EQ(FromJson<wxPoint2DDouble>(Of(text)), wxPoint2DDouble(0, 0)) << text;
    EXPECT_EQ(FromJson<wxPoint2DInt>(Of(text)), wxPoint2DInt(0, 0)) << text;
  }
  wxJSONValue const invalid(wxJSONTYPE_INVALID);
  EXPECT_EQ(FromJson<wxPoint2DDouble>(invalid), wxPoint2DDouble(0, 0));
}

TEST(JsonPoint, WholePointSaturates) {
  wxPoint2DInt const point = FromJson<wxPoint2DInt>(Of("[1e300,-9223372036854775808]"));
  EXPECT_EQ(point.m_x, 2147483647);
  EXPECT_EQ(point.m_y, -2147483647 - 1);
}

// --- Vectors ---

TEST(JsonVector, RoundTripsInOrder) {
  std::vector<wxPoint2DDouble> const points = {{1, 2}, {0.5, -0.25}};
  std::vector<wxPoint2DInt> const wholes = {{1, 2}, {3, 4}};
  std::vector<std::int64_t> const frames = {std::numeric_limits<std::int64_t>::max(), -1, 0};
  std::vector<int> const numbers = {3, 1, 2};
  std::vector<wxString> const texts = {"b", "", wxString(L"\u00E9\"")};
  EXPECT_EQ(TextOf(points), "[[1.0,2.0],[0.5,-0.25]]");
  EXPECT_EQ(TextOf(wholes), "[[1,2],[3,4]]");
  EXPECT_EQ(TextOf(frames), "[9223372036854775807,-1,0]");
  EXPECT_EQ(TextOf(numbers), "[3,1,2]");
  EXPECT_EQ(TextOf(texts), "[\"b\",\"\",\"\xC3\xA9\\\"\"]");
  EXPECT_EQ(FromJson<std::vector<wxPoint2DDouble>>(ToJson(points)), points);
  EXPECT_EQ(FromJson<std::vector<wxPoint2DInt>>(ToJson(wholes)), wholes);
  EXPECT_EQ(FromJson<std::vector<std::int64_t>>(ToJson(frames)), frames);
  EXPECT_EQ(FromJson<std::vector<int>>(ToJson(numbers)), numbers);
  EXPECT_EQ(FromJson<std::vector<wxString>>(ToJson(texts)), texts);
}

TEST(JsonVector, EmptyOneIsAnEmptyArray) {
  EXPECT_EQ(TextOf(std::vector<wxPoint2DInt>()), "[]");
  EXPECT_TRUE(FromJson<std::vector<int>>(Of("[]")).empty());
}

TEST(JsonVector, IsEmptyFromAnythingElse) {
  for (char const *text : {"null", "5", "\"[1]\"", R"({"a":1})"}) {
    EXPECT_TRUE(FromJson<std::vector<wxPoint2DDouble>>(Of(text)).empty()) << text;
    EXPECT_TRUE(FromJson<std::vector<wxPoint2DInt>>(Of(text)).empty()) << text;
    EXPECT_TRUE(FromJson<std::vector<std::int64_t>>(Of(text)).empty()) << text;
    EXPECT_TRUE(FromJson<std::vector<int>>(Of(text)).empty()) << text;
    EXPECT_TRUE(FromJson<std::vector<wxString>>(Of(text)).empty()) << text;
  }
}

TEST(JsonVector, BadElementReadsAsNothingAndKeepsItsPlace) {
  EXPECT_EQ(FromJson<std::vector<int>>(Of(R"([1,"x",5000000000])")),
            (std::vector<int>{1, 0, 2147483647}));
  EXPECT_EQ(FromJson<std::vector<wxPoint2DInt>>(Of("[[1,2],7,[3,4]]")),
            (std::vector<wxPoint2DInt>{{1, 2}, {0, 0}, {3, 4}}));
}

// --- Colours ---

TEST(JsonColour, IsUpperCaseWithAlpha) {
  EXPECT_EQ(ToString(wxColour(255, 128, 10, 0)), "#FF800A00");
  EXPECT_EQ(ToString<wxColour>(wxColour(1, 2, 3)), "#010203FF");
  EXPECT_EQ(TextOf(wxColour(171, 205, 239, 1)), "\"#ABCDEF01\"");
}

TEST(JsonColour, EveryAlphaSurvives) {
  for (int alpha = 0; alpha <= 255; ++alpha) {
    wxColour const colour(200, 100, 50, static_cast<unsigned char>(alpha));
    wxColour const again = FromString<wxColour>(ToString(colour));
    EXPECT_EQ(again, colour) << alpha;
    EXPECT_EQ(int{again.Alpha()}, alpha);
  }
}

TEST(JsonColour, ReadsAnyCaseAndTheOpaqueForm) {
  EXPECT_EQ(FromString<wxColour>("#aBcDeF7f"), wxColour(171, 205, 239, 127));
  EXPECT_EQ(FromString<wxColour>("#102030"), wxColour(16, 32, 48, 255));
  EXPECT_EQ(FromJson<wxColour>(Of("\"#10203040\"")), wxColour(16, 32, 48, 64));
}

TEST(JsonColour, NullColourRoundTrips) {
  EXPECT_EQ(ToString(wxNullColour), "null");
  EXPECT_FALSE(FromString<wxColour>("null").IsOk());
  EXPECT_FALSE(FromJson<wxColour>(ToJson(wxNullColour)).IsOk());
  EXPECT_FALSE(FromJson<wxColour>(wxJSONValue()).IsOk());
}

TEST(JsonColour, AnythingElseIsTheNullColour) {
  for (char const *text :
       {"", "#", "#12345", "#1234567", "#123456789", "123456FF", "#GG0000FF", "# 10203FF",
        "#+1020304", "#-1020304", "#0x1020304", "#102030 4", "red", "rgb(1,2,3)", "\xC3\xA9"}) {
    EXPECT_FALSE(FromString<wxColour>(wxString::FromUTF8(text)).IsOk()) << text;
  }
  EXPECT_FALSE(FromString<wxColour>(wxString(L"#10203\uFF11FF")).IsOk());
  for (char const *text : {"5", "true", "[]", "{}", "[16,32,48]"}) {
    EXPECT_FALSE(FromJson<wxColour>(Of(text)).IsOk()) << text;
  }
}

// --- Fonts ---

TEST(FontText, HoldsAllMembersOfTheFont) {
  wxFont const font(wxFontInfo(12.5)
                        .FaceName("DejaVu Sans")
                        .Style(wxFONTSTYLE_ITALIC)
                        .Weight(700)
                        .Underlined()
                        .Strikethrough());
  EXPECT_EQ(ToString<wxFont>(font), "12.5;italic;700;1;1;DejaVu Sans");
}

TEST(FontText, ReadsAllMembersOfTheFont) {
  wxFont const font = FromString<wxFont>("10;slant;350;0;1;DejaVu Serif");
  ASSERT_TRUE(font.IsOk());
  EXPECT_EQ(font.GetFractionalPointSize(), 10.0);
  EXPECT_EQ(font.GetStyle(), wxFONTSTYLE_SLANT);
  EXPECT_EQ(font.GetNumericWeight(), 350);
  EXPECT_FALSE(font.GetUnderlined());
  EXPECT_TRUE(font.GetStrikethrough());
  EXPECT_EQ(font.GetFaceName(), "DejaVu Serif");
}

class FontTextTable : public testing::TestWithParam<std::pair<char const *, char const *>> {};

TEST_P(FontTextTable, ReadsAndWrites) {
  EXPECT_EQ(Again(GetParam().first), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(
    Kept, FontTextTable,
    testing::Values(std::pair{"12;normal;400;0;0;DejaVu Sans", "12;normal;400;0;0;DejaVu Sans"},
                    std::pair{"12;normal;1;0;0;DejaVu Sans", "12;normal;1;0;0;DejaVu Sans"},
                    std::pair{"12;normal;1000;1;0;DejaVu Sans", "12;normal;1000;1;0;DejaVu Sans"},
                    std::pair{"12;normal;437;0;0;DejaVu Sans", "12;normal;437;0;0;DejaVu Sans"},
                    std::pair{"9.25;italic;300;0;1;DejaVu Sans", "9.25;italic;300;0;1;DejaVu Sans"},
                    std::pair{"100.0009765625;normal;400;0;0;DejaVu Sans",
                              "100.0009765625;normal;400;0;0;DejaVu Sans"},
                    std::pair{"10000;normal;400;0;0;DejaVu Sans",
                              "10000;normal;400;0;0;DejaVu Sans"},
                    std::pair{"12;normal;400;0;0;No Such Face", "12;normal;400;0;0;No Such Face"},
                    std::pair{"12;normal;400;0;0;a;b;;c%d", "12;normal;400;0;0;a;b;;c%d"}));

INSTANTIATE_TEST_SUITE_P(
    Clamped, FontTextTable,
    testing::Values(std::pair{"0;normal;400;0;0;Sans", "1;normal;400;0;0;Sans"},
                    std::pair{"-5;normal;400;0;0;Sans", "1;normal;400;0;0;Sans"},
                    std::pair{"1e9;normal;400;0;0;Sans", "10000;normal;400;0;0;Sans"},
                    std::pair{"12;normal;0;0;0;Sans", "12;normal;1;0;0;Sans"},
                    std::pair{"12;normal;-7;0;0;Sans", "12;normal;1;0;0;Sans"},
                    std::pair{"12;normal;5000;0;0;Sans", "12;normal;1000;0;0;Sans"},
                    std::pair{"12;oblique;400;2;yes;Sans", "12;normal;400;0;0;Sans"}));

TEST(FontText, UnreadableTextIsTheNullFont) {
  for (char const *text :
       {"", "garbage", "null", "12", "12;normal;400;0;0", "x;normal;400;0;0;Sans",
        "12pt;normal;400;0;0;Sans", ";normal;400;0;0;Sans", "nan;normal;400;0;0;Sans",
        "inf;normal;400;0;0;Sans", "12,5;normal;400;0;0;Sans", "12;normal;bold;0;0;Sans",
        "12;normal;;0;0;Sans", ";;;;;"}) {
    EXPECT_FALSE(FromString<wxFont>(text).IsOk()) << text;
  }
}

TEST(FontText, SizeIsWrittenAsItIsReadAgain) {
  wxFont font(wxFontInfo(12).FaceName("Sans"));
  font.SetFractionalPointSize(0.25);
  EXPECT_EQ(ToString<wxFont>(font), "1;normal;400;0;0;Sans");
  EXPECT_EQ(ToString<wxFont>(FromString<wxFont>("0.25;normal;400;0;0;Sans")),
            "1;normal;400;0;0;Sans");
  EXPECT_EQ(ToString<wxFont>(FromString<wxFont>("20000;normal;400;0;0;Sans")),
            "10000;normal;400;0;0;Sans");
}

TEST(FontText, NullFontRoundTrips) {
  EXPECT_EQ(ToString<wxFont>(wxNullFont), "");
  EXPECT_FALSE(FromString<wxFont>(ToString<wxFont>(wxNullFont)).IsOk());
}

TEST(FontText, EverySizeTheToolkitKeepsSurvives) {
  for (int step = 1024; step < 40 * 1024; step += 37) {
    wxFont font(wxFontInfo(step / 1024.0).FaceName("DejaVu Sans"));
    wxFont const again = FromString<wxFont>(ToString<wxFont>(font));
    ASSERT_EQ(again.GetFractionalPointSize(), font.GetFractionalPointSize());
  }
}

/// A locale with a decimal comma, made for the test, and the one before when it goes.
class CommaLocale {
public:
  CommaLocale()
      : m_before(std::setlocale(LC_NUMERIC, nullptr)),
        m_folder(std::filesystem::temp_directory_path() / "framenote_locales") {
    std::filesystem::create_directories(m_folder);
    std::string const name = (m_folder / "de_DE.UTF-8").string();
    m_isMade = std::system(("localedef --no-archive -i de_DE -f UTF-8 " + name).c_str()) == 0;
    setenv("LOCPATH", m_folder.c_str(), 1);
    m_isMade = m_isMade && std::setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr;
  }
  CommaLocale(CommaLocale const &) = delete;
  CommaLocale &operator=(CommaLocale const &) = delete;
  ~CommaLocale() {
    std::setlocale(LC_NUMERIC, m_before.c_str());
    unsetenv("LOCPATH");
    std::filesystem::remove_all(m_folder);
  }

  bool IsMade() const { return m_isMade; }

private:
  std::string m_before;
  std::filesystem::path m_folder;
  bool m_isMade = false;
};

TEST(FontText, DoesNotDependOnTheLocale) {
  CommaLocale const comma;
  ASSERT_TRUE(comma.IsMade());
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  EXPECT_EQ(Again("12.5;normal;400;0;0;DejaVu Sans"), "12.5;normal;400;0;0;DejaVu Sans");
  EXPECT_EQ(JsonToUtf8(JsonFromUtf8("[12.5]")), "[12.5]");
}
