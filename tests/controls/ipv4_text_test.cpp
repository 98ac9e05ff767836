#include "simulator/controls/Ipv4Text.h"

#include <gtest/gtest.h>

namespace {

TEST(Ipv4Text, FourNumbersWithDotsAreAnAddress) {
  for (const wchar_t* text : {L"192.168.1.20", L"0.0.0.0", L"255.255.255.255", L"192.168.001.020", L"1.2.3.4"})
    EXPECT_TRUE(controls::isIpv4(text)) << text;
}

TEST(Ipv4Text, AllElseIsNone) {
  for (const wchar_t* text :
       {L"",         L".",         L"...",       L"1",         L"1.2.3",       L"1.2.3.",     L".1.2.3",           L"1..2.3",
        L"1.2.3.4.", L"1.2.3.4.5", L"256.1.1.1", L"1.1.1.256", L"1.1.1.999",   L"0001.1.1.1", L"1.1.1.4294967297", L" 1.2.3.4",
        L"1.2.3.4 ", L"1.2.-3.4",  L"1.2.3.x",   L"1,2,3,4",   L"1.2.3.\x0664"})
    EXPECT_FALSE(controls::isIpv4(text)) << text;
}

}  // namespace
