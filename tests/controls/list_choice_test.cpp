#include "simulator/controls/ListChoice.h"

#include <gtest/gtest.h>

#include <cwctype>

namespace {

using controls::entryAfter;
using controls::firstShown;
using controls::kNoEntry;
using namespace std::chrono_literals;

TEST(ListChoice, StepsStayInTheList) {
  EXPECT_EQ(entryAfter(1, 1, 3), 2);
  EXPECT_EQ(entryAfter(2, 1, 3), 2);
  EXPECT_EQ(entryAfter(0, -1, 3), 0);
  EXPECT_EQ(entryAfter(1, 100, 3), 2);
  EXPECT_EQ(entryAfter(kNoEntry, 1, 3), 0);
  EXPECT_EQ(entryAfter(kNoEntry, -1, 3), 2);
  EXPECT_EQ(entryAfter(kNoEntry, 100, 3), 2);
  EXPECT_EQ(entryAfter(kNoEntry, -100, 3), 0);
  EXPECT_EQ(entryAfter(kNoEntry, 1, 0), kNoEntry);
}

TEST(ListChoice, EntryIsBroughtIntoSight) {
  EXPECT_EQ(firstShown(0, 5, 8, 20), 0);
  EXPECT_EQ(firstShown(0, 8, 8, 20), 1);
  EXPECT_EQ(firstShown(10, 3, 8, 20), 3);
  EXPECT_EQ(firstShown(0, 19, 8, 20), 12);
  EXPECT_EQ(firstShown(15, kNoEntry, 8, 20), 12);
  EXPECT_EQ(firstShown(3, 1, 8, 4), 0);
}

class LetterSearch : public testing::Test {
 protected:
  std::int32_t type(wchar_t letter, std::int32_t current) { return search.type(letter, now += 100ms, entries, current); }

  const std::vector<std::wstring> entries{L"Plain", L"thick", L"Thin", L"Envelope", L"Tray 2"};
  controls::LetterSearch search{[](wchar_t unit) { return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(unit))); }};
  std::chrono::milliseconds now = 0ms;
};

TEST_F(LetterSearch, FirstLetterChoosesInSmallLettersAndGreat) {
  EXPECT_EQ(type(L'E', kNoEntry), 3);
  now += 1s;
  EXPECT_EQ(type(L'p', 3), 0);
}

TEST_F(LetterSearch, FirstEntryIsFoundWhenNoneIsChosen) { EXPECT_EQ(type(L'p', kNoEntry), 0); }

TEST_F(LetterSearch, SameLetterGoesFromEntryToEntryAndRound) {
  EXPECT_EQ(type(L't', 0), 1);
  EXPECT_EQ(type(L't', 1), 2);
  EXPECT_EQ(type(L't', 2), 4);
  EXPECT_EQ(type(L't', 4), 1);
}

TEST_F(LetterSearch, FurtherLettersNarrow) {
  EXPECT_EQ(type(L't', 0), 1);
  EXPECT_EQ(type(L'h', 1), 1);
  EXPECT_EQ(type(L'i', 1), 1);
  EXPECT_EQ(type(L'n', 1), 2);
}

TEST_F(LetterSearch, BlankIsALetterOnceTheSearchIsUnderWay) {
  std::int32_t current = 0;
  for (const wchar_t letter : std::wstring(L"tray 2")) current = type(letter, current);
  EXPECT_EQ(current, 4);
}

TEST_F(LetterSearch, PauseBeginsAnew) {
  EXPECT_EQ(type(L't', 0), 1);
  now += 899ms;
  EXPECT_TRUE(search.isUnderWay(now + 100ms));
  EXPECT_FALSE(search.isUnderWay(now + 101ms));
  now += 1s;
  EXPECT_EQ(type(L'e', 1), 3);
}

TEST_F(LetterSearch, NothingFoundChangesNothing) {
  EXPECT_EQ(type(L'x', 2), 2);
  EXPECT_EQ(type(L'x', kNoEntry), kNoEntry);
  EXPECT_EQ(search.type(L'x', now, {}, kNoEntry), kNoEntry);
}

TEST_F(LetterSearch, OnlyEntryThatBeginsSoStays) { EXPECT_EQ(type(L'e', 3), 3); }

}  // namespace
