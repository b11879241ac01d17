// SPDX-License-Identifier: MIT
#include "properties/ann_arrow_properties.h"

#include <gtest/gtest.h>

#include "properties/property_support.h"

namespace framenote::test {
namespace {

void ExpectDefaults(AnnArrowProperties const &record) {
  EXPECT_EQ(record.GetHead(), AnnArrowProperties::Arrow);
  EXPECT_EQ(Hex(record.GetColor()), "#FF0000FF");
  EXPECT_EQ(record.GetThickness(), 3);
}

TEST(AnnArrowProperties, Defaults) {
  ExpectDefaults(AnnArrowProperties());
  ExpectDefaults(From<AnnArrowProperties>("{}"));
  EXPECT_EQ(TextOf(AnnArrowProperties()), R"({"Head":0,"Color":"#FF0000FF","Thickness":3})");
}

TEST(AnnArrowProperties, EnumeratorsHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(AnnArrowProperties::Arrow), 0);
  EXPECT_EQ(static_cast<int>(AnnArrowProperties::Line), 1);
}

TEST(AnnArrowProperties, SettersWriteFieldAndKey) {
  AnnArrowProperties record;
  record.SetHead(AnnArrowProperties::Line);
  record.SetColor(wxColour(1, 2, 3));
  record.SetThickness(8);
  EXPECT_EQ(record.GetHead(), AnnArrowProperties::Line);
  EXPECT_EQ(Hex(record.GetColor()), "#010203FF");
  EXPECT_EQ(record.GetThickness(), 8);
  EXPECT_EQ(TextOf(record), R"({"Head":1,"Color":"#010203FF","Thickness":8})");
}

TEST(AnnArrowProperties, APlainColourKeepsItsAlphaOverALoad) {
  AnnArrowProperties record;
  record.SetColor(wxColour(10, 20, 30, 128));
  EXPECT_EQ(record.ToJSON().ItemAt("Color").AsString(), "#0A141E80");
  EXPECT_EQ(Hex(AnnArrowProperties(record.ToJSON()).GetColor()), "#0A141E80");
}

TEST(AnnArrowProperties, ValuesOutOfRangeAreKept) {
  auto const record = From<AnnArrowProperties>(R"({"Head":9,"Thickness":-1})");
  EXPECT_EQ(static_cast<int>(record.GetHead()), 9);
  EXPECT_EQ(record.GetThickness(), -1);
  EXPECT_EQ(TextOf(record), R"({"Head":9,"Thickness":-1,"Color":"#FF0000FF"})");
}

TEST(AnnArrowProperties, AnUnreadableColourIsTheNullColour) {
  auto const record = From<AnnArrowProperties>(R"({"Color":"crimson"})");
  EXPECT_FALSE(record.GetColor().IsOk());
  EXPECT_EQ(record.ToJSON().ItemAt("Color").AsString(), "null");
}

}  // namespace
}  // namespace framenote::test
