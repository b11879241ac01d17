// SPDX-License-Identifier: MIT
#include "talbase/json_text.h"

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include <wx/string.h>

#include <gtest/gtest.h>

namespace {

std::uint64_t BitsOf(double value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

std::string Member(int i) {
  return "\"m" + std::to_string(i) + "\":" + std::to_string(i);
}

struct Row {
  std::string read;
  wxJSONType type;
  std::string written;
};

}  // namespace

// --- Tables: text, kind, text again ---

class JsonTextTable : public testing::TestWithParam<Row> {};

TEST_P(JsonTextTable, ReadsAndWrites) {
  wxJSONValue const value = JsonFromUtf8(GetParam().read);
  EXPECT_EQ(value.GetType(), GetParam().type);
  EXPECT_EQ(JsonToUtf8(value), GetParam().written);
  EXPECT_TRUE(JsonFromUtf8(JsonToUtf8(value)).IsSameAs(value));
  wxJSONValue const wide = JsonFromText(wxString::FromUTF8(GetParam().read));
  EXPECT_TRUE(wide.IsSameAs(value));
  EXPECT_EQ(JsonToText(value).utf8_string(), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, JsonTextTable,
    testing::Values(Row{"0", wxJSONTYPE_INT, "0"}, Row{"-12", wxJSONTYPE_INT, "-12"},
                    Row{"9223372036854775807", wxJSONTYPE_INT, "9223372036854775807"},
                    Row{"-9223372036854775808", wxJSONTYPE_INT, "-9223372036854775808"},
                    Row{"9007199254740993", wxJSONTYPE_INT, "9007199254740993"},
                    Row{"9223372036854775808", wxJSONTYPE_DOUBLE, "9223372036854775808.0"},
                    Row{"18446744073709551616", wxJSONTYPE_DOUBLE, "18446744073709551616.0"},
                    Row{"-9223372036854775809", wxJSONTYPE_DOUBLE, "-9223372036854775808.0"},
                    Row{"3.0", wxJSONTYPE_DOUBLE, "3.0"}, Row{"-0.0", wxJSONTYPE_DOUBLE, "-0.0"},
                    Row{"0.1", wxJSONTYPE_DOUBLE, "0.1"}, Row{"2.50", wxJSONTYPE_DOUBLE, "2.5"},
                    Row{"1e2", wxJSONTYPE_DOUBLE, "100.0"},
                    Row{"1E300", wxJSONTYPE_DOUBLE, "1e+300"},
                    Row{"5e-324", wxJSONTYPE_DOUBLE, "5e-324"},
                    Row{"1e-400", wxJSONTYPE_DOUBLE, "0.0"}));

INSTANTIATE_TEST_SUITE_P(
    Others, JsonTextTable,
    testing::Values(Row{"null", wxJSONTYPE_NULL, "null"}, Row{" true ", wxJSONTYPE_BOOL, "true"},
                    Row{"false\n", wxJSONTYPE_BOOL, "false"}, Row{"[ ]", wxJSONTYPE_ARRAY, "[]"},
                    Row{"{ }", wxJSONTYPE_OBJECT, "{}"},
                    Row{"[1, [2, {\"a\" : null}]]", wxJSONTYPE_ARRAY, "[1,[2,{\"a\":null}]]"},
                    Row{R"({"b":1,"a":{"c":[],"d":{}}})", wxJSONTYPE_OBJECT,
                        R"({"b":1,"a":{"c":[],"d":{}}})"},
                    Row{R"({"a":1,"b":2,"a":3})", wxJSONTYPE_OBJECT, R"({"a":3,"b":2})"},
                    Row{R"({"":1})", wxJSONTYPE_OBJECT, R"({"":1})"},
                    Row{"\xEF\xBB\xBF[1]", wxJSONTYPE_ARRAY, "[1]"}));

INSTANTIATE_TEST_SUITE_P(
    Strings, JsonTextTable,
    testing::Values(Row{R"("plain")", wxJSONTYPE_STRING, R"("plain")"},
                    Row{R"("a\"b\\c\/d")", wxJSONTYPE_STRING, R"("a\"b\\c/d")"},
                    Row{R"("\b\f\n\r\t\u0001")", wxJSONTYPE_STRING, R"("\b\f\n\r\t\u0001")"},
                    Row{R"("\u0000x")", wxJSONTYPE_STRING, R"("\u0000x")"},
                    Row{R"("\u00e9\u20AC")", wxJSONTYPE_STRING, "\"\xC3\xA9\xE2\x82\xAC\""},
                    Row{R"("\ud83d\ude00")", wxJSONTYPE_STRING, "\"\xF0\x9F\x98\x80\""},
                    Row{"\"\xC3\xA9\\n\"", wxJSONTYPE_STRING, "\"\xC3\xA9\\n\""},
                    Row{R"({"k\"\n":"v"})", wxJSONTYPE_OBJECT, R"({"k\"\n":"v"})"},
                    Row{"[\"plain\",\"\xC3\xA9\",\"plain\"]", wxJSONTYPE_ARRAY,
                        "[\"plain\",\"\xC3\xA9\",\"plain\"]"}));

// --- Rejects ---

class JsonTextReject : public testing::TestWithParam<std::string> {};

TEST_P(JsonTextReject, GivesAnInvalidValue) {
  EXPECT_EQ(JsonFromUtf8(GetParam()).GetType(), wxJSONTYPE_INVALID);
}

INSTANTIATE_TEST_SUITE_P(Texts, JsonTextReject,
                         testing::Values("", " ", "nul", "True", "NaN", "Infinity", "01", "+1",
                                         "1.", ".5", "1e", "0x10", "1e400", "-1e400", "[1,]", "[1",
                                         "]", "[1 2]", "{\"a\"}", "{\"a\":}", "{\"a\":1,}", "{a:1}",
                                         "{1:1}", "{\"a\":1", "'a'", "\"a", "1 2", "[] []", "{}x",
                                         "// c\n1", "/* c */ 1", "\"a\nb\"", "\"\\x41\"",
                                         "\"\\u12\""));

INSTANTIATE_TEST_SUITE_P(NoUnicode, JsonTextReject,
                         testing::Values(R"("\ud800")", R"("\udc00")", R"("\ud800x")",
                                         R"("\ud800\ud800")", "\"\xED\xA0\x80\"", "\"\xFF\"",
                                         "\"\xC3\"", "\"\xC0\x80\"", "\"\xF4\x90\x80\x80\"",
                                         "\"\x80\"", "{\"\xFF\":1}", "\xEF\xBB", "\xFF"));

// A zero byte is no end of the text that would hide what follows it.
INSTANTIATE_TEST_SUITE_P(ZeroBytes, JsonTextReject,
                         testing::Values(std::string("1\0", 2), std::string("1\0x", 3),
                                         std::string("[1]\0[2]", 7), std::string("\0", 1),
                                         std::string("\"a\0b\"", 5)));

TEST(JsonText, WideTextThatIsNoUnicodeIsReadWithReplacements) {
  wchar_t const text[] = {L'"', wchar_t{0xD800}, L'"', 0};
  EXPECT_EQ(JsonFromText(text).AsString(), wxString(L"\uFFFD"));
  wchar_t const beyond[] = {L'"', static_cast<wchar_t>(0x110000), L'"', 0};
  EXPECT_EQ(JsonFromText(beyond).AsString(), wxString(L"\uFFFD"));
  wchar_t const bare[] = {L'1', wchar_t{0xD800}, 0};
  EXPECT_FALSE(JsonFromText(bare).IsValid());
  EXPECT_FALSE(JsonFromText(wxString(L"1\0", 2)).IsValid());
  EXPECT_FALSE(JsonFromText(wxString()).IsValid());
}

// --- Limits ---

TEST(JsonText, Nests128LevelsAndNoMore) {
  std::string const deepest = std::string(128, '[') + std::string(128, ']');
  EXPECT_EQ(JsonToUtf8(JsonFromUtf8(deepest)), deepest);
  EXPECT_FALSE(JsonFromUtf8(std::string(129, '[') + std::string(129, ']')).IsValid());
  std::string objects = "1";
  for (int level = 0; level < 128; ++level) objects = "{\"a\":" + objects + "}";
  EXPECT_EQ(JsonToUtf8(JsonFromUtf8(objects)), objects);
  EXPECT_FALSE(JsonFromUtf8("[" + objects + "]").IsValid());
}

TEST(JsonText, AMillionBracketsAreRefusedWithoutHarm) {
  EXPECT_FALSE(JsonFromUtf8(std::string(1000000, '[')).IsValid());
  EXPECT_FALSE(JsonFromUtf8(std::string(1000000, ']')).IsValid());
  std::string objects;
  for (int i = 0; i < 1000000; ++i) objects += "{\"a\":";
  EXPECT_FALSE(JsonFromUtf8(objects).IsValid());
}

// Comparing each name with all before it would take five thousand million comparisons.
TEST(JsonText, AHundredThousandMembersAreReadWrittenAndCompared) {
  std::string text;
  std::string backward;
  for (int i = 0; i < 100000; ++i) {
    text += (i == 0 ? "" : ",") + Member(i);
    backward += (i == 0 ? "" : ",") + Member(99999 - i);
  }
  wxJSONValue const value = JsonFromUtf8("{" + text + "}");
  EXPECT_EQ(value.Size(), 100000);
  EXPECT_EQ(value.ItemAt("m99999").AsInt(), 99999);
  EXPECT_EQ(JsonToUtf8(value), "{" + text + "}");
  EXPECT_TRUE(value.IsSameAs(JsonFromUtf8("{" + backward + "}")));
}

TEST(JsonText, DuplicatesCountOnceHoweverMany) {
  std::string text = "{\"first\":0";
  for (int i = 0; i < 100000; ++i) text += ",\"a\":" + std::to_string(i);
  EXPECT_EQ(JsonToUtf8(JsonFromUtf8(text + "}")), R"({"first":0,"a":99999})");
}

TEST(JsonText, LongStringIsKept) {
  std::string const text = "\"" + std::string(3000000, 'x') + "\"";
  EXPECT_EQ(JsonToUtf8(JsonFromUtf8(text)), text);
}

// --- Doubles ---

TEST(JsonText, DoublesSurviveBitForBit) {
  double const values[] = {0.0,
                           -0.0,
                           1.0,
                           -1.0,
                           0.1,
                           1.0 / 3,
                           2.0 / 3,
                           1e15,
                           1e16,
                           1e17,
                           1e21,
                           1e22,
                           1e23,
                           123456789012345680.0,
                           DBL_MAX,
                           -DBL_MAX,
                           DBL_MIN,
                           std::numeric_limits<double>::denorm_min(),
                           9007199254740993.0,
                           9223372036854775808.0,
                           4.35,
                           0.000001,
                           5e-7,
                           M_PI};
  for (double const value : values) {
    wxJSONValue const again = JsonFromUtf8(JsonToUtf8(value));
    EXPECT_TRUE(again.IsDouble()) << value;
    EXPECT_EQ(BitsOf(again.AsDouble()), BitsOf(value)) << value;
    EXPECT_EQ(BitsOf(JsonFromText(JsonToText(value)).AsDouble()), BitsOf(value)) << value;
  }
}

TEST(JsonText, DoublesOfEveryMagnitudeSurviveBitForBit) {
  std::uint64_t bits = 0x123456789ABCDEFULL;
  for (int i = 0; i < 20000; ++i) {
    bits = bits * 6364136223846793005ULL + 1442695040888963407ULL;
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isfinite(value)) continue;
    ASSERT_EQ(BitsOf(JsonFromUtf8(JsonToUtf8(value)).AsDouble()), bits);
  }
}

TEST(JsonText, WhatJsonLacksIsWrittenAsNull) {
  wxJSONValue array;
  array.Append(std::nan(""));
  array.Append(std::numeric_limits<double>::infinity());
  array.Append(-std::numeric_limits<double>::infinity());
  array.Append(wxJSONValue(wxJSONTYPE_INVALID));
  EXPECT_EQ(JsonToUtf8(array), "[null,null,null,null]");
}
