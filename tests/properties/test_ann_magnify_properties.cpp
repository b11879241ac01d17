// SPDX-License-Identifier: MIT
#include "properties/ann_magnify_properties.h"

#include <limits>

#include <gtest/gtest.h>

#include "properties/property_support.h"

namespace framenote::test {
namespace {

void ExpectDefaults(AnnMagnifyProperties const &record) {
  EXPECT_EQ(record.GetZoom(), 2.0);
  EXPECT_TRUE(record.GetFixedSourceSize());
  EXPECT_EQ(record.GetZoomMethod(), wxIMAGE_QUALITY_NEAREST);
  EXPECT_EQ(record.GetShape(), AnnShapeProperties::Rectangle);
  EXPECT_EQ(Hex(record.GetBorderColor()), "#FF0000FF");
  EXPECT_EQ(record.GetBorderType(), AnnMagnifyProperties::Transparent);
  EXPECT_EQ(record.GetThickness(), 3);
}

TEST(AnnMagnifyProperties, Defaults) {
  ExpectDefaults(AnnMagnifyProperties());
  ExpectDefaults(From<AnnMagnifyProperties>("{}"));
  EXPECT_EQ(TextOf(AnnMagnifyProperties()),
            R"({"Zoom":2.0,"FixedSourceSize":true,"ZoomMethod":0,"Shape":0,)"
            R"("BorderColor":"#FF0000FF","BorderType":0,"Thickness":3})");
}

TEST(AnnMagnifyProperties, ConstantsHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(AnnMagnifyProperties::Transparent), 0);
  EXPECT_EQ(static_cast<int>(AnnMagnifyProperties::ShapeOnly), 1);
  EXPECT_EQ(static_cast<int>(AnnMagnifyProperties::PointToZoomedArea2Lines), 2);
  EXPECT_EQ(static_cast<int>(AnnMagnifyProperties::PointToZoomedArea3Lines), 3);
  EXPECT_EQ(static_cast<int>(AnnMagnifyProperties::PointToZoomedArea4Lines), 4);
  EXPECT_EQ(double{AnnMagnifyProperties::m_minZoom}, 1.5);
  EXPECT_EQ(double{AnnMagnifyProperties::m_maxZoom}, 8.0);
  EXPECT_EQ(double{AnnMagnifyProperties::m_zoomStep}, 0.5);
}

TEST(AnnMagnifyProperties, SettersWriteFieldAndKey) {
  AnnMagnifyProperties record;
  record.SetZoom(3.5);
  record.SetFixedSourceSize(false);
  record.SetZoomMethod(wxIMAGE_QUALITY_BICUBIC);
  record.SetShape(AnnShapeProperties::Ellipse);
  record.SetBorderColor(wxColour(1, 2, 3, 128));
  record.SetBorderType(AnnMagnifyProperties::PointToZoomedArea3Lines);
  record.SetThickness(7);
  EXPECT_EQ(record.GetZoom(), 3.5);
  EXPECT_FALSE(record.GetFixedSourceSize());
  EXPECT_EQ(record.GetZoomMethod(), wxIMAGE_QUALITY_BICUBIC);
  EXPECT_EQ(record.GetShape(), AnnShapeProperties::Ellipse);
  EXPECT_EQ(Hex(record.GetBorderColor()), "#01020380");
  EXPECT_EQ(record.GetBorderType(), AnnMagnifyProperties::PointToZoomedArea3Lines);
  EXPECT_EQ(record.GetThickness(), 7);
  EXPECT_EQ(TextOf(record), R"({"Zoom":3.5,"FixedSourceSize":false,"ZoomMethod":2,"Shape":1,)"
                            R"("BorderColor":"#01020380","BorderType":3,"Thickness":7})");
}

TEST(AnnMagnifyProperties, TheBorderColourKeepsItsAlphaOverALoad) {
  auto const record = From<AnnMagnifyProperties>(R"({"BorderColor":"#0A141E80"})");
  EXPECT_EQ(Hex(record.GetBorderColor()), "#0A141E80");
  EXPECT_FALSE(record.ToJSON().HasMember("BorderColorTransparent"));
}

TEST(AnnMagnifyProperties, ZoomThatIsNotFiniteIsWrittenAsANumber) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  auto const written = [](double zoom) {
    AnnMagnifyProperties record;
    record.SetZoom(zoom);
    EXPECT_TRUE(
        From<AnnMagnifyProperties>(TextOf(record).c_str()).ToJSON().IsSameAs(record.ToJSON()));
    return record.ToJSON().ItemAt("Zoom").AsDouble();
  };
  EXPECT_EQ(written(kInfinity), 1.7976931348623157e308);
  EXPECT_EQ(written(-kInfinity), -1.7976931348623157e308);
  EXPECT_EQ(written(std::numeric_limits<double>::quiet_NaN()), 0.0);
  AnnMagnifyProperties record;
  record.SetZoom(kInfinity);
  EXPECT_EQ(record.GetZoom(), kInfinity);
}

TEST(AnnMagnifyProperties, AnIntegerZoomLoadsAndIsWrittenAsADouble) {
  auto const record = From<AnnMagnifyProperties>(R"({"Zoom":4})");
  EXPECT_EQ(record.GetZoom(), 4.0);
  EXPECT_TRUE(record.ToJSON().ItemAt("Zoom").IsDouble());
  EXPECT_EQ(record.ToJSON().ItemAt("Zoom").AsDouble(), 4.0);
}

TEST(AnnMagnifyProperties, AWholeZoomStaysADoubleInText) {
  AnnMagnifyProperties record;
  record.SetZoom(4.0);
  EXPECT_TRUE(JsonFromUtf8(TextOf(record)).ItemAt("Zoom").IsDouble());
}

TEST(AnnMagnifyProperties, AZoomOfAnotherTypeIsZero) {
  EXPECT_EQ(From<AnnMagnifyProperties>(R"({"Zoom":"3.5"})").GetZoom(), 0.0);
  EXPECT_EQ(From<AnnMagnifyProperties>(R"({"Zoom":null})").GetZoom(), 0.0);
}

TEST(AnnMagnifyProperties, ValuesOutOfRangeAreKept) {
  auto const record =
      From<AnnMagnifyProperties>(R"({"Zoom":-100.25,"Shape":7,"BorderType":12,"Thickness":-3})");
  EXPECT_EQ(record.GetZoom(), -100.25);
  EXPECT_EQ(static_cast<int>(record.GetShape()), 7);
  EXPECT_EQ(static_cast<int>(record.GetBorderType()), 12);
  EXPECT_EQ(record.GetThickness(), -3);
}

TEST(AnnMagnifyProperties, AZoomMethodBeyondTheToolkitsIsKept) {
  auto const record = From<AnnMagnifyProperties>(R"({"ZoomMethod":99})");
  AnnMagnifyProperties const copy(record);
  EXPECT_EQ(static_cast<int>(copy.GetZoomMethod()), 99);
  EXPECT_EQ(copy.ToJSON().ItemAt("ZoomMethod").AsInt(), 99);
}

}  // namespace
}  // namespace framenote::test
