#include <algorithm>
#include <iostream>

#include "log/LogWritersTest.h"

using logwriter::kNotOpened;
using logwriter::kShort;
using logwriter::kTimedOut;

namespace {

constexpr DWORD kWaitLimitMs = 2000;             // of the log
constexpr std::uint64_t kLongestLineMs = 20000;  // that, and room for a machine that does something else
constexpr int kMostRounds = 3;

void expectBoundedWaits(const LogWriter& writer) {
  const auto& ledger = writer.ledger();
  EXPECT_LE(ledger.mostWaits, 1U);
  EXPECT_LE(ledger.longestWaitMs, kWaitLimitMs);
  EXPECT_LE(ledger.longestLineMs, kLongestLineMs);
}

}  // namespace

LineAccount& LineAccount::operator+=(const LineAccount& other) {
  whole += other.whole;
  timedOut += other.timedOut;
  notOpened += other.notOpened;
  shortWrites += other.shortWrites;
  inHand += other.inHand;
  cut += other.cut;
  lost += other.lost;
  damaged += other.damaged;
  return *this;
}

std::ostream& operator<<(std::ostream& out, const LineAccount& account) {
  return out << account.whole << " lines whole, " << account.timedOut << " after a wait that timed out, " << account.lost
             << " lost to another, " << account.damaged << " places damaged, " << account.notOpened << " not opened, "
             << account.shortWrites << " short, " << account.inHand << " whole and " << account.cut << " cut beside these";
}

void LogWritersTest::SetUp() {
  ASSERT_NO_FATAL_FAILURE(LogOnWindows::SetUp());
  switchOn();  // keeps the semaphore in existence
}

void LogWritersTest::TearDown() {
  for (auto* writer : living()) EXPECT_EQ(writer->end(), 0U);
  for (const auto& writer : m_writers) expectBoundedWaits(writer);
}

void LogWritersTest::removeLogFiles() const {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
    if (entry.path().extension() == L".log") files.push_back(entry.path());
  }
  for (const auto& file : files) std::filesystem::remove(file);
}

void LogWritersTest::repeatWhileDisturbed(const std::function<void(bool& disturbed)>& round) {
  bool disturbed = true;
  for (int rounds = 0; rounds < kMostRounds && disturbed; ++rounds) {
    removeLogFiles();
    disturbed = false;
    ASSERT_NO_FATAL_FAILURE(round(disturbed));
    if (disturbed) std::cout << "a wait timed out that should not\n";
  }
  EXPECT_FALSE(disturbed) << "in each round: nothing is proven";
}

void LogWritersTest::startUpTo(std::size_t count) {
  while (living().size() < count) m_writers.emplace_back(L"W" + std::to_wstring(++m_started));
  ASSERT_TRUE(waitUntilAllRest());
}

std::vector<LogWriter*> LogWritersTest::living() {
  std::vector<LogWriter*> writers;
  for (auto& writer : m_writers) {
    if (writer.isAlive()) writers.push_back(&writer);
  }
  return writers;
}

bool LogWritersTest::waitUntil(const std::function<bool()>& condition) {
  const ULONGLONG deadline = ::GetTickCount64() + logwriter::kDeadlineMs;
  while (!condition()) {
    const ULONGLONG now = ::GetTickCount64();
    if (now >= deadline) return false;
    ::WaitForSingleObject(m_progress.get(), static_cast<DWORD>(deadline - now));
  }
  return true;
}

void LogWritersTest::letWrite() {
  for (auto* writer : living()) writer->write();
}

bool LogWritersTest::waitUntilAllRest() {
  const auto writers = living();
  for (auto* writer : writers) writer->rest();
  return waitUntil([&] { return std::ranges::all_of(writers, [](auto* writer) { return writer->ledger().resting.load(); }); });
}

bool LogWritersTest::waitForLines(std::uint32_t more) {
  for (auto* writer : living()) {
    const std::uint32_t wanted = writer->ledger().completed + more;
    if (!waitUntil([&] { return writer->ledger().completed >= wanted; })) return false;
  }
  return true;
}

bool LogWritersTest::writeAndRest(std::uint32_t lines) {
  letWrite();
  return waitForLines(lines) && waitUntilAllRest();
}

bool LogWritersTest::hasTimedOut() const {
  for (const auto& writer : m_writers) {
    const auto& ledger = writer.ledger();
    for (std::uint32_t number = writer.settled + 1; number <= ledger.begun; ++number) {
      if ((ledger.trouble[number] & kTimedOut) != 0) return true;
    }
  }
  return false;
}

bool LogWritersTest::noteCompletedLines() {
  std::vector<std::uint32_t> completed;
  for (const auto& writer : m_writers) completed.push_back(writer.ledger().completed);
  if (hasTimedOut()) return false;
  auto number = completed.begin();
  for (auto& writer : m_writers) writer.certain = *number++;
  return true;
}

void LogWritersTest::accountForWriter(const LogWriter& writer, const WrittenLines& lines, LineAccount& account) const {
  const auto& ledger = writer.ledger();
  const auto entry = lines.numbers.find(writer.name());
  const auto numbers = entry == lines.numbers.end() ? std::vector<std::uint32_t>() : entry->second;
  EXPECT_TRUE(std::ranges::adjacent_find(numbers, std::greater_equal()) == numbers.end()) << "a line twice, or out of order";
  auto next = numbers.begin();
  for (std::uint32_t number = writer.settled + 1; number <= ledger.completed; ++number) {
    const auto trouble = ledger.trouble[number].load();
    account.timedOut += (trouble & kTimedOut) != 0 ? 1 : 0;
    if (number <= writer.excused) continue;
    const bool written = (trouble & (kNotOpened | kShort)) == 0;
    const bool there = next != numbers.end() && *next == number;
    if (there) ++next;
    EXPECT_TRUE(written || !there) << "line " << number << " is there and cannot be";
    EXPECT_TRUE(there || !written || number > writer.certain) << "line " << number << " was there before all trouble";
    account.whole += there ? 1 : 0;
    account.notOpened += (trouble & kNotOpened) != 0 ? 1 : 0;
    account.shortWrites += (trouble & kShort) != 0 ? 1 : 0;
    account.lost += written && !there ? 1 : 0;
  }
  const bool inHand = next != numbers.end() && !writer.isAlive() && *next == ledger.begun;
  if (inHand) ++account.inHand, ++next;
  EXPECT_TRUE(next == numbers.end()) << "a line that nobody wrote: " << *next;
}

bool LogWritersTest::isCut(std::string_view stretch) const {
  return std::ranges::any_of(m_writers, [&](const LogWriter& writer) {
    const auto& ledger = writer.ledger();
    for (std::uint32_t number = writer.settled + 1; number <= ledger.begun; ++number) {
      const bool mayBeCut = number > ledger.completed || (ledger.trouble[number] & kShort) != 0;
      if (mayBeCut && WrittenLines::isBeginning(stretch, writer.name(), number)) return true;
    }
    return false;
  });
}

LineAccount LogWritersTest::account(const std::vector<std::string_view>& files) {
  WrittenLines lines;
  for (const auto& file : files) lines.add(file);
  LineAccount account;
  for (const auto& writer : m_writers) {
    accountForWriter(writer, lines, account);
    lines.numbers.erase(writer.name());
  }
  EXPECT_TRUE(lines.numbers.empty()) << "lines of nobody";
  for (const auto& stretch : lines.damaged) ++(isCut(stretch) ? account.cut : account.damaged);
  if (!hasTimedOut()) {
    EXPECT_EQ(account.lost, 0);
    EXPECT_EQ(account.damaged, 0);
  }
  settle();
  return account;
}

void LogWritersTest::settle() {
  for (const auto& writer : m_writers) expectBoundedWaits(writer);
  m_writers.remove_if([](const LogWriter& writer) { return !writer.isAlive(); });
  for (auto& writer : m_writers) writer.settled = writer.ledger().completed;
}

LineAccount LogWritersTest::accountForLogFile() {
  const std::string file = bytes();
  const auto result = account({file});
  std::filesystem::remove(kFolder / L"Corvane.log");
  return result;
}

bool LogWritersTest::semaphoreIsFree() const {
  if (::WaitForSingleObject(g_logSemaphore, 0) != WAIT_OBJECT_0) return false;
  return ::ReleaseSemaphore(g_logSemaphore, 1, nullptr) != 0;
}
