// SPDX-License-Identifier: MIT
#include "properties/ann_pencil_properties.h"

#include <gtest/gtest.h>

#include "properties/property_support.h"

namespace framenote::test {
namespace {

void ExpectDefaults(AnnPencilProperties const &record) {
  EXPECT_EQ(Hex(record.GetColor()), "#FF0000FF");
  EXPECT_EQ(record.GetThickness(), 3);
}

TEST(AnnPencilProperties, Defaults) {
  ExpectDefaults(AnnPencilProperties());
  ExpectDefaults(From<AnnPencilProperties>("{}"));
  EXPECT_EQ(TextOf(AnnPencilProperties()), R"({"Color":"#FF0000FF","Thickness":3})");
}

TEST(AnnPencilProperties, SettersWriteFieldAndKey) {
  AnnPencilProperties record;
  record.SetColor(wxColour(1, 2, 3, 0));
  record.SetThickness(-2);
  EXPECT_EQ(Hex(record.GetColor()), "#01020300");
  EXPECT_EQ(record.GetThickness(), -2);
  EXPECT_EQ(TextOf(record), R"({"Color":"#01020300","Thickness":-2})");
}

TEST(AnnPencilProperties, ANullColourIsKeptOverALoad) {
  AnnPencilProperties record;
  record.SetColor(wxNullColour);
  EXPECT_EQ(record.ToJSON().ItemAt("Color").AsString(), "null");
  EXPECT_FALSE(AnnPencilProperties(record.ToJSON()).GetColor().IsOk());
}

}  // namespace
}  // namespace framenote::test
