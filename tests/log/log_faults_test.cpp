/// Each step of the log fails once, one after the other: that costs at most the line in hand, and the next line is there.

#include <algorithm>
#include <string_view>
#include <vector>

#include "fakes/FaultyWindows.h"
#include "fakes/StepFault.h"
#include "log/LogCases.h"
#include "log/LogTest.h"

namespace {

using Names = std::vector<std::string_view>;

const std::wstring kTime = L"2024-03-07 09:05:03.042 ";
const Names kAppend = {"MultiByteToWideChar", "MultiByteToWideChar", "WaitForSingleObject", "CreateFileW",
                       "SetFilePointer",      "WriteFile",           "GetFileSizeEx",       "CloseHandle"};

std::wstring numbered(int number) { return L"C:\\log\\Corvane" + std::to_wstring(number) + L".log"; }

void writeLine(int number) { WriteLog(LOG_DEBUG, "f", number, L"m"); }
std::wstring line(int number) { return kTime + L"[DBG] [f] [" + std::to_wstring(number) + L"] m\r\n"; }

// What there is of line 2 when this call failed while it was written.
std::wstring leftOfLineTwo(std::string_view failed) {
  if (failed == "MultiByteToWideChar") return kTime + L"[DBG] [] [2] m\r\n";
  const bool lost = failed == "CreateFileW" || failed == "SetFilePointer" || failed == "WriteFile";
  return lost ? L"" : line(2);
}

Names joined(Names first, const Names& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

// Whose log file has grown too large, when the test says so.
struct Platform : fakes::FaultyWindows {
  BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size) override {
    const BOOL known = FaultyWindows::GetFileSizeEx(file, size);
    if (full) size->QuadPart += static_cast<LONGLONG>(logcases::kLargestFile);
    return known;
  }
  bool full = false;
};

class LogFaults : public LogTest {
 protected:
  /// For n from 1 on, each time on a new platform: `arrange`, then `act` with its nth call failing, then `check`, which is told
  /// the call's name. Ends with the n that is no call of `act` any more; returns the names of those that failed.
  template <class Arrange, class Act, class Check>
  Names failEachCall(Arrange arrange, Act act, Check check) {
    Names failed;
    while (failed.size() < kMostCalls) {
      startAnew();
      arrange();
      platform->failCall(failed.size() + 1);
      act();
      const auto name = platform->failedCall();
      platform->failCall(0);
      if (name.empty()) return failed;
      failed.push_back(name);
      SCOPED_TRACE(testing::Message() << "call " << failed.size() << ", " << name << ", fails");
      EXPECT_EQ(windows->openFileHandles(), 0U);
      EXPECT_EQ(windows->semaphoreCount(L"OrvaQZ_Corvane").value_or(1), name == "ReleaseSemaphore" ? 0 : 1);
      check(name);
      EXPECT_EQ(windows->semaphoreCount(L"OrvaQZ_Corvane").value_or(1), 1);
    }
    ADD_FAILURE() << "calls without end";
    return failed;
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

 private:
  static constexpr std::size_t kMostCalls = 100;
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

TEST_F(LogFaults, EachCallOfAnAppend) {
  const auto failed = failEachCall([&] { startWithLineOne(); }, [] { writeLine(2); },
                                   [&](std::string_view name) {
                                     EXPECT_EQ(text(), line(1) + leftOfLineTwo(name));
                                     writeLine(3);
                                     EXPECT_EQ(text(), line(1) + leftOfLineTwo(name) + line(3));
                                   });
  EXPECT_EQ(failed, joined(kAppend, {"ReleaseSemaphore"}));
}

/// Line 2 takes the file over its size, while there are as many numbered files as the parameter says.
class LogRotationFaults : public LogFaults, public testing::WithParamInterface<int> {
 protected:
  void arrange() {
    startWithLineOne();
    for (int number = 1; number <= GetParam(); ++number) windows->writeFile(numbered(number), "old " + std::to_string(number));
    platform->full = true;
  }

  // Line 1, and what is left of the one that was to cross, wherever the file has gone.
  void expectNothingElseLost(std::string_view failed) {
    const std::wstring kept = line(1) + leftOfLineTwo(failed);
    const bool moved = !windows->exists(L"C:\\log\\Corvane.log");
    platform->full = false;
    writeLine(3);
    EXPECT_EQ(text(), moved ? line(3) : kept + line(3));

    int old = 0;
    int keeping = 0;
    for (int number = 1; number <= 10; ++number) {
      const auto bytes = windows->fileBytes(numbered(number)).value_or("");
      if (bytes == "old " + std::to_string(number)) {
        ++old;
      } else if (!bytes.empty()) {
        ++keeping;
        EXPECT_EQ(support::decodedUnits(bytes), kept);
      }
    }
    EXPECT_EQ(keeping, moved ? 1 : 0);
    EXPECT_GE(old, std::min(GetParam(), 9)) << "at most the oldest has made room";
  }

  void expectTheNextRotationWorks() {
    platform->full = true;
    writeLine(4);
    EXPECT_FALSE(windows->exists(L"C:\\log\\Corvane.log"));
  }

  // The calls that a rotation makes when nothing fails.
  static Names rotation() {
    Names calls;
    for (int number = 1; number <= GetParam(); ++number) calls = joined(calls, {"MoveFileW", "GetFileAttributesExW"});
    return joined(calls, GetParam() == 10 ? Names{"DeleteFileW", "MoveFileW"} : Names{"MoveFileW"});
  }
};

TEST_P(LogRotationFaults, EachCall) {
  const auto failed = failEachCall([this] { arrange(); }, [] { writeLine(2); },
                                   [this](std::string_view name) {
                                     expectNothingElseLost(name);
                                     expectTheNextRotationWorks();
                                   });
  EXPECT_EQ(failed, joined(joined(kAppend, rotation()), {"ReleaseSemaphore"}));
}

INSTANTIATE_TEST_SUITE_P(NumberedFiles, LogRotationFaults, testing::Values(0, 1, 9, 10), testing::PrintToStringParamName());

TEST_F(LogFaults, EachFormattedPrintDropsTheLineBeforeItReachesTheFile) {
  std::size_t failed = 0;
  for (bool happened = true; happened; ++failed) {
    ASSERT_LT(failed, 20U);
    startAnew();
    startWithLineOne();
    {
      const fakes::StepFault fault(fakes::Step::print, failed + 1);
      writeLine(2);
      happened = fault.happened();
    }
    writeLine(3);
    EXPECT_EQ(text(), line(1) + (happened ? L"" : line(2)) + line(3)) << "print " << failed + 1;
    EXPECT_EQ(windows->countCalls("WaitForSingleObject"), happened ? 2U : 3U);
  }
  EXPECT_EQ(failed - 1, 5U) << "the time, the tag, the name, the number, the message";
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
