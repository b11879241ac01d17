// SPDX-License-Identifier: MIT
#include "properties/ann_image_properties.h"

#include <gtest/gtest.h>

#include "properties/property_support.h"

namespace framenote::test {
namespace {

void ExpectDefaults(AnnImageProperties const &record) {
  EXPECT_FALSE(record.GetFileName().IsOk());
  EXPECT_TRUE(record.GetKeepAspectRatio());
  EXPECT_EQ(record.GetTransparentColor(), AnnImageProperties::None);
  EXPECT_FALSE(record.GetTransparentWxColour().IsOk());
}

TEST(AnnImageProperties, Defaults) {
  ExpectDefaults(AnnImageProperties());
  EXPECT_EQ(TextOf(AnnImageProperties()),
            R"({"FileName":"","KeepAspectRatio":true,"TransparentColor":0})");
}

TEST(AnnImageProperties, EnumeratorsHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(AnnImageProperties::None), 0);
  EXPECT_EQ(static_cast<int>(AnnImageProperties::White), 1);
  EXPECT_EQ(static_cast<int>(AnnImageProperties::Black), 2);
}

TEST(AnnImageProperties, AnEmptyObjectGivesTheDefaultsAndNoKeys) {
  auto const record = From<AnnImageProperties>("{}");
  ExpectDefaults(record);
  EXPECT_EQ(TextOf(record), "{}");
}

TEST(AnnImageProperties, AMissingKeyIsWrittenByItsSetterOnly) {
  auto record = From<AnnImageProperties>("{}");
  record.SetTransparentColor(AnnImageProperties::Black);
  EXPECT_EQ(TextOf(record), R"({"TransparentColor":2})");
  record.SetFileName(wxFileName("/pictures/a.png"));
  EXPECT_EQ(TextOf(record), R"({"TransparentColor":2,"FileName":"/pictures/a.png"})");
}

TEST(AnnImageProperties, AnIncomingValueIsNotBroughtIntoNormalForm) {
  auto const record = From<AnnImageProperties>(R"({"TransparentColor":1.5})");
  EXPECT_EQ(record.GetTransparentColor(), AnnImageProperties::White);
  EXPECT_EQ(TextOf(record), R"({"TransparentColor":1.5})");
}

TEST(AnnImageProperties, SomethingOtherThanAnObjectIsKeptUntilASetterWrites) {
  auto record = From<AnnImageProperties>("5");
  ExpectDefaults(record);
  EXPECT_EQ(TextOf(record), "5");
  record.SetKeepAspectRatio(false);
  EXPECT_EQ(TextOf(record), R"({"KeepAspectRatio":false})");
}

TEST(AnnImageProperties, SettersWriteFieldAndKey) {
  AnnImageProperties record;
  record.SetFileName(wxFileName("/pictures/of a day/b.jpeg"));
  record.SetKeepAspectRatio(false);
  record.SetTransparentColor(AnnImageProperties::White);
  EXPECT_EQ(record.GetFileName().GetFullPath(), "/pictures/of a day/b.jpeg");
  EXPECT_FALSE(record.GetKeepAspectRatio());
  EXPECT_EQ(record.GetTransparentColor(), AnnImageProperties::White);
  EXPECT_EQ(
      TextOf(record),
      R"({"FileName":"/pictures/of a day/b.jpeg","KeepAspectRatio":false,"TransparentColor":1})");
}

TEST(AnnImageProperties, AFileNameReadsBackFromItsFullPath) {
  for (char const *path : {"/pictures/a.png", "relative/a.png", "a", "../.hidden", "/tail/"}) {
    AnnImageProperties record;
    record.SetFileName(wxFileName(path));
    EXPECT_EQ(record.ToJSON().ItemAt("FileName").AsString(), path);
    AnnImageProperties const loaded(record.ToJSON());
    EXPECT_EQ(loaded.GetFileName().GetFullPath(), path);
  }
}

TEST(AnnImageProperties, TheTransparentColourIsAStockColour) {
  AnnImageProperties record;
  record.SetTransparentColor(AnnImageProperties::White);
  EXPECT_EQ(Hex(record.GetTransparentWxColour()), "#FFFFFFFF");
  record.SetTransparentColor(AnnImageProperties::Black);
  EXPECT_EQ(Hex(record.GetTransparentWxColour()), "#000000FF");
  record.SetTransparentColor(AnnImageProperties::None);
  EXPECT_EQ(Hex(record.GetTransparentWxColour()), "null");
}

TEST(AnnImageProperties, AnyOtherTransparentColourIsNone) {
  auto const record = From<AnnImageProperties>(R"({"TransparentColor":9})");
  EXPECT_EQ(static_cast<int>(record.GetTransparentColor()), 9);
  EXPECT_FALSE(record.GetTransparentWxColour().IsOk());
}

}  // namespace
}  // namespace framenote::test
