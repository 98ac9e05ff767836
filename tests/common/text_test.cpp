#include "common/Text.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;

TEST(TextTest, CharactersThatWouldSteerTheTerminalAreReplaced) {
  EXPECT_EQ(examples::printable(L"a\0b\r\n\t\x1b[2J\x7f\u0085\u009b"s), L"a?b????[2J???");
  EXPECT_EQ(examples::printable(L"\u200b\u202e\u2028\u2066\ufeff"), L"?????");
  EXPECT_EQ(examples::printable(L"\u061b\u061c\u061d\ufff8\ufff9\ufffa\ufffb\ufffc"), L"\u061b?\u061d\ufff8???\ufffc");
  EXPECT_EQ(examples::printable(L"%s%n \u00a0\u00e9\u5370~"), L"%s%n \u00a0\u00e9\u5370~");
}

TEST(TextTest, CutEndsInATilde) {
  EXPECT_EQ(examples::cut(L"abc", 3), L"abc");
  EXPECT_EQ(examples::cut(L"abcd", 3), L"ab~");
  EXPECT_EQ(examples::cut(L"abcd", 1), L"~");
}

TEST(TextTest, CutDoesNotSplitACharacterOfTwoUnits) {
  EXPECT_EQ(examples::cut(L"ab"s + wchar_t{0xd83d} + wchar_t{0xdda8} + L"c", 4), L"ab~");
}

TEST(TextTest, ShownIsCutAndPrintable) { EXPECT_EQ(examples::shown(L"a\nbcd", 4), L"a?b~"); }

TEST(TextTest, SecondsHaveOneDigitThatIsNotRounded) {
  EXPECT_EQ(examples::secondsText(0ms), L"0.0 s");
  EXPECT_EQ(examples::secondsText(12399ms), L"12.3 s");
}

TEST(TextTest, ErrorLinesArePlain) { EXPECT_EQ(examples::plain(L"a b\x1f\x7f\u00e9\u5370~"), "a b????~"); }

TEST(TextTest, TextOfFixedSizeEndsAtItsFirstZeroOrItsEnd) {
  EXPECT_EQ(examples::textOf(std::array<wchar_t, 4>{L'a', L'b', L'\0', L'c'}), L"ab");
  EXPECT_EQ(examples::textOf(std::array<wchar_t, 3>{L'a', L'b', L'c'}), L"abc");
  EXPECT_EQ(examples::textOf(std::array<wchar_t, 3>{}), L"");
}

}  // namespace
