/// Each call of the attach and of the detach fails once, one after the other: that costs at most the module's log, and the next
/// life has one again.

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "comm/EntryPoint.h"
#include "fakes/LineFaults.h"
#include "log/Log.h"
#include "support/LogLines.h"

namespace {

using fakes::joined;
using fakes::Names;

const Names kLine = joined(fakes::kCallsOfAnAppend, {"ReleaseSemaphore"});

void attach() { comm::attachProcess(nullptr); }
void detach() { comm::detachProcess(); }

class EntryPointFaults : public testing::Test {
 protected:
  /// For n from 1 on, each time on a new platform on which debug lines are switched on: `arrange`, then `act` with its nth call
  /// failing, then `check`, which is told the call's name and n, and leaves the log off. Then another life. Returns the names
  /// of the calls of `act`.
  template <class Arrange, class Act, class Check>
  Names failEachCall(Arrange arrange, Act act, Check check) {
    return fakes::namesOfFailed([&](std::size_t nth) {
      fakes::FaultyWindows windows;
      const fakes::Installed installed(windows);
      windows.makeFolder(L"C:\\log");
      windows.writeFile(L"C:\\log\\orva_config.ini", "[Corvane]\r\nDebug=1\r\n");
      windows.expireWaits();  // a semaphore that a fault left taken is not waited for
      arrange();
      const auto name = fakes::failNthCall(windows, nth, act);
      SCOPED_TRACE(testing::Message() << "call " << nth << ", " << name << ", fails");
      check(name, nth, support::LogLines(windows));
      expectOff(windows);
      expectAnotherLife(windows);
      return name;
    });
  }

  // Whether a line is there under its name although this call of its own failed.
  static bool isWritten(std::string_view failed) { return failed != "MultiByteToWideChar" && !fakes::losesTheLine(failed); }

  static void expectOff(const fakes::InMemoryWindows& windows) {
    EXPECT_EQ(g_logMask, 0U);
    EXPECT_TRUE(std::all_of(g_logPath, g_logPath + LOG_PATH_UNITS, [](wchar_t unit) { return unit == 0; }));
    EXPECT_EQ(g_logSemaphore, nullptr);
    EXPECT_EQ(windows.openFileHandles(), 0U);
    EXPECT_EQ(windows.openSemaphoreHandles(), 0U);
  }

  static void leaveSomethingOver() {
    g_logMask = LOG_ERROR;
    std::fill(g_logPath, g_logPath + LOG_PATH_UNITS, L'x');
    g_logSemaphore = ::CreateSemaphoreW(nullptr, 1, 1, L"left over");
  }

 private:
  static void expectAnotherLife(const fakes::InMemoryWindows& windows) {
    const support::LogLines lines(windows);
    const auto attached = lines.count("DllMain", 264);
    const auto detached = lines.count("DllMain", 271);
    attach();
    EXPECT_EQ(lines.count("DllMain", 264), attached + 1);
    detach();
    EXPECT_EQ(lines.count("DllMain", 271), detached + 1);
    expectOff(windows);
  }
};

TEST_F(EntryPointFaults, EachCallOfTheAttach) {
  constexpr std::size_t kDebugSwitch = 5;  // the fifth call
  const auto failed =
      failEachCall(leaveSomethingOver, attach, [](std::string_view name, std::size_t nth, const support::LogLines& lines) {
        const bool on = nth != kDebugSwitch;
        EXPECT_EQ(g_logMask, on ? LOG_DEBUG : 0U);
        EXPECT_EQ(g_logSemaphore != nullptr, on && name != "CreateSemaphoreW");
        EXPECT_EQ(lines.count("DllMain", 264), on && isWritten(name) ? 1U : 0U);
        detach();
        EXPECT_EQ(lines.count("DllMain", 271), on ? 1U : 0U);
      });
  EXPECT_EQ(failed, joined({"DisableThreadLibraryCalls", "CloseHandle", "GetPrivateProfileStringW", "GetPrivateProfileStringW",
                            "GetPrivateProfileStringW", "GetPrivateProfileStringW", "CreateSemaphoreW"},
                           kLine));
}

TEST_F(EntryPointFaults, EachCallOfTheDetach) {
  const auto failed =
      failEachCall(attach, detach, [](std::string_view name, std::size_t /*nth*/, const support::LogLines& lines) {
        EXPECT_EQ(lines.count("DllMain", 264), 1U);
        EXPECT_EQ(lines.count("DllMain", 271), isWritten(name) ? 1U : 0U);
      });
  EXPECT_EQ(failed, joined(kLine, {"CloseHandle"}));
}

}  // namespace
