// SPDX-License-Identifier: MIT
#include "properties/ann_hide_properties.h"

#include <gtest/gtest.h>

#include "properties/property_support.h"

namespace framenote::test {
namespace {

void ExpectDefaults(AnnHideProperties const &record) {
  EXPECT_EQ(record.GetEffect(), AnnHideProperties::Pixelation);
  EXPECT_EQ(record.GetStrength(), 40);
  EXPECT_EQ(record.GetShape(), AnnShapeProperties::Ellipse);
  EXPECT_EQ(Hex(record.GetBorderColor()), "#FF000000");
  EXPECT_EQ(record.GetThickness(), 3);
}

TEST(AnnHideProperties, Defaults) {
  ExpectDefaults(AnnHideProperties());
  ExpectDefaults(From<AnnHideProperties>("{}"));
  EXPECT_EQ(TextOf(AnnHideProperties()),
            R"({"Effect":1,"Strength":40,"Shape":1,"BorderColor":"#FF0000FF",)"
            R"("BorderColorTransparent":true,"Thickness":3})");
}

TEST(AnnHideProperties, ConstantsHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(AnnHideProperties::Blur), 0);
  EXPECT_EQ(static_cast<int>(AnnHideProperties::Pixelation), 1);
  int const maxStrength = AnnHideProperties::m_maxStrength;
  EXPECT_EQ(maxStrength, 50);
}

TEST(AnnHideProperties, SettersWriteFieldAndKey) {
  AnnHideProperties record;
  record.SetEffect(AnnHideProperties::Blur);
  record.SetStrength(21);
  record.SetShape(AnnShapeProperties::Rectangle);
  record.SetBorderColor(wxColour(1, 2, 3));
  record.SetThickness(6);
  EXPECT_EQ(record.GetEffect(), AnnHideProperties::Blur);
  EXPECT_EQ(record.GetStrength(), 21);
  EXPECT_EQ(record.GetShape(), AnnShapeProperties::Rectangle);
  EXPECT_EQ(Hex(record.GetBorderColor()), "#010203FF");
  EXPECT_EQ(record.GetThickness(), 6);
  EXPECT_EQ(TextOf(record), R"({"Effect":0,"Strength":21,"Shape":0,"BorderColor":"#010203FF",)"
                            R"("BorderColorTransparent":false,"Thickness":6})");
}

TEST(AnnHideProperties, ABorderColourWithoutItsFlagStaysTransparent) {
  auto const record = From<AnnHideProperties>(R"({"BorderColor":"#00FF00FF"})");
  EXPECT_EQ(Hex(record.GetBorderColor()), "#00FF0000");
}

TEST(AnnHideProperties, ValuesOutOfRangeAreKept) {
  auto record = From<AnnHideProperties>(R"({"Effect":-1,"Strength":51,"Shape":7})");
  EXPECT_EQ(static_cast<int>(record.GetEffect()), -1);
  EXPECT_EQ(record.GetStrength(), 51);
  EXPECT_EQ(static_cast<int>(record.GetShape()), 7);
  record.SetStrength(-1000);
  EXPECT_EQ(record.GetStrength(), -1000);
  EXPECT_EQ(record.ToJSON().ItemAt("Strength").AsInt(), -1000);
}

}  // namespace
}  // namespace framenote::test
