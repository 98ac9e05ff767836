/// Each step of the log fails once, one after the other: that costs at most the line in hand, and the next line is there.

#include <algorithm>
#include <array>
#include <string_view>

#include "fakes/LineFaults.h"
#include "fakes/StepFault.h"
#include "log/LogCases.h"
#include "log/LogTest.h"

namespace {

using fakes::joined;
using fakes::kCallsOfAnAppend;
using fakes::Names;

const std::wstring kTime = L"2024-03-07 09:05:03.042 ";

std::wstring numbered(int number) { return L"C:\\log\\Corvane" + std::to_wstring(number) + L".log"; }

void writeLine(int number) { WriteLog(LOG_DEBUG, "f", number, L"m"); }
std::wstring line(int number) { return kTime + L"[DBG] [f] [" + std::to_wstring(number) + L"] m\r\n"; }

// What there is of line 2 when this call failed while it was written.
std::wstring leftOfLineTwo(std::string_view failed) {
  if (failed == "MultiByteToWideChar") return kTime + L"[DBG] [] [2] m\r\n";
  return fakes::losesTheLine(failed) ? L"" : line(2);
}

constexpr std::size_t kPrintsOfALine = 5;  // the time, the tag, the name, the number, the message

// Whose log file has grown too large, when the test says so.
struct Platform : fakes::FaultyWindows {
  BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size) override {
    const BOOL known = FaultyWindows::GetFileSizeEx(file, size);
    if (known && full) size->QuadPart += static_cast<LONGLONG>(logcases::kLargestFile);
    return known;
  }
  BOOL GetFileAttributesExW(LPCWSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data) override {
    const BOOL known = FaultyWindows::GetFileAttributesExW(path, level, data);
    if (!known) unreadable = path;
    return known;
  }
  bool full = false;
  std::wstring unreadable;
};

class LogFaults : public LogTest {
 protected:
  /// For n from 1 on, each time on a new platform: `arrange`, then `act` with its nth call failing, then `check`, which is told
  /// the call's name. Ends with the n that is no call of `act` any more; returns the names of those that failed.
  template <class Arrange, class Act, class Check>
  Names failEachCall(Arrange arrange, Act act, Check check) {
    return fakes::namesOfFailed([&](std::size_t nth) {
      startAnew();
      arrange();
      const auto name = fakes::failNthCall(*platform, nth, act);
      if (name.empty()) return name;
      SCOPED_TRACE(testing::Message() << "call " << nth << ", " << name << ", fails");
      EXPECT_EQ(windows->openFileHandles(), 0U);
      EXPECT_EQ(windows->semaphoreCount(L"OrvaQZ_Corvane").value_or(1), name == "ReleaseSemaphore" ? 0 : 1);
      check(name);
      EXPECT_EQ(windows->semaphoreCount(L"OrvaQZ_Corvane").value_or(1), 1);
      return name;
    });
  }

  /// The same for such steps beside the calls; `check` is told the n. Returns how many there are.
  template <class Arrange, class Act, class Check>
  std::size_t failEachStep(fakes::Step step, Arrange arrange, Act act, Check check) {
    for (std::size_t nth = 1; nth <= fakes::kMostSteps; ++nth) {
      startAnew();
      arrange();
      bool happened = false;
      {
        const fakes::StepFault fault(step, nth);
        act();
        happened = fault.happened();
      }
      if (!happened) return nth - 1;
      SCOPED_TRACE(testing::Message() << "step " << nth << " fails");
      EXPECT_EQ(windows->openFileHandles(), 0U);
      EXPECT_EQ(windows->semaphoreCount(L"OrvaQZ_Corvane").value_or(1), 1);
      check(nth);
    }
    ADD_FAILURE() << "steps without end";
    return fakes::kMostSteps;
  }

  void startAnew() {
    switchOff();
    platform = &use<Platform>();
    platform->expireWaits();  // a semaphore that a fault left taken is not waited for
  }

  static void switchOff() {
    if (g_logSemaphore != nullptr) ::CloseHandle(g_logSemaphore);
    g_logSemaphore = nullptr;
    g_logMask = 0;
  }

  void startWithLineOne() {
    switchOn();
    writeLine(1);
  }

  Platform* platform = nullptr;
};

TEST_F(LogFaults, EachCallOfLogInit) {
  std::uint32_t level = 1;  // of the switch that is read next
  const auto failed = failEachCall([&] { writeIni("Error=1\r\nWarning=1\r\nDebug=1\r\nInfo=1\r\n"); },
                                   [] { LogInit(L"C:\\log\\Corvane.log", 0, L"Corvane"); },
                                   [&](std::string_view name) {
                                     const bool isSwitch = name == "GetPrivateProfileStringW";
                                     EXPECT_EQ(g_logMask, isSwitch ? 15U & ~level : 15U);
                                     EXPECT_EQ(g_logSemaphore == nullptr, name == "CreateSemaphoreW");
                                     writeLine(1);
                                     EXPECT_EQ(text(), level == LOG_DEBUG ? L"" : line(1));
                                     level *= 2;

                                     switchOff();
                                     LogInit(L"C:\\log\\Corvane.log", 0, L"Corvane");
                                     EXPECT_EQ(g_logMask, 15U);
                                     EXPECT_NE(g_logSemaphore, nullptr);
                                   });
  EXPECT_EQ(failed, (Names{"GetPrivateProfileStringW", "GetPrivateProfileStringW", "GetPrivateProfileStringW",
                           "GetPrivateProfileStringW", "CreateSemaphoreW"}));
}

TEST_F(LogFaults, EachBoundedCopyOfLogInit) {
  const auto copies = failEachStep(
      fakes::Step::copy, [&] { writeIni("Debug=1\r\n"); }, [] { LogInit(L"C:\\log\\Corvane.log", 0, L"Corvane"); },
      [&](std::size_t nth) {
        writeLine(1);
        const auto written = nth == 1 ? L"" : line(1);
        EXPECT_EQ(text(), written);
        EXPECT_EQ(windows->filesIn(L"C:\\log").size(), nth == 1 ? 1U : 2U) << "the ini file, and the log";

        switchOff();
        LogInit(L"C:\\log\\Corvane.log", 0, L"Corvane");
        EXPECT_EQ(windows->semaphoreCount(L"OrvaQZ_Corvane"), 1);
        writeLine(2);
        EXPECT_EQ(text(), written + line(2));
      });
  EXPECT_EQ(copies, 3U) << "the path, the semaphore's name in two parts";
}

TEST_F(LogFaults, EachCallOfAnAppend) {
  const auto failed = failEachCall([&] { startWithLineOne(); }, [] { writeLine(2); },
                                   [&](std::string_view name) {
                                     EXPECT_EQ(text(), line(1) + leftOfLineTwo(name));
                                     writeLine(3);
                                     EXPECT_EQ(text(), line(1) + leftOfLineTwo(name) + line(3));
                                   });
  EXPECT_EQ(failed, joined(kCallsOfAnAppend, {"ReleaseSemaphore"}));
}

/// Line 2 takes the file over its size, while there are as many numbered files as the parameter says.
class LogRotationFaults : public LogFaults, public testing::WithParamInterface<int> {
 protected:
  void arrange() {
    startWithLineOne();
    for (int number = 1; number <= GetParam(); ++number) {
      windows->writeFile(numbered(number), "old " + std::to_string(number));
      windows->setCreationTime(numbered(number), kTimes.at(static_cast<std::size_t>(number - 1)));
    }
    platform->full = true;
  }

  // Of the numbered files up to `last`; 0 when that is none.
  static int oldestUpTo(int last) {
    return last == 0 ? 0 : static_cast<int>(std::min_element(kTimes.begin(), kTimes.begin() + last) - kTimes.begin()) + 1;
  }

  // The file that makes room when this call fails.
  int replacedWhen(std::string_view failed) const {
    const bool keepsAll = failed == "CreateFileW" || failed == "GetFileSizeEx" || failed == "DeleteFileW";
    if (GetParam() < 10 || keepsAll) return 0;
    for (int number = 1; number <= 10; ++number) {
      if (platform->unreadable == numbered(number)) return number;
    }
    return oldestUpTo(10);
  }

  // The file that makes room when this name of the rotation cannot be made: the oldest so far.
  static int replacedWithoutName(std::size_t nth) { return nth > 10 ? 0 : oldestUpTo(static_cast<int>(nth) - 1); }

  // Beside line 1 there is `lineTwo`, wherever the file has gone, and all numbered files but `replaced`.
  void expectNothingElseLost(const std::wstring& lineTwo, int replaced) {
    const std::wstring kept = line(1) + lineTwo;
    const bool moved = !windows->exists(L"C:\\log\\Corvane.log");
    platform->full = false;
    writeLine(3);
    EXPECT_EQ(text(), moved ? line(3) : kept + line(3));

    std::size_t files = 2;  // the ini file and the log
    for (int number = 1; number <= 10; ++number) {
      const auto bytes = windows->fileBytes(numbered(number));
      if (bytes) ++files;
      if (number <= GetParam() && number != replaced) {
        EXPECT_EQ(bytes, "old " + std::to_string(number));
      } else if (bytes) {
        EXPECT_TRUE(replaced == 0 || number == replaced) << number;
        EXPECT_EQ(support::decodedUnits(*bytes), kept);
      }
    }
    EXPECT_EQ(files, 2U + static_cast<std::size_t>(GetParam()) + (moved ? 1U : 0U) - (replaced != 0 ? 1U : 0U));
    EXPECT_EQ(windows->filesIn(L"C:\\log").size(), files) << "under no other name";
  }

  void expectTheNextRotationWorks() {
    platform->full = true;
    writeLine(4);
    EXPECT_FALSE(windows->exists(L"C:\\log\\Corvane.log"));
  }

  // The names that a rotation makes when nothing fails: the candidates', and the oldest one's again.
  static std::size_t names() { return GetParam() == 10 ? 11U : static_cast<std::size_t>(GetParam()) + 1; }
  // The calls that it makes then.
  static Names rotation() {
    Names calls;
    for (int number = 1; number <= GetParam(); ++number) calls = joined(calls, {"MoveFileW", "GetFileAttributesExW"});
    return joined(calls, GetParam() == 10 ? Names{"DeleteFileW", "MoveFileW"} : Names{"MoveFileW"});
  }

  static constexpr std::array kTimes = {1050, 1090, 1030, 1080, 1060, 1040, 1020, 1070, 1010, 1100};
};

TEST_P(LogRotationFaults, EachCall) {
  const auto failed = failEachCall([this] { arrange(); }, [] { writeLine(2); },
                                   [this](std::string_view name) {
                                     expectNothingElseLost(leftOfLineTwo(name), replacedWhen(name));
                                     expectTheNextRotationWorks();
                                   });
  EXPECT_EQ(failed, joined(joined(kCallsOfAnAppend, rotation()), {"ReleaseSemaphore"}));
}

TEST_P(LogRotationFaults, EachFormattedPrint) {
  const auto prints = failEachStep(
      fakes::Step::print, [this] { arrange(); }, [] { writeLine(2); },
      [this](std::size_t nth) {
        const bool drops = nth <= kPrintsOfALine;
        expectNothingElseLost(drops ? L"" : line(2), drops ? 0 : replacedWithoutName(nth - kPrintsOfALine));
        expectTheNextRotationWorks();
      });
  EXPECT_EQ(prints, kPrintsOfALine + names());
}

TEST_P(LogRotationFaults, EachBoundedCopy) {
  const auto copies = failEachStep(
      fakes::Step::copy, [this] { arrange(); }, [] { writeLine(2); },
      [this](std::size_t nth) {
        expectNothingElseLost(line(2), replacedWithoutName((nth + 1) / 2));
        expectTheNextRotationWorks();
      });
  EXPECT_EQ(copies, 2 * names()) << "the stem and the suffix";
}

INSTANTIATE_TEST_SUITE_P(NumberedFiles, LogRotationFaults, testing::Values(0, 1, 9, 10), testing::PrintToStringParamName());

TEST_F(LogFaults, EachFormattedPrintOfALineDropsItBeforeItReachesTheFile) {
  const auto prints = failEachStep(
      fakes::Step::print, [&] { startWithLineOne(); }, [] { writeLine(2); },
      [&](std::size_t) {
        EXPECT_EQ(windows->countCalls("WaitForSingleObject"), 1U);
        writeLine(3);
        EXPECT_EQ(text(), line(1) + line(3));
      });
  EXPECT_EQ(prints, kPrintsOfALine);
}

TEST_F(LogFaults, WriteThatFailsInAnyMannerCostsAtMostItsOwnLine) {
  struct Disk : fakes::InMemoryWindows {
    BOOL WriteFile(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD written, OVERLAPPED* overlapped) override {
      if (!fails) return InMemoryWindows::WriteFile(file, bytes, count, written, overlapped);
      InMemoryWindows::WriteFile(file, bytes, std::min<DWORD>(count, takes), written, overlapped);
      return answer;
    }
    bool fails = false;
    DWORD takes = 0;
    BOOL answer = FALSE;
  };
  struct {
    std::size_t units;
    BOOL answer;
  } const cases[] = {{0, FALSE}, {0, TRUE}, {1, FALSE}, {1, TRUE}, {20, TRUE}, {line(2).size(), FALSE}};
  for (const auto& [units, answer] : cases) {
    switchOff();
    auto& disk = use<Disk>();
    disk.takes = static_cast<DWORD>(units * sizeof(wchar_t));
    disk.answer = answer;
    startWithLineOne();
    disk.fails = true;
    writeLine(2);
    disk.fails = false;
    writeLine(3);
    EXPECT_EQ(text(), line(1) + line(2).substr(0, units) + line(3)) << units << " units, answer " << answer;
    EXPECT_EQ(windows->openFileHandles(), 0U);
  }
}

TEST_F(LogFaults, WaitThatEndsInAnyMannerWritesTheLineAndReleasesOnce) {
  struct Waits : fakes::InMemoryWindows {
    DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds) override {
      if (answer == WAIT_OBJECT_0 || answer == WAIT_ABANDONED) InMemoryWindows::WaitForSingleObject(handle, milliseconds);
      return answer;
    }
    DWORD answer = WAIT_OBJECT_0;
  };
  auto& waits = use<Waits>();
  switchOn();
  std::wstring expected;
  int number = 0;
  for (const DWORD answer : {WAIT_ABANDONED, WAIT_TIMEOUT, WAIT_FAILED, WAIT_OBJECT_0}) {
    waits.answer = answer;
    writeLine(++number);
    expected += line(number);
    EXPECT_EQ(text(), expected) << "answer " << answer;
    EXPECT_EQ(windows->countCalls("ReleaseSemaphore"), static_cast<std::size_t>(number));
    EXPECT_EQ(windows->semaphoreCount(L"OrvaQZ_Corvane"), 1);
  }
}

}  // namespace
