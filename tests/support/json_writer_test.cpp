#include "support/json_writer.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarvo {
namespace {

TEST(JsonWriter, ValuesOfEveryKindInsideEachOther) {
  JsonWriter json;
  json.BeginObject().Name("text").String("a").Name("list").BeginArray();
  json.Number(1).Number(-9007199254740993).BeginObject().EndObject().BeginArray().EndArray();
  json.EndArray().Name("yes").Truth(true).Name("no").Truth(false).Name("none").Null();
  json.Name("share").Decimal(0.25).EndObject();
  EXPECT_EQ(json.Text(), R"({"text":"a","list":[1,-9007199254740993,{},[]],"yes":true,"no":false,)"
                         R"("none":null,"share":0.25})");
}

TEST(JsonWriter, WhatIsNoNumberIsNull) {
  JsonWriter json;
  json.BeginArray().Decimal(std::numeric_limits<double>::infinity());
  json.Decimal(std::numeric_limits<double>::quiet_NaN()).Decimal(1e300).EndArray();
  EXPECT_EQ(json.Text(), "[null,null,1e+300]");
}

std::string Written(std::string_view text) {
  JsonWriter json;
  json.String(text);
  return json.Text();
}

TEST(JsonWriter, TextsAreEscaped) {
  EXPECT_EQ(Written("C:\\srv \"x\"\r\n\t/"), R"("C:\\srv \"x\"\u000d\u000a\u0009/")");
  EXPECT_EQ(Written(std::string_view("\0\x1f\x7f", 3)), "\"\\u0000\\u001f\x7f\"");
  EXPECT_EQ(Written("\xC3\xB1 \xE2\x82\xAC \xF0\x9F\x98\x80"),
            "\"\xC3\xB1 \xE2\x82\xAC \xF0\x9F\x98\x80\"");
}

TEST(JsonWriter, NamesAreEscapedToo) {
  JsonWriter json;
  json.BeginObject().Name("a\"b").Null().EndObject();
  EXPECT_EQ(json.Text(), R"({"a\"b":null})");
}

TEST(JsonWriter, BytesThatAreNoCharacterAreReplaced) {
  const std::string mark = "\xEF\xBF\xBD";
  EXPECT_EQ(Written("a\xF1"
                    "b"),
            "\"a" + mark + "b\"");
  EXPECT_EQ(Written("\xE2\x82"), "\"" + mark + mark + "\"");
  EXPECT_EQ(Written("\xC0\x80"), "\"" + mark + mark + "\"") << "an overlong form";
  EXPECT_EQ(Written("\xED\xA0\x80"), "\"" + mark + mark + mark + "\"") << "half of a pair";
  EXPECT_EQ(Written("\xF4\x90\x80\x80"), "\"" + mark + mark + mark + mark + "\"");
  EXPECT_EQ(Written("\x80\xFF"), "\"" + mark + mark + "\"");
}

TEST(JsonWriter, TheLengthOfACharacterByItsForm) {
  struct Row {
    std::string text;
    std::size_t length;
  };
  const Row rows[] = {{"", 0},
                      {"a", 1},
                      {"\x7F", 1},
                      {"\x80", 0},
                      {"\xC1\xBF", 0},
                      {"\xC2\x80", 2},
                      {"\xDF\xBF", 2},
                      {"\xDF\xC0", 0},
                      {"\xE0\x9F\xBF", 0},
                      {"\xE0\xA0\x80", 3},
                      {"\xED\x9F\xBF", 3},
                      {"\xEE\x80\x80", 3},
                      {"\xEE\x80\x7F", 0},
                      {"\xF0\x8F\xBF\xBF", 0},
                      {"\xF0\x90\x80\x80", 4},
                      {"\xF4\x8F\xBF\xBF", 4},
                      {"\xF4\x8F\xBF\xC0", 0},
                      {"\xF5\x80\x80\x80", 0}};
  for (const Row& row : rows) {
    EXPECT_EQ(Utf8CharacterLength(row.text), row.length) << ::testing::PrintToString(row.text);
  }
}

}  // namespace
}  // namespace tarvo
