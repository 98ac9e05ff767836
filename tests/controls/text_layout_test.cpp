#include "simulator/controls/TextLayout.h"

#include <gtest/gtest.h>

namespace controls {
namespace {

// As if every character were as wide as the other.
Fits upTo(std::size_t count) {
  return [count](const std::wstring& piece) { return piece.size() <= count; };
}

using Lines = std::vector<std::wstring>;

TEST(Shortened, LeavesWhatFits) { EXPECT_EQ(shortened(L"printer", upTo(7)), L"printer"); }

TEST(Shortened, EndsWithDots) {
  EXPECT_EQ(shortened(L"printers", upTo(7)), L"prin...");
  EXPECT_EQ(shortened(L"my printer", upTo(6)), L"my...") << "no blank before the dots";
}

TEST(Shortened, IsDotsWhereNotEvenTheyFit) { EXPECT_EQ(shortened(L"printer", upTo(1)), L"..."); }

struct Wrapping {
  const wchar_t* name;
  std::wstring text;
  int lines;
  Lines expected;
};

const Wrapping kWrappings[] = {
    {L"nothing", L"", 3, {}},
    {L"one line", L"short", 3, {L"short"}},
    {L"at blanks", L"one two three", 3, {L"one two", L"three"}},
    {L"at a blank right behind the line", L"one two3 four", 3, {L"one two3", L"four"}},
    {L"several blanks", L"one two    three", 3, {L"one two", L"three"}},
    {L"where the text says so", L"one\ntwo\r\nthree", 3, {L"one", L"two", L"three"}},
    {L"an empty line", L"one\n\ntwo", 3, {L"one", L"", L"two"}},
    {L"blanks before the text's own end of line", L"one two    \nthree", 3, {L"one two", L"three"}},
    {L"an end of line at the end", L"one\n", 3, {L"one"}},
    {L"a word longer than a line", L"abcdefghijkl", 3, {L"abcdefgh", L"ijkl"}},
    {L"a long word after a short one", L"a bcdefghijklm", 3, {L"a", L"bcdefghi", L"jklm"}},
    {L"more than there is room for", L"one two three four five", 2, {L"one two", L"three..."}},
    {L"the last line is full", L"one two three456 seven", 2, {L"one two", L"three..."}},
    {L"more lines than there is room for", L"a\nb\nc", 2, {L"a", L"b..."}},
    {L"one line only", L"one two three", 1, {L"one t..."}},
    {L"a blank before a long word", L" abcdefghijk", 3, {L" abcdefg", L"hijk"}},
    {L"only blanks", L"          ", 2, {L""}},
};

TEST(Wrapped, BreaksTheText) {
  for (const auto& [name, text, count, expected] : kWrappings) {
    EXPECT_EQ(wrapped(text, count, upTo(8)), expected) << testing::PrintToString(std::wstring(name));
  }
}

TEST(Wrapped, TakesACharacterALineWhereNoneFits) {
  EXPECT_EQ(wrapped(L"ab", 3, [](const std::wstring& piece) { return piece.empty(); }), (Lines{L"a", L"b"}));
}

TEST(Wrapped, KeepsTheTwoUnitsOfACharacterTogether) {
  const std::wstring pair{static_cast<wchar_t>(0xd83d), static_cast<wchar_t>(0xdda8)};
  EXPECT_EQ(wrapped(L"abc" + pair + L"d", 3, upTo(4)), (Lines{L"abc", pair + L"d"}));
  EXPECT_EQ(wrapped(pair + pair, 3, [](const std::wstring& piece) { return piece.empty(); }), (Lines{pair, pair}));
}

TEST(ShortenedPath, LeavesWhatFits) { EXPECT_EQ(shortenedPath(L"C:\\a\\b.bin", upTo(10)), L"C:\\a\\b.bin"); }

TEST(ShortenedPath, LeavesOutTheMiddleNeverTheName) {
  EXPECT_EQ(shortenedPath(L"C:\\users\\me\\firmware.bin", upTo(20)), L"C:\\u...\\firmware.bin");
  EXPECT_EQ(shortenedPath(L"C:\\users\\me\\firmware.bin", upTo(16)), L"...\\firmware.bin");
  EXPECT_EQ(shortenedPath(L"C:/users/me/firmware.bin", upTo(20)), L"C:/u.../firmware.bin");
}

TEST(ShortenedPath, NameThatDoesNotFitWithDotsStandsAlone) {
  EXPECT_EQ(shortenedPath(L"C:\\users\\firmware.bin", upTo(12)), L"firmware.bin");
  EXPECT_EQ(shortenedPath(L"C:\\users\\firmware.bin", upTo(9)), L"firmwa...");
  EXPECT_EQ(shortenedPath(L"firmware.bin", upTo(9)), L"firmwa...");
}

}  // namespace
}  // namespace controls
