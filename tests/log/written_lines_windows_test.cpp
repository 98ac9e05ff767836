/// What tells whole lines from damaged ones must see the damage.

#include <gtest/gtest.h>

#include "log/WriterLedger.h"
#include "log/WrittenLines.h"

namespace {

std::string line(const std::wstring& writer, std::uint32_t number) {
  const std::wstring units = L"2024-03-07 09:05:03.042 [DBG] [write] [" + std::to_wstring(number) + L"] " +
                             logwriter::message(writer, number) + L"\r\n";
  return {reinterpret_cast<const char*>(units.data()), units.size() * sizeof(wchar_t)};
}

WrittenLines found(const std::string& bytes) {
  WrittenLines lines;
  lines.add(bytes);
  return lines;
}

TEST(WrittenLines, WholeLinesAreTheirWritersInOrder) {
  const auto lines = found(line(L"W1", 1) + line(L"W2", 1) + line(L"W1", 12));
  EXPECT_EQ(lines.numbers.at(L"W1"), (std::vector<std::uint32_t>{1, 12}));
  EXPECT_EQ(lines.numbers.at(L"W2"), (std::vector<std::uint32_t>{1}));
  EXPECT_TRUE(lines.damaged.empty());
}

TEST(WrittenLines, EveryBeginningOfALineIsCutAndTheNextLineIsWhole) {
  const std::string whole = line(L"W1", 7);
  for (std::size_t length = 1; length < whole.size(); ++length) {
    const std::string cut = whole.substr(0, length);
    const auto lines = found(cut + line(L"W2", 8));
    EXPECT_EQ(lines.damaged, std::vector<std::string>{cut});
    EXPECT_EQ(lines.numbers.at(L"W2"), std::vector<std::uint32_t>{8});
    EXPECT_TRUE(WrittenLines::isBeginning(cut, L"W1", 7)) << length;
  }
  EXPECT_FALSE(WrittenLines::isBeginning(whole, L"W1", 7));
}

TEST(WrittenLines, LineOverAnotherIsDamage) {
  const std::string under = line(L"W1", 8);
  std::string bytes = under;
  bytes.replace(0, line(L"W2", 1).size(), line(L"W2", 1));
  const auto lines = found(bytes);
  EXPECT_EQ(lines.numbers.count(L"W1"), 0U);
  ASSERT_EQ(lines.damaged.size(), 1U);
  EXPECT_FALSE(WrittenLines::isBeginning(lines.damaged.front(), L"W1", 8));
}

TEST(WrittenLines, ChangedByteIsDamageWhereverItIs) {
  const std::string whole = line(L"W1", 7);
  for (std::size_t at = 0; at < whole.size(); ++at) {
    std::string bytes = whole;
    bytes[at] = '~';
    EXPECT_FALSE(found(bytes).damaged.empty()) << at;
  }
}

}  // namespace
