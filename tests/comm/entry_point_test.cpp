#include "comm/EntryPoint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "fakes/InMemoryWindows.h"
#include "log/Log.h"
#include "support/LogLines.h"
#include "support/LoggingOn.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved);

namespace {

bool isOff() {
  return g_logMask == 0 && g_logSemaphore == nullptr &&
         std::all_of(g_logPath, g_logPath + LOG_PATH_UNITS, [](wchar_t unit) { return unit == 0; });
}

class EntryPoint : public testing::Test {
 protected:
  EntryPoint() : installed(windows) { windows.makeFolder(L"C:\\log"); }
  ~EntryPoint() override {
    EXPECT_EQ(windows.openFileHandles(), 0U);
    EXPECT_EQ(windows.openSemaphoreHandles(), 0U);
    EXPECT_TRUE(isOff());
  }

  void writeIni(const std::string& keys) { windows.writeFile(L"C:\\log\\orva_config.ini", "[Corvane]\r\n" + keys); }
  std::ptrdiff_t firstCall(std::string_view name) const {
    const auto calls = windows.calls();
    return std::find(calls.begin(), calls.end(), name) - calls.begin();
  }
  std::ptrdiff_t lastCall(std::string_view name) const {
    const auto calls = windows.calls();
    return calls.rend() - std::find(calls.rbegin(), calls.rend(), name) - 1;
  }

  fakes::InMemoryWindows windows;
  const fakes::Installed installed;
};

TEST_F(EntryPoint, AttachWithNoConfigurationCreatesNothing) {
  comm::attachProcess(nullptr);
  EXPECT_TRUE(isOff());
  EXPECT_TRUE(windows.filesIn(L"C:\\log").empty());
  EXPECT_EQ(windows.countCalls("CreateSemaphoreW"), 0U);
  EXPECT_EQ(windows.countCalls("CreateFileW"), 0U);
  comm::detachProcess();
  EXPECT_EQ(windows.countCalls("CreateFileW"), 0U);
}

TEST_F(EntryPoint, AttachTurnsThreadNotificationsOffForThisModule) {
  struct Module : fakes::InMemoryWindows {
    BOOL DisableThreadLibraryCalls(HMODULE module) override {
      asked.push_back(module);
      return InMemoryWindows::DisableThreadLibraryCalls(module);
    }
    std::vector<HMODULE> asked;
  } platform;
  const fakes::Installed inner(platform);
  const auto module = reinterpret_cast<HINSTANCE>(std::uintptr_t{0x180000000});
  comm::attachProcess(module);
  EXPECT_EQ(platform.asked, std::vector<HMODULE>{module});
}

TEST_F(EntryPoint, AttachAndDetachWriteTheirLinesWhenDebugIsOn) {
  writeIni("Debug=1\r\n");
  comm::attachProcess(nullptr);
  comm::detachProcess();
  const auto lines = support::LogLines(windows).all();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].tag, "DBG");
  EXPECT_EQ(lines[0].function, "DllMain");
  EXPECT_EQ(lines[0].number, 264);
  EXPECT_EQ(lines[0].message, L"App Communication DLL Attach.");
  EXPECT_EQ(lines[1].tag, "DBG");
  EXPECT_EQ(lines[1].function, "DllMain");
  EXPECT_EQ(lines[1].number, 271);
  EXPECT_EQ(lines[1].message, L"App Communication DLL Detach.");
}

TEST_F(EntryPoint, AttachSetsTheLogUpUnderItsFixedNames) {
  writeIni("Info=1\r\n");
  comm::attachProcess(nullptr);
  EXPECT_EQ(g_logMask, LOG_INFO);
  EXPECT_STREQ(g_logPath, L"C:\\log\\Corvane.log");
  EXPECT_EQ(windows.semaphoreCount(L"OrvaQZ_Corvane"), 1);
  EXPECT_FALSE(windows.exists(L"C:\\log\\Corvane.log"));  // both lines are debug lines
  comm::detachProcess();
  EXPECT_FALSE(windows.exists(L"C:\\log\\Corvane.log"));
}

TEST_F(EntryPoint, AttachForgetsWhatIsLeftOver) {
  g_logMask = 15;
  std::fill(g_logPath, g_logPath + LOG_PATH_UNITS, L'x');
  g_logSemaphore = ::CreateSemaphoreW(nullptr, 1, 1, L"left over");
  comm::attachProcess(nullptr);
  EXPECT_TRUE(isOff());
  EXPECT_EQ(windows.openSemaphoreHandles(), 0U);
}

TEST_F(EntryPoint, LeftOverHandleIsClosedBeforeTheLogStarts) {
  g_logSemaphore = ::CreateSemaphoreW(nullptr, 1, 1, L"left over");
  comm::attachProcess(nullptr);
  EXPECT_LT(firstCall("CloseHandle"), firstCall("GetPrivateProfileStringW"));
}

TEST_F(EntryPoint, LeftOverLevelsAreOffAfterAttach) {
  g_logMask = LOG_DEBUG;
  writeIni("Error=1\r\n");
  comm::attachProcess(nullptr);
  EXPECT_EQ(g_logMask, LOG_ERROR);
  EXPECT_FALSE(windows.exists(L"C:\\log\\Corvane.log"));
  comm::detachProcess();
}

TEST_F(EntryPoint, DetachWritesItsLineBeforeItSwitchesTheLogOff) {
  writeIni("Debug=1\r\n");
  comm::attachProcess(nullptr);
  comm::detachProcess();
  EXPECT_EQ(support::LogLines(windows).count("DllMain", 271), 1U);
  EXPECT_LT(lastCall("ReleaseSemaphore"), lastCall("CloseHandle"));
  EXPECT_TRUE(isOff());
}

TEST_F(EntryPoint, ModuleThatIsLoadedAgainReadsItsConfigurationAgain) {
  writeIni("Debug=1\r\n");
  comm::attachProcess(nullptr);
  comm::detachProcess();
  writeIni("Debug=0\r\n");
  comm::attachProcess(nullptr);
  comm::detachProcess();
  EXPECT_EQ(support::LogLines(windows).all().size(), 2U);
}

TEST_F(EntryPoint, OnlyTheProcessReasonsDoSomethingAndAllSucceed) {
  writeIni("Debug=1\r\n");
  const support::LogLines lines(windows);
  EXPECT_EQ(DllMain(nullptr, DLL_PROCESS_ATTACH, nullptr), TRUE);
  EXPECT_EQ(lines.count("DllMain", 264), 1U);
  const std::size_t before = windows.calls().size();
  for (const DWORD reason : {DLL_THREAD_ATTACH, DLL_THREAD_DETACH, DWORD{4}, DWORD{0xFFFFFFFF}}) {
    EXPECT_EQ(DllMain(nullptr, reason, nullptr), TRUE);
  }
  EXPECT_EQ(windows.calls().size(), before);
  EXPECT_EQ(DllMain(nullptr, DLL_PROCESS_DETACH, nullptr), TRUE);
  EXPECT_EQ(lines.count("DllMain", 271), 1U);
}

TEST(LoggingOn, SwitchesTheModulesLogOnForAScope) {
  {
    support::LoggingOn logging;
    EXPECT_EQ(logging.lines().count("DllMain", 264), 1U);
    EXPECT_EQ(g_logMask, LOG_ERROR | LOG_DEBUG);
  }
  EXPECT_TRUE(isOff());
}

}  // namespace
