// SPDX-License-Identifier: MIT
#include "properties/ann_text_properties.h"

#include <gtest/gtest.h>

#include "properties/property_support.h"

namespace framenote::test {
namespace {

using MemberNames = std::vector<wxString>;

wxFont BoldItalic() {
  return wxFont(wxFontInfo(12.5).FaceName("Sans").Bold().Italic());
}

void ExpectDefaults(AnnTextProperties const &record) {
  EXPECT_EQ(record.GetFont(), *wxNORMAL_FONT);
  EXPECT_EQ(Hex(record.GetFontColor()), "#000000FF");
  EXPECT_EQ(Hex(record.GetBackgroundColor()), "#FFFFFF00");
  EXPECT_EQ(record.GetHorizontalAlignment(), AnnTextProperties::Center);
  EXPECT_EQ(record.GetVerticalAlignment(), AnnTextProperties::Middle);
}

TEST(AnnTextProperties, Defaults) {
  ExpectDefaults(AnnTextProperties());
  ExpectDefaults(From<AnnTextProperties>("{}"));
  EXPECT_EQ(AnnTextProperties().ToJSON().GetMemberNames(),
            (MemberNames{"Font", "FontColor", "BackgroundColor", "BackgroundColorTransparent",
                         "HorizontalAlignment", "VerticalAlignment"}));
}

TEST(AnnTextProperties, KeysFollowTheFields) {
  AnnTextProperties record;
  record.SetFont(BoldItalic());  // the stock font is the desktop's choice
  EXPECT_EQ(TextOf(record), R"({"Font":"12.5;italic;700;0;0;Sans","FontColor":"#000000FF",)"
                            R"("BackgroundColor":"#FFFFFFFF","BackgroundColorTransparent":true,)"
                            R"("HorizontalAlignment":1,"VerticalAlignment":1})");
}

TEST(AnnTextProperties, EnumeratorsHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(AnnTextProperties::Left), 0);
  EXPECT_EQ(static_cast<int>(AnnTextProperties::Center), 1);
  EXPECT_EQ(static_cast<int>(AnnTextProperties::Right), 2);
  EXPECT_EQ(static_cast<int>(AnnTextProperties::Top), 0);
  EXPECT_EQ(static_cast<int>(AnnTextProperties::Middle), 1);
  EXPECT_EQ(static_cast<int>(AnnTextProperties::Bottom), 2);
}

TEST(AnnTextProperties, SettersWriteFieldAndKey) {
  AnnTextProperties record;
  record.SetFont(BoldItalic());
  record.SetFontColor(wxColour(1, 2, 3, 4));
  record.SetBackgroundColor(wxColour(16, 32, 48));
  record.SetHorizontalAlignment(AnnTextProperties::Right);
  record.SetVerticalAlignment(AnnTextProperties::Bottom);
  EXPECT_EQ(record.GetFont(), BoldItalic());
  EXPECT_EQ(Hex(record.GetFontColor()), "#01020304");
  EXPECT_EQ(Hex(record.GetBackgroundColor()), "#102030FF");
  EXPECT_EQ(record.GetHorizontalAlignment(), AnnTextProperties::Right);
  EXPECT_EQ(record.GetVerticalAlignment(), AnnTextProperties::Bottom);
  EXPECT_EQ(TextOf(record), R"({"Font":"12.5;italic;700;0;0;Sans","FontColor":"#01020304",)"
                            R"("BackgroundColor":"#102030FF","BackgroundColorTransparent":false,)"
                            R"("HorizontalAlignment":2,"VerticalAlignment":2})");
}

TEST(AnnTextProperties, TheFontReadsBackWithFaceSizeStyleAndWeight) {
  auto const record = From<AnnTextProperties>(R"({"Font":"12.5;italic;700;0;0;Sans"})");
  wxFont const font = record.GetFont();
  ASSERT_TRUE(font.IsOk());
  EXPECT_EQ(font.GetFaceName(), "Sans");
  EXPECT_DOUBLE_EQ(font.GetFractionalPointSize(), 12.5);
  EXPECT_EQ(font.GetStyle(), wxFONTSTYLE_ITALIC);
  EXPECT_EQ(font.GetNumericWeight(), 700);
}

TEST(AnnTextProperties, TheFontColourKeepsItsAlphaAndTheBackgroundDoesNot) {
  AnnTextProperties record;
  record.SetFontColor(wxColour(10, 20, 30, 128));
  record.SetBackgroundColor(wxColour(10, 20, 30, 128));
  AnnTextProperties const loaded(record.ToJSON());
  EXPECT_EQ(Hex(loaded.GetFontColor()), "#0A141E80");
  EXPECT_EQ(Hex(loaded.GetBackgroundColor()), "#0A141EFF");
}

TEST(AnnTextProperties, HorizontalAlignmentHasAToolkitFlag) {
  AnnTextProperties record;
  record.SetHorizontalAlignment(AnnTextProperties::Left);
  EXPECT_EQ(record.GetHorizontalAlignmentFlag(), 0L);
  record.SetHorizontalAlignment(AnnTextProperties::Center);
  EXPECT_EQ(record.GetHorizontalAlignmentFlag(), 0x100L);
  record.SetHorizontalAlignment(AnnTextProperties::Right);
  EXPECT_EQ(record.GetHorizontalAlignmentFlag(), 0x200L);
}

TEST(AnnTextProperties, AnyOtherHorizontalAlignmentIsCentred) {
  auto const record = From<AnnTextProperties>(R"({"HorizontalAlignment":9})");
  EXPECT_EQ(static_cast<int>(record.GetHorizontalAlignment()), 9);
  EXPECT_EQ(record.GetHorizontalAlignmentFlag(), 0x100L);
}

TEST(AnnTextProperties, AnUnreadableFontIsTheNullFontAndStaysSo) {
  for (char const *json : {R"({"Font":"garbage"})", R"({"Font":7})", R"({"Font":""})"}) {
    auto const record = From<AnnTextProperties>(json);
    EXPECT_FALSE(record.GetFont().IsOk()) << json;
    EXPECT_EQ(record.ToJSON().ItemAt("Font").AsString(), "") << json;
    EXPECT_FALSE(AnnTextProperties(record.ToJSON()).GetFont().IsOk()) << json;
  }
}

}  // namespace
}  // namespace framenote::test
