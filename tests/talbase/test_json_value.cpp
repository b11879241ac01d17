// SPDX-License-Identifier: MIT
#include "talbase/json_value.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <wx/string.h>

#include <gtest/gtest.h>

#include "talbase/json_sharing.h"
#include "talbase/json_text.h"

namespace {

constexpr auto kMaxInt64 = std::numeric_limits<std::int64_t>::max();
constexpr auto kMinInt64 = std::numeric_limits<std::int64_t>::min();

wxJSONValue Of(char const *text) {
  return JsonFromUtf8(text);
}

std::string TextOf(wxJSONValue const &value) {
  return JsonToUtf8(value);
}

std::string NamesOf(wxJSONValue const &value) {
  std::string names;
  for (wxString const &name : value.GetMemberNames()) names += name.utf8_string() + " ";
  return names;
}

}  // namespace

// --- Kinds ---

TEST(JsonValue, IsNullAndValidFromTheStart) {
  wxJSONValue const value;
  EXPECT_EQ(value.GetType(), wxJSONTYPE_NULL);
  EXPECT_TRUE(value.IsNull());
  EXPECT_TRUE(value.IsValid());
}

TEST(JsonValue, MissingMemberOrElementReadsAsInvalid) {
  wxJSONValue const object = Of(R"({"a":1})");
  wxJSONValue const array = Of("[1]");
  EXPECT_FALSE(object.ItemAt("b").IsValid());
  EXPECT_FALSE(object.ItemAt(wxString("b")).IsValid());
  EXPECT_FALSE(object.ItemAt(0).IsValid());
  EXPECT_FALSE(array.ItemAt(1).IsValid());
  EXPECT_FALSE(array.ItemAt(-1).IsValid());
  EXPECT_FALSE(array.ItemAt("a").IsValid());
  EXPECT_FALSE(wxJSONValue(5).ItemAt("a").IsValid());
}

TEST(JsonValue, MembersAreWrittenByAnyKindOfText) {
  wxJSONValue object;
  object[wxString::FromUTF8("größe")] = 3;
  object["größe"] = 4;
  object[wxString("a")]["b"] = true;
  EXPECT_EQ(TextOf(object), R"({"größe":4,"a":{"b":true}})");
}

TEST(JsonValue, NullMemberIsNotAMissingOne) {
  wxJSONValue const object = Of(R"({"a":null})");
  EXPECT_TRUE(object.HasMember("a"));
  EXPECT_TRUE(object.ItemAt("a").IsValid());
  EXPECT_FALSE(object.HasMember("b"));
}

TEST(JsonValue, EmptyValueOfEachKind) {
  EXPECT_FALSE(wxJSONValue(wxJSONTYPE_INVALID).IsValid());
  EXPECT_EQ(TextOf(wxJSONValue(wxJSONTYPE_BOOL)), "false");
  EXPECT_EQ(TextOf(wxJSONValue(wxJSONTYPE_INT)), "0");
  EXPECT_EQ(TextOf(wxJSONValue(wxJSONTYPE_DOUBLE)), "0.0");
  EXPECT_EQ(TextOf(wxJSONValue(wxJSONTYPE_STRING)), R"("")");
  EXPECT_EQ(TextOf(wxJSONValue(wxJSONTYPE_ARRAY)), "[]");
  EXPECT_EQ(TextOf(wxJSONValue(wxJSONTYPE_OBJECT)), "{}");
}

TEST(JsonValue, TakesTheKindOfWhatItIsMadeFrom) {
  EXPECT_TRUE(wxJSONValue(true).IsBool());
  EXPECT_TRUE(wxJSONValue(1).IsInt());
  EXPECT_TRUE(wxJSONValue(1U).IsInt());
  EXPECT_TRUE(wxJSONValue(1L).IsInt());
  EXPECT_TRUE(wxJSONValue(1UL).IsInt());
  EXPECT_TRUE(wxJSONValue(1LL).IsInt());
  EXPECT_TRUE(wxJSONValue(1.0).IsDouble());
  EXPECT_TRUE(wxJSONValue(1.0F).IsDouble());
  EXPECT_TRUE(wxJSONValue("a").IsString());
  EXPECT_TRUE(wxJSONValue(L"a").IsString());
  EXPECT_TRUE(wxJSONValue(wxString("a")).IsString());
}

TEST(JsonValue, UnsignedNumberBeyondTheRangeBecomesTheGreatest) {
  EXPECT_EQ(wxJSONValue(9223372036854775807ULL).AsInt64(), kMaxInt64);
  EXPECT_EQ(wxJSONValue(9223372036854775808ULL).AsInt64(), kMaxInt64);
  EXPECT_EQ(wxJSONValue(18446744073709551615UL).AsInt64(), kMaxInt64);
}

// --- Conversions between kinds ---

TEST(JsonValue, NumbersConvertAmongThemselves) {
  EXPECT_EQ(wxJSONValue(-7).AsDouble(), -7.0);
  EXPECT_EQ(wxJSONValue(2.9).AsInt(), 2);
  EXPECT_EQ(wxJSONValue(-2.9).AsInt(), -2);
  EXPECT_EQ(wxJSONValue(2.9).AsInt64(), 2);
}

TEST(JsonValue, NumberOutOfRangeSaturates) {
  double const infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(wxJSONValue(std::int64_t{2147483648}).AsInt(), 2147483647);
  EXPECT_EQ(wxJSONValue(std::int64_t{-2147483649}).AsInt(), -2147483647 - 1);
  EXPECT_EQ(wxJSONValue(1e10).AsInt(), 2147483647);
  EXPECT_EQ(wxJSONValue(9223372036854775808.0).AsInt64(), kMaxInt64);
  EXPECT_EQ(wxJSONValue(-9223372036854775808.0).AsInt64(), kMinInt64);
  EXPECT_EQ(wxJSONValue(-1e300).AsInt64(), kMinInt64);
  EXPECT_EQ(wxJSONValue(infinity).AsInt64(), kMaxInt64);
  EXPECT_EQ(wxJSONValue(-infinity).AsInt(), -2147483647 - 1);
  EXPECT_EQ(wxJSONValue(std::nan("")).AsInt64(), 0);
}

TEST(JsonValue, OtherKindsReadAsNothing) {
  for (char const *text : {"null", R"("5")", "[5]", R"({"a":5})", "true"}) {
    wxJSONValue const value = Of(text);
    EXPECT_EQ(value.AsInt(), 0) << text;
    EXPECT_EQ(value.AsInt64(), 0) << text;
    EXPECT_EQ(value.AsDouble(), 0.0) << text;
  }
  for (char const *text : {"null", "1", "1.0", R"("true")", "[true]"}) {
    EXPECT_FALSE(Of(text).AsBool()) << text;
  }
  EXPECT_TRUE(Of("true").AsBool());
}

TEST(JsonValue, StringOfNullIsNullAndOfOthersEmpty) {
  EXPECT_EQ(wxJSONValue().AsString(), "null");
  EXPECT_EQ(wxJSONValue(5).AsString(), "");
  EXPECT_EQ(wxJSONValue(wxJSONTYPE_INVALID).AsString(), "");
  EXPECT_EQ(Of("[]").AsString(), "");
  EXPECT_EQ(wxJSONValue("x").AsString(), "x");
}

TEST(JsonValue, SizeCountsElementsAndMembers) {
  EXPECT_EQ(Of("[1,2,3]").Size(), 3);
  EXPECT_EQ(Of(R"({"a":1,"b":2})").Size(), 2);
  EXPECT_EQ(wxJSONValue("abc").Size(), 0);
  EXPECT_EQ(wxJSONValue().Size(), 0);
}

// --- Strings ---

TEST(JsonValue, StringKeepsEveryCharacter) {
  wxString const text = wxString::FromUTF8("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
  EXPECT_EQ(wxJSONValue(text).AsString(), text);
  wxString const withZero(L"a\0b", 3);
  EXPECT_EQ(wxJSONValue(withZero).AsString().length(), 3U);
}

TEST(JsonValue, NarrowTextIsUtf8AndElseEmpty) {
  char const *const nothing = nullptr;
  EXPECT_EQ(wxJSONValue("\xC3\xA9").AsString(), wxString(L"\u00E9"));
  EXPECT_EQ(wxJSONValue("a\xFF").AsString(), "");
  EXPECT_EQ(wxJSONValue(nothing).AsString(), "");
  EXPECT_FALSE(Of(R"({"":1})").ItemAt(nothing).IsValid());
}

TEST(JsonValue, StrayCharacterIsReplacedAndTheTextStaysReadable) {
  for (wchar_t const stray : {wchar_t{0xD800}, wchar_t{0xDFFF}, static_cast<wchar_t>(0x110000)}) {
    wchar_t const text[] = {L'a', stray, L'b', 0};
    wxJSONValue const value(text);
    EXPECT_EQ(value.AsString(), wxString(L"a\uFFFDb"));
    EXPECT_TRUE(JsonFromUtf8(JsonToUtf8(value)).IsSameAs(value));
    wxJSONValue object;
    object.Set(text, 1);
    EXPECT_TRUE(object.HasMember(text));
    EXPECT_TRUE(JsonFromUtf8(JsonToUtf8(object)).IsSameAs(object));
  }
}

// --- Objects and arrays ---

TEST(JsonObject, MembersKeepTheOrderOfTheirFirstSetting) {
  wxJSONValue object;
  object.Set("b", 1);
  object.Set("a", 2);
  object.Set("b", 3);
  EXPECT_EQ(TextOf(object), R"({"b":3,"a":2})");
  EXPECT_EQ(NamesOf(object), "b a ");
}

TEST(JsonObject, RemovedMemberComesBackAtTheEnd) {
  wxJSONValue object = Of(R"({"a":1,"b":2,"c":3})");
  EXPECT_TRUE(object.Remove("a"));
  EXPECT_FALSE(object.Remove("a"));
  object.Set("a", 4);
  EXPECT_EQ(TextOf(object), R"({"b":2,"c":3,"a":4})");
}

TEST(JsonObject, ManyMembersAreFoundSetAndRemoved) {
  wxJSONValue object;
  for (int i = 0; i < 100; ++i) object.Set(wxString::Format("key%d", i), i);
  object.Set("key50", -1);
  EXPECT_TRUE(object.Remove("key0"));
  EXPECT_EQ(object.Size(), 99);
  EXPECT_FALSE(object.HasMember("key0"));
  EXPECT_EQ(object.ItemAt("key1").AsInt(), 1);
  EXPECT_EQ(object.ItemAt("key50").AsInt(), -1);
  EXPECT_EQ(object.ItemAt("key99").AsInt(), 99);
  for (int i = 1; i < 90; ++i) EXPECT_TRUE(object.Remove(wxString::Format("key%d", i)));
  EXPECT_EQ(object.ItemAt("key95").AsInt(), 95);
  EXPECT_EQ(object.Size(), 10);
}

TEST(JsonObject, GetGivesTheFallbackOnlyWhereThereIsNoMember) {
  wxJSONValue const object = Of(R"({"a":null})");
  EXPECT_TRUE(object.Get("a", 5).IsNull());
  EXPECT_EQ(object.Get("b", 5).AsInt(), 5);
  EXPECT_EQ(wxJSONValue().Get("a", 5).AsInt(), 5);
}

TEST(JsonObject, ReferenceMakesMissingMembersAndObjects) {
  wxJSONValue value(7);
  value["a"]["b"] = 1;
  value.Item("c");
  EXPECT_EQ(TextOf(value), R"({"a":{"b":1},"c":null})");
}

TEST(JsonArray, IndexIsCapped) {
  wxJSONValue array = Of("[1,2]");
  array[-5] = 10;
  array[99] = 30;
  EXPECT_EQ(TextOf(array), "[10,2,30]");
}

TEST(JsonArray, AppendMakesAnArrayOfAnotherKind) {
  wxJSONValue value("text");
  value.Append(1);
  EXPECT_EQ(TextOf(value), "[1]");
}

TEST(JsonArray, RemovesByIndex) {
  wxJSONValue array = Of("[1,2,3]");
  EXPECT_TRUE(array.Remove(1));
  EXPECT_FALSE(array.Remove(2));
  EXPECT_FALSE(array.Remove(-1));
  EXPECT_EQ(TextOf(array), "[1,3]");
  EXPECT_FALSE(Of("{}").Remove(0));
}

// --- Copies ---

TEST(JsonCopy, ChangesOfTheCopyAndOfTheSourceStayApart) {
  wxJSONValue source = Of(R"({"a":[1,{"b":2}]})");
  wxJSONValue copy = source;
  copy["a"][1]["b"] = 3;
  source["a"].Append(4);
  EXPECT_EQ(TextOf(source), R"({"a":[1,{"b":2},4]})");
  EXPECT_EQ(TextOf(copy), R"({"a":[1,{"b":3}]})");
}

TEST(JsonCopy, ReferenceTakenBeforeDoesNotReachIt) {
  wxJSONValue source = Of(R"({"a":1})");
  wxJSONValue &inside = source["a"];
  wxJSONValue const copy = source;
  inside = 2;
  EXPECT_EQ(TextOf(source), R"({"a":2})");
  EXPECT_EQ(TextOf(copy), R"({"a":1})");
}

TEST(JsonCopy, NestedReferenceTakenBeforeDoesNotReachIt) {
  wxJSONValue source = Of(R"({"a":[{"b":1}]})");
  wxJSONValue &inside = source["a"][0]["b"];
  wxJSONValue const copy = source;
  wxJSONValue assigned;
  assigned = source;
  wxJSONValue const part = source.ItemAt("a");
  wxJSONValue holder;
  holder.Append(source);
  inside = 2;
  EXPECT_EQ(TextOf(source), R"({"a":[{"b":2}]})");
  EXPECT_EQ(TextOf(copy), R"({"a":[{"b":1}]})");
  EXPECT_EQ(TextOf(assigned), R"({"a":[{"b":1}]})");
  EXPECT_EQ(TextOf(part), R"([{"b":1}])");
  EXPECT_EQ(TextOf(holder), R"([{"a":[{"b":1}]}])");
}

TEST(JsonCopy, ReferenceIntoACopyOfACopyStaysThere) {
  wxJSONValue first = Of(R"({"a":{"b":1}})");
  wxJSONValue second = first;
  wxJSONValue &inside = second["a"]["b"];
  wxJSONValue const third = second;
  inside = 2;
  EXPECT_EQ(TextOf(first), R"({"a":{"b":1}})");
  EXPECT_EQ(TextOf(second), R"({"a":{"b":2}})");
  EXPECT_EQ(TextOf(third), R"({"a":{"b":1}})");
}

TEST(JsonCopy, ReferenceIntoAMovedValueDoesNotReachCopiesOfItsNewPlace) {
  wxJSONValue made;
  wxJSONValue &inside = made["a"]["b"];
  inside = 1;
  wxJSONValue outside;
  outside.Set("in", std::move(made));
  wxJSONValue array;
  array.Append(std::move(outside));
  wxJSONValue const copy = array;
  inside = 2;
  EXPECT_EQ(TextOf(copy), R"([{"in":{"a":{"b":1}}}])");
  EXPECT_EQ(TextOf(array), R"([{"in":{"a":{"b":2}}}])");
}

TEST(JsonCopy, ValueMayBePutIntoItself) {
  wxJSONValue value = Of(R"({"a":1})");
  value.Set("self", value);
  EXPECT_EQ(TextOf(value), R"({"a":1,"self":{"a":1}})");
  value["a"] = value;
  EXPECT_EQ(TextOf(value), R"({"a":{"a":1,"self":{"a":1}},"self":{"a":1}})");
  value = value["self"];
  EXPECT_EQ(TextOf(value), R"({"a":1})");
  wxJSONValue array = Of("[1]");
  array.Append(array);
  EXPECT_EQ(TextOf(array), "[1,[1]]");
  array = std::move(array[1]);
  EXPECT_EQ(TextOf(array), "[1]");
  wxJSONValue const &same = array;
  array = same;
  EXPECT_EQ(TextOf(array), "[1]");
}

TEST(JsonCopy, MovedFromValueIsNullAndUsable) {
  wxJSONValue source = Of("[1]");
  wxJSONValue const target = std::move(source);
  EXPECT_EQ(TextOf(target), "[1]");
  EXPECT_TRUE(source.IsNull());  // NOLINT(bugprone-use-after-move): the rule under test
  source.Append(2);
  EXPECT_EQ(TextOf(source), "[2]");
}

// A deep copy at each level would make two to the power of 60 values.
TEST(JsonCopy, SharesItsInsides) {
  wxJSONValue value(1);
  for (int level = 0; level < 60; ++level) {
    wxJSONValue pair(wxJSONTYPE_ARRAY);
    pair.Append(value);
    pair.Append(value);
    value = pair;
  }
  wxJSONValue const copy = value;
  EXPECT_TRUE(copy.IsSameAs(value));
  EXPECT_EQ(copy.Size(), 2);
}

TEST(JsonCopy, DepthOfADocumentIsNoTrouble) {
  wxJSONValue value;
  for (int level = 0; level < 1000; ++level) {
    wxJSONValue outside(wxJSONTYPE_ARRAY);
    outside.Append(std::move(value));
    value = std::move(outside);
  }
  wxJSONValue const read = JsonFromUtf8(JsonToUtf8(value));
  EXPECT_FALSE(read.IsValid());
  EXPECT_EQ(TextOf(value), std::string(1000, '[') + "null" + std::string(1000, ']'));
}

// --- Comparison ---

TEST(JsonSame, TellsKindsAndValuesApart) {
  std::vector<char const *> const texts = {
      "null",  "true",   "false",      "1",          "1.0",          "2",
      "1.5",   R"("1")", R"("")",      "[]",         "[1]",          "[1,2]",
      "[2,1]", "{}",     R"({"a":1})", R"({"b":1})", R"({"a":1.0})", R"({"a":1,"b":1})"};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    for (std::size_t j = 0; j < texts.size(); ++j) {
      EXPECT_EQ(Of(texts[i]).IsSameAs(Of(texts[j])), i == j) << texts[i] << " and " << texts[j];
    }
  }
}

TEST(JsonSame, InvalidIsSameOnlyAsInvalid) {
  wxJSONValue const invalid(wxJSONTYPE_INVALID);
  EXPECT_TRUE(invalid.IsSameAs(wxJSONValue(wxJSONTYPE_INVALID)));
  EXPECT_FALSE(invalid.IsSameAs(wxJSONValue()));
}

TEST(JsonSame, OrderOfMembersDoesNotCount) {
  EXPECT_TRUE(Of(R"({"a":1,"b":[2]})").IsSameAs(Of(R"({"b":[2],"a":1})")));
  EXPECT_FALSE(Of(R"({"a":1,"b":[2]})").IsSameAs(Of(R"({"b":[3],"a":1})")));
}

TEST(JsonSame, NanIsSameAsNanAndZerosAreSame) {
  EXPECT_TRUE(wxJSONValue(std::nan("")).IsSameAs(std::nan("")));
  EXPECT_FALSE(wxJSONValue(std::nan("")).IsSameAs(0.0));
  EXPECT_TRUE(wxJSONValue(0.0).IsSameAs(-0.0));
}

TEST(JsonSame, CopiesShareAndEqualValuesNeedNot) {
  wxJSONValue const value = Of(R"({"a":[1]})");
  wxJSONValue copy = value;
  EXPECT_TRUE(framenote::AreShared(copy, value));
  EXPECT_FALSE(framenote::AreShared(Of(R"({"a":[1]})"), value));
  EXPECT_FALSE(framenote::AreShared(wxJSONValue(1), wxJSONValue(1)));
  copy.Set("b", 2);
  EXPECT_FALSE(framenote::AreShared(copy, value));
  EXPECT_TRUE(framenote::AreShared(copy.ItemAt("a"), value.ItemAt("a")));
}

TEST(JsonSame, DeepDifferenceIsSeen) {
  wxJSONValue const before = Of(R"({"Objects":[{"Coordinates":[{"Range":[0,9]}]}]})");
  wxJSONValue after = before;
  EXPECT_TRUE(after.IsSameAs(before));
  after["Objects"][0]["Coordinates"][0]["Range"][1] = 8;
  EXPECT_FALSE(after.IsSameAs(before));
  after["Objects"][0]["Coordinates"][0]["Range"][1] = 9;
  EXPECT_TRUE(after.IsSameAs(before));
}
