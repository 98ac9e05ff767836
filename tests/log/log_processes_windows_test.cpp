/// Several processes and one log.

#include <algorithm>
#include <iostream>
#include <map>
#include <optional>
#include <vector>

#include "log/LogCases.h"
#include "log/LogProcess.h"
#include "log/LogWindowsTest.h"
#include "support/ChildProcess.h"

namespace {

using support::ChildProcess;
using support::Handle;

struct Written {
  wchar_t writer;
  int line;
};

// "TIME [DBG] [write] [LINE] W LINE of COUNT, W." as a whole, or nothing.
std::optional<Written> parsed(const std::wstring& text, std::size_t timeUnits, int count) {
  constexpr std::wstring_view kHead = L"[DBG] [write] [";
  if (text.size() < timeUnits || text.compare(timeUnits, kHead.size(), kHead) != 0) return std::nullopt;
  const int line = static_cast<int>(std::wcstol(text.c_str() + timeUnits + kHead.size(), nullptr, 10));
  const std::wstring number = std::to_wstring(line);
  for (const wchar_t writer : {L'A', L'B'}) {
    const std::wstring name(1, writer);
    if (text.substr(timeUnits) ==
        std::wstring(kHead) + number + L"] " + name + L" " + number + L" of " + std::to_wstring(count) + L", " + name + L".") {
      return Written{writer, line};
    }
  }
  return std::nullopt;
}

/// What is in one or more log files, line by line.
struct Tally {
  std::map<wchar_t, std::vector<int>> lines;  // of each writer, in file order
  std::size_t filler = 0;
  std::vector<std::wstring> damaged;
};

class LogProcesses : public LogOnWindows {
 protected:
  static constexpr std::wstring_view kFiller = L"filler\r\n";

  void add(Tally& tally, const std::wstring& file, int count) const {
    const std::wstring units = text(file);
    for (std::size_t position = 0; position < units.size();) {
      const std::size_t end = std::min(units.find(L"\r\n", position), units.size());
      const std::wstring raw = units.substr(position, end - position);
      const auto written = parsed(raw, kTimeUnits, count);
      if (written) tally.lines[written->writer].push_back(written->line);
      if (raw == L"filler") ++tally.filler;
      if (!written && raw != L"filler") tally.damaged.push_back(raw);
      position = end + 2;
    }
  }

  const Handle start{::CreateEventW(nullptr, TRUE, FALSE, logprocess::kStartEvent)};
  const Handle held{::CreateEventW(nullptr, TRUE, FALSE, logprocess::kHeldEvent)};
};

// How many lines of both took so long that they may have been written without the semaphore.
std::optional<DWORD> waitForBoth(const ChildProcess& one, const ChildProcess& other) {
  const auto slowOne = one.wait();
  const auto slowOther = other.wait();
  if (!slowOne || !slowOther || *slowOne >= logprocess::kFailed || *slowOther >= logprocess::kFailed) return std::nullopt;
  return *slowOne + *slowOther;
}

std::vector<int> upTo(int count) {
  std::vector<int> numbers(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) numbers[static_cast<std::size_t>(i)] = i + 1;
  return numbers;
}

TEST_F(LogProcesses, TwoWritersLoseDoubleAndMixNoLineAcrossARotation) {
  constexpr int kLines = 10000;
  constexpr std::size_t kBytesBelow = 1600000;  // about half of what is written
  constexpr int kRounds = 3;                    // on a busy machine a wait may time out, and then nothing is promised
  writeIni("Debug=1\r\n");
  const std::size_t fillerLines = (logcases::kLargestFile - kBytesBelow) / (kFiller.size() * 2);
  std::wstring filler;
  for (std::size_t i = 0; i < fillerLines; ++i) filler += kFiller;

  std::optional<DWORD> slowLines;
  for (int round = 0; round < kRounds && slowLines != 0U; ++round) {
    std::filesystem::remove(kFolder / L"Corvane1.log");
    writeBytes(L"Corvane.log", std::string(reinterpret_cast<const char*>(filler.data()), filler.size() * 2));
    const ChildProcess one(L"log_writer.exe", {L"write", L"A", std::to_wstring(kLines)});
    const ChildProcess other(L"log_writer.exe", {L"write", L"B", std::to_wstring(kLines)});
    ::SetEvent(start.get());
    slowLines = waitForBoth(one, other);
    ASSERT_TRUE(slowLines) << "a writer hangs or has failed";
  }
  ASSERT_EQ(slowLines, 0U) << "a wait may have timed out in each round: nothing is proven";

  Tally tally;
  add(tally, L"Corvane1.log", kLines);
  const std::size_t beforeRotation = tally.lines[L'A'].size() + tally.lines[L'B'].size();
  add(tally, L"Corvane.log", kLines);
  std::cout << "lines before the rotation: " << beforeRotation << '\n';
  EXPECT_GT(beforeRotation, 0U);
  EXPECT_LT(beforeRotation, 2U * kLines);
  EXPECT_EQ(tally.damaged, std::vector<std::wstring>());
  EXPECT_EQ(tally.filler, fillerLines);
  EXPECT_EQ(tally.lines[L'A'], upTo(kLines));
  EXPECT_EQ(tally.lines[L'B'], upTo(kLines));
  EXPECT_FALSE(exists(L"Corvane2.log"));
}

TEST_F(LogProcesses, WritersGoOnAfterAProcessWasKilledWithTheSemaphore) {
  constexpr int kLines = 3;
  switchOn();  // keeps the semaphore in existence, taken
  const ChildProcess holder(L"log_writer.exe", {L"hold"});
  ASSERT_EQ(::WaitForSingleObject(held.get(), logprocess::kDeadlineMs), WAIT_OBJECT_0);
  holder.kill();
  ASSERT_EQ(::WaitForSingleObject(g_logSemaphore, 0), WAIT_TIMEOUT);

  const ChildProcess one(L"log_writer.exe", {L"write", L"A", std::to_wstring(kLines)});
  const ChildProcess other(L"log_writer.exe", {L"write", L"B", std::to_wstring(kLines)});
  ::SetEvent(start.get());
  const auto slowLines = waitForBoth(one, other);
  ASSERT_TRUE(slowLines) << "a writer hangs or has failed";
  EXPECT_GE(*slowLines, 1U) << "someone waited in vain for the dead process";

  Tally tally;
  add(tally, L"Corvane.log", kLines);
  const std::size_t whole = tally.lines[L'A'].size() + tally.lines[L'B'].size();
  std::cout << "slow lines: " << *slowLines << ", whole: " << whole << " of " << 2 * kLines
            << ", damaged: " << tally.damaged.size() << '\n';
  EXPECT_GE(whole, 1U);
  EXPECT_EQ(::WaitForSingleObject(g_logSemaphore, 0), WAIT_OBJECT_0) << "the release after the time-out has freed it";
}

}  // namespace
