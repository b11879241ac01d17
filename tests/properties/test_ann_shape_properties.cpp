// SPDX-License-Identifier: MIT
#include "properties/ann_shape_properties.h"

#include <gtest/gtest.h>

#include "properties/property_support.h"

namespace framenote::test {
namespace {

void ExpectDefaults(AnnShapeProperties const &record) {
  EXPECT_EQ(record.GetShape(), AnnShapeProperties::Rectangle);
  EXPECT_EQ(Hex(record.GetBorderColor()), "#FF0000FF");
  EXPECT_EQ(Hex(record.GetFillColor()), "#FFFFFF00");
  EXPECT_EQ(record.GetThickness(), 5);
}

TEST(AnnShapeProperties, Defaults) {
  ExpectDefaults(AnnShapeProperties());
  ExpectDefaults(From<AnnShapeProperties>("{}"));
  EXPECT_EQ(TextOf(AnnShapeProperties()),
            R"({"Shape":0,"BorderColor":"#FF0000FF","BorderColorTransparent":false,)"
            R"("FillColor":"#FFFFFFFF","FillColorTransparent":true,"Thickness":5})");
}

TEST(AnnShapeProperties, EnumeratorsHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(AnnShapeProperties::Rectangle), 0);
  EXPECT_EQ(static_cast<int>(AnnShapeProperties::Ellipse), 1);
}

TEST(AnnShapeProperties, SettersWriteFieldAndKey) {
  AnnShapeProperties record;
  record.SetShape(AnnShapeProperties::Ellipse);
  record.SetBorderColor(wxColour(1, 2, 3));
  record.SetFillColor(wxColour(160, 176, 192));
  record.SetThickness(12);
  EXPECT_EQ(record.GetShape(), AnnShapeProperties::Ellipse);
  EXPECT_EQ(Hex(record.GetBorderColor()), "#010203FF");
  EXPECT_EQ(Hex(record.GetFillColor()), "#A0B0C0FF");
  EXPECT_EQ(record.GetThickness(), 12);
  EXPECT_EQ(TextOf(record),
            R"({"Shape":1,"BorderColor":"#010203FF","BorderColorTransparent":false,)"
            R"("FillColor":"#A0B0C0FF","FillColorTransparent":false,"Thickness":12})");
}

TEST(AnnShapeProperties, LoadsEveryKey) {
  auto const record = From<AnnShapeProperties>(
      R"({"Shape":1,"BorderColor":"#010203FF","BorderColorTransparent":true,)"
      R"("FillColor":"#A0B0C0FF","FillColorTransparent":false,"Thickness":9})");
  EXPECT_EQ(record.GetShape(), AnnShapeProperties::Ellipse);
  EXPECT_EQ(Hex(record.GetBorderColor()), "#01020300");
  EXPECT_EQ(Hex(record.GetFillColor()), "#A0B0C0FF");
  EXPECT_EQ(record.GetThickness(), 9);
}

TEST(AnnShapeProperties, APartialAlphaLastsUntilALoad) {
  AnnShapeProperties record;
  record.SetBorderColor(wxColour(10, 20, 30, 128));
  EXPECT_EQ(record.GetBorderColor().Alpha(), 128);
  EXPECT_FALSE(record.ToJSON().ItemAt("BorderColorTransparent").AsBool());
  EXPECT_EQ(record.ToJSON().ItemAt("BorderColor").AsString(), "#0A141EFF");
  EXPECT_EQ(Hex(AnnShapeProperties(record.ToJSON()).GetBorderColor()), "#0A141EFF");
}

TEST(AnnShapeProperties, ACopyKeepsAPartialAlpha) {
  AnnShapeProperties record;
  record.SetBorderColor(wxColour(10, 20, 30, 128));
  AnnShapeProperties const copy(record);
  EXPECT_EQ(Hex(copy.GetBorderColor()), "#0A141E80");
  AnnShapeProperties assigned;
  assigned = record;
  EXPECT_EQ(Hex(assigned.GetBorderColor()), "#0A141E80");
}

TEST(AnnShapeProperties, AlphaOneIsNotTransparent) {
  AnnShapeProperties record;
  record.SetFillColor(wxColour(10, 20, 30, 1));
  EXPECT_FALSE(record.ToJSON().ItemAt("FillColorTransparent").AsBool());
}

TEST(AnnShapeProperties, ATransparentColourKeepsItsComponents) {
  AnnShapeProperties record;
  record.SetFillColor(wxColour(10, 20, 30, 0));
  EXPECT_TRUE(record.ToJSON().ItemAt("FillColorTransparent").AsBool());
  EXPECT_EQ(record.ToJSON().ItemAt("FillColor").AsString(), "#0A141EFF");
  EXPECT_EQ(Hex(AnnShapeProperties(record.ToJSON()).GetFillColor()), "#0A141E00");
}

TEST(AnnShapeProperties, TheAlphaOfAColourTextIsDiscarded) {
  auto const record = From<AnnShapeProperties>(
      R"({"BorderColor":"#0A141E00","FillColor":"#28323CFF","FillColorTransparent":true})");
  EXPECT_EQ(Hex(record.GetBorderColor()), "#0A141EFF");
  EXPECT_EQ(Hex(record.GetFillColor()), "#28323C00");
  EXPECT_EQ(record.ToJSON().ItemAt("BorderColor").AsString(), "#0A141EFF");
}

TEST(AnnShapeProperties, AMissingFlagFallsBackToTheDefaultOfItsColour) {
  auto const record =
      From<AnnShapeProperties>(R"({"BorderColor":"#0A141EFF","FillColor":"#28323CFF"})");
  EXPECT_EQ(Hex(record.GetBorderColor()), "#0A141EFF");  // opaque by default
  EXPECT_EQ(Hex(record.GetFillColor()), "#28323C00");    // transparent by default
}

TEST(AnnShapeProperties, AFlagAloneKeepsTheDefaultColour) {
  auto const record =
      From<AnnShapeProperties>(R"({"BorderColorTransparent":true,"FillColorTransparent":false})");
  EXPECT_EQ(Hex(record.GetBorderColor()), "#FF000000");
  EXPECT_EQ(Hex(record.GetFillColor()), "#FFFFFFFF");
}

TEST(AnnShapeProperties, ValuesOutOfRangeAreKept) {
  auto record = From<AnnShapeProperties>(R"({"Shape":7,"Thickness":-4})");
  EXPECT_EQ(static_cast<int>(record.GetShape()), 7);
  EXPECT_EQ(record.GetThickness(), -4);
  EXPECT_EQ(record.ToJSON().ItemAt("Shape").AsInt(), 7);
  record.SetShape(static_cast<AnnShapeProperties::Shape>(-3));
  EXPECT_EQ(record.ToJSON().ItemAt("Shape").AsInt(), -3);
}

TEST(AnnShapeProperties, NumbersBeyondTheFieldSaturate) {
  auto const record = From<AnnShapeProperties>(R"({"Shape":-9000000000,"Thickness":5000000000})");
  EXPECT_EQ(static_cast<int>(record.GetShape()), -2147483647 - 1);
  EXPECT_EQ(record.GetThickness(), 2147483647);
  EXPECT_EQ(record.ToJSON().ItemAt("Thickness").AsInt64(), 2147483647);
}

TEST(AnnShapeProperties, ValuesOfAnotherTypeAreConverted) {
  auto const record = From<AnnShapeProperties>(
      R"({"Shape":"Ellipse","BorderColor":5,"BorderColorTransparent":"yes",)"
      R"("FillColor":"#12","Thickness":3.9})");
  EXPECT_EQ(static_cast<int>(record.GetShape()), 0);
  EXPECT_EQ(Hex(record.GetBorderColor()), "#000000FF");
  EXPECT_EQ(Hex(record.GetFillColor()), "#00000000");
  EXPECT_EQ(record.GetThickness(), 3);
}

TEST(AnnShapeProperties, ANullColourIsWrittenAsTransparentBlack) {
  AnnShapeProperties record;
  record.SetBorderColor(wxNullColour);
  EXPECT_FALSE(record.GetBorderColor().IsOk());
  EXPECT_EQ(record.ToJSON().ItemAt("BorderColor").AsString(), "#000000FF");
  EXPECT_TRUE(record.ToJSON().ItemAt("BorderColorTransparent").AsBool());
  EXPECT_EQ(Hex(AnnShapeProperties(record.ToJSON()).GetBorderColor()), "#00000000");
}

TEST(AnnShapeProperties, IncomingKeysKeepTheirPlaces) {
  EXPECT_EQ(TextOf(From<AnnShapeProperties>(R"({"Thickness":2,"Note":1})")),
            R"({"Thickness":2,"Note":1,"Shape":0,"BorderColor":"#FF0000FF",)"
            R"("BorderColorTransparent":false,"FillColor":"#FFFFFFFF",)"
            R"("FillColorTransparent":true})");
}

}  // namespace
}  // namespace framenote::test
