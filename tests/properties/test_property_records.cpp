// SPDX-License-Identifier: MIT
#include <type_traits>

#include <gtest/gtest.h>

#include "properties/ann_arrow_properties.h"
#include "properties/ann_hide_properties.h"
#include "properties/ann_image_properties.h"
#include "properties/ann_magnify_properties.h"
#include "properties/ann_pencil_properties.h"
#include "properties/ann_shape_properties.h"
#include "properties/ann_text_properties.h"
#include "properties/property_support.h"

namespace framenote::test {
namespace {

template <class Record>
void Change(Record &record) {
  record.SetThickness(17);
}

void Change(AnnTextProperties &record) {
  record.SetFontColor(wxColour(1, 2, 3, 4));
}

void Change(AnnImageProperties &record) {
  record.SetKeepAspectRatio(false);
}

template <class Record>
class PropertyRecord : public testing::Test {};

template <class Record>
class NormalisedRecord : public testing::Test {};

using Normalised = testing::Types<AnnShapeProperties, AnnArrowProperties, AnnPencilProperties,
                                  AnnTextProperties, AnnHideProperties, AnnMagnifyProperties>;
using All =
    testing::Types<AnnShapeProperties, AnnArrowProperties, AnnPencilProperties, AnnTextProperties,
                   AnnImageProperties, AnnHideProperties, AnnMagnifyProperties>;
TYPED_TEST_SUITE(PropertyRecord, All);
TYPED_TEST_SUITE(NormalisedRecord, Normalised);

TYPED_TEST(PropertyRecord, ASetterChangesTheJsonAtOnce) {
  TypeParam record;
  std::string const before = TextOf(record);
  Change(record);
  EXPECT_NE(TextOf(record), before);
}

TYPED_TEST(PropertyRecord, ASetterOnACopyLeavesTheOriginal) {
  TypeParam const original;
  std::string const before = TextOf(original);
  TypeParam copy(original);
  EXPECT_EQ(TextOf(copy), before);
  Change(copy);
  EXPECT_EQ(TextOf(original), before);
}

TYPED_TEST(PropertyRecord, ASetterOnTheOriginalLeavesACopy) {
  TypeParam original;
  TypeParam const copy(original);
  std::string const before = TextOf(copy);
  Change(original);
  EXPECT_EQ(TextOf(copy), before);
}

TYPED_TEST(PropertyRecord, AssignmentTakesOverTheJsonAndStaysIndependent) {
  TypeParam source;
  Change(source);
  std::string const changed = TextOf(source);
  TypeParam target;
  target = source;
  EXPECT_EQ(TextOf(target), changed);
  source = TypeParam();
  EXPECT_EQ(TextOf(target), changed);
}

TYPED_TEST(PropertyRecord, AssignmentToItselfChangesNothing) {
  TypeParam record;
  Change(record);
  std::string const before = TextOf(record);
  TypeParam const &same = record;
  record = same;
  EXPECT_EQ(TextOf(record), before);
}

TYPED_TEST(PropertyRecord, ARecordReadsBackFromItsOwnJson) {
  TypeParam record;
  Change(record);
  EXPECT_EQ(TextOf(TypeParam(record.ToJSON())), TextOf(record));
}

TYPED_TEST(PropertyRecord, UnknownMembersSurvive) {
  TypeParam record = From<TypeParam>(R"({"Later":{"Depth":[1,2]},"Note":"kept"})");
  Change(record);
  EXPECT_EQ(JsonToUtf8(record.ToJSON().ItemAt("Later")), R"({"Depth":[1,2]})");
  EXPECT_EQ(record.ToJSON().ItemAt("Note").AsString(), "kept");
}

TYPED_TEST(PropertyRecord, BuildingLeavesTheGivenValue) {
  wxJSONValue const given = JsonFromUtf8(R"({"Note":"kept"})");
  TypeParam record(given);
  Change(record);
  EXPECT_EQ(JsonToUtf8(given), R"({"Note":"kept"})");
}

TYPED_TEST(NormalisedRecord, AnEmptyObjectGivesTheDefaultRecordWithEveryKey) {
  EXPECT_EQ(TextOf(From<TypeParam>("{}")), TextOf(TypeParam()));
  EXPECT_NE(TextOf(From<TypeParam>("{}")), "{}");
}

TYPED_TEST(NormalisedRecord, SomethingOtherThanAnObjectGivesTheDefaultRecord) {
  for (char const *json : {"5", "null", "[1,2]", "\"text\"", "not json"}) {
    EXPECT_EQ(TextOf(From<TypeParam>(json)), TextOf(TypeParam())) << json;
  }
}

TEST(PropertyRecords, DeriveFromTheContractAloneAndNotFromEachOther) {
  EXPECT_TRUE(std::is_abstract_v<IAnnotationProperties>);
  EXPECT_TRUE(std::has_virtual_destructor_v<IAnnotationProperties>);
  EXPECT_FALSE((std::is_base_of_v<AnnShapeProperties, AnnHideProperties>));
  EXPECT_FALSE((std::is_base_of_v<AnnShapeProperties, AnnMagnifyProperties>));
}

}  // namespace
}  // namespace framenote::test
