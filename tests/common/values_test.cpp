#include "common/Values.h"

#include <gtest/gtest.h>

namespace {

using examples::OptionsError;
using Address = AppPrinterSdk::Ipv4Address;

TEST(ValuesTest, NumbersWithinTheirLimitsAreTaken) {
  EXPECT_EQ(examples::parseNumber(L"n", L"0", 0, 255), 0);
  EXPECT_EQ(examples::parseNumber(L"n", L"255", 0, 255), 255);
  EXPECT_EQ(examples::parseNumber(L"n", L"007", 0, 255), 7);
  EXPECT_EQ(examples::parseNumber(L"n", L"-2147483648", INT32_MIN, INT32_MAX), INT32_MIN);
  EXPECT_EQ(examples::parseNumber(L"n", L"2147483647", INT32_MIN, INT32_MAX), INT32_MAX);
}

TEST(ValuesTest, OtherNumbersAreMistakes) {
  for (const auto* text : {L"", L"-", L"-1", L"256", L"+1", L" 1", L"1 ", L"1.5", L"0x10", L"--1", L"1-", L"\u0661",
                           L"99999999999999999999", L"4294967297"}) {
    EXPECT_THROW(examples::parseNumber(L"n", text, 0, 255), OptionsError) << testing::PrintToString(std::wstring(text));
  }
}

TEST(ValuesTest, MistakeTellsWhatWouldBeRight) {
  try {
    examples::parseNumber(L"paper-alarm", L"3\u00e9\n", 0, 255);
    FAIL() << "taken";
  } catch (const OptionsError& error) {
    EXPECT_STREQ(error.what(), "paper-alarm is \"3??\"; it takes a whole number from 0 to 255");
  }
}

TEST(ValuesTest, YesAndNo) {
  EXPECT_TRUE(examples::parseYesOrNo(L"--dhcp", L"yes"));
  EXPECT_FALSE(examples::parseYesOrNo(L"--dhcp", L"no"));
  for (const auto* text : {L"", L"Yes", L"1", L"yes "}) {
    EXPECT_THROW(examples::parseYesOrNo(L"--dhcp", text), OptionsError) << testing::PrintToString(std::wstring(text));
  }
}

TEST(ValuesTest, AddressesAreFourNumbers) {
  EXPECT_EQ(examples::parseAddress(L"a", L"192.0.2.10"), (Address{192, 0, 2, 10}));
  EXPECT_EQ(examples::parseAddress(L"a", L"255.255.255.255"), (Address{255, 255, 255, 255}));
  EXPECT_EQ(examples::parseAddress(L"a", L"0.10.0.0"), (Address{0, 10, 0, 0}));
  EXPECT_EQ(examples::toText({192, 0, 2, 10}), L"192.0.2.10");
  EXPECT_EQ(examples::toText({}), L"0.0.0.0");
}

TEST(ValuesTest, OtherAddressesAreMistakes) {
  for (const auto* text : {L"", L".", L"1.2.3", L"1.2.3.", L".1.2.3", L"1..2.3", L"1.2.3.4.5", L"1.2.3.256", L"1.2.3.-4",
                           L"-0.2.3.4", L"1.2.3.4 ", L"a.b.c.d", L"1,2,3,4", L"::1", L"010.0.0.1", L"1.2.3.00"}) {
    EXPECT_THROW(examples::parseAddress(L"a", text), OptionsError) << testing::PrintToString(std::wstring(text));
  }
}

}  // namespace
