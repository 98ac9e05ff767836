#include "common/Json.h"

#include <gtest/gtest.h>

#include <limits>

#include "common/JsonText.h"

namespace {

using examples::Fields;
using examples::toJson;
using examples::Value;
using examples::Values;
using namespace std::string_literals;

std::wstring jsonOf(const std::wstring& text) { return toJson({text}); }

TEST(JsonTest, EveryKindOfValue) {
  EXPECT_EQ(toJson({true}), L"true");
  EXPECT_EQ(toJson({false}), L"false");
  EXPECT_EQ(toJson({std::numeric_limits<std::int64_t>::min()}), L"-9223372036854775808");
  EXPECT_EQ(toJson({Values{}}), L"[]");
  EXPECT_EQ(toJson({Fields{}}), L"{}");
  EXPECT_EQ(toJson({Values{examples::integer(1), examples::integer(2)}}), L"[1,2]");
  EXPECT_EQ(toJson({Fields{examples::text(L"a", L"x"), examples::number(L"b", 2), examples::yesOrNo(L"c", true)}}),
            LR"({"a":"x","b":2,"c":true})");
  EXPECT_EQ(toJson({Fields{{L"list", {Values{{Fields{examples::number(L"n", 1)}}, {Fields{}}}}}}}),
            LR"({"list":[{"n":1},{}]})");
}

TEST(JsonTest, NamesAreInCamelCase) {
  EXPECT_EQ(toJson({Fields{examples::number(L"sleep time", 1), examples::number(L"DHCP", 2), examples::number(L"DNS server", 3),
                           examples::number(L"version text 1", 4)}}),
            LR"({"sleepTime":1,"dhcp":2,"dnsServer":3,"versionText1":4})");
}

TEST(JsonTest, QuotesAndBackslashesAreEscaped) { EXPECT_EQ(jsonOf(L"a\"b\\c/d"), LR"("a\"b\\c/d")"); }

TEST(JsonTest, WhatATerminalWouldActUponIsEscaped) {
  EXPECT_EQ(jsonOf(L"\0\x01\n\r\t\x1b[2J\x7f\u009b\u202e\ufeff"s),
            LR"("\u0000\u0001\u000a\u000d\u0009\u001b[2J\u007f\u009b\u202e\ufeff")");
}

TEST(JsonTest, OtherCharactersStayAsTheyAre) { EXPECT_EQ(jsonOf(L"%s%n \u00e9\u5370"), L"\"%s%n \u00e9\u5370\""); }

TEST(JsonTest, PairStaysAndHalfOfAPairIsReplaced) {
  const auto pair = L""s + wchar_t{0xd83d} + wchar_t{0xdda8};
  EXPECT_EQ(jsonOf(pair), L"\"" + pair + L"\"");
  EXPECT_EQ(jsonOf(L"a"s + wchar_t{0xd83d}), LR"("a\ufffd")");
  EXPECT_EQ(jsonOf(L""s + wchar_t{0xdda8} + wchar_t{0xd83d} + L"b"), LR"("\ufffd\ufffdb")");
  EXPECT_EQ(jsonOf(L""s + wchar_t{0xd83d} + L"\""), LR"("\ufffd\"")");
}

TEST(JsonTest, NameIsEscapedToo) { EXPECT_EQ(toJson({Fields{examples::number(L"a\"", 1)}}), LR"({"a\"":1})"); }

TEST(JsonTest, NothingThatATextHoldsBreaksIt) {
  std::wstring hostile;
  for (wchar_t unit = 0; unit < 0x300; ++unit) hostile += unit;
  const Fields object{{hostile, {Values{{hostile}, {Fields{examples::text(L"", hostile)}}}}}};
  std::string bytes;
  for (const auto unit : toJson({object})) bytes += unit < 0x80 ? static_cast<char>(unit) : '?';
  EXPECT_TRUE(consoletest::JsonText::isValid(bytes)) << bytes;
}

TEST(JsonTextTest, TakesJsonAndNothingElse) {
  for (const auto* good : {"{}", "[]", "\"\"", "0", "-12", "true", "[1,[2,{}],\"\\u00ff\\n\"]", "{\"a\":{\"b\":false}}"}) {
    EXPECT_TRUE(consoletest::JsonText::isValid(good)) << good;
  }
  for (const auto* bad : {"", "{", "{}x", "[1,]", "{\"a\"}", "{\"a\":}", "{a:1}", "\"", "\"\n\"", "\"\\x\"", "\"\\u00g0\"",
                          "01", "-", "{\"a\":1,}", "\"\\", "tru"}) {
    EXPECT_FALSE(consoletest::JsonText::isValid(bad)) << bad;
  }
}

}  // namespace
