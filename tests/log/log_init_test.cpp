/// Switching the log on, or leaving it off.

#include <algorithm>
#include <vector>

#include "log/LogCases.h"
#include "log/LogTest.h"

namespace {

bool isOff() {
  return g_logMask == 0 && g_logSemaphore == nullptr &&
         std::all_of(g_logPath, g_logPath + LOG_PATH_UNITS, [](wchar_t unit) { return unit == 0; });
}

TEST_F(LogTest, WithoutAnIniFileNothingIsCreated) {
  LogInit(L"C:\\log\\Corvane.log", 0, L"Corvane");
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  EXPECT_TRUE(isOff());
  EXPECT_EQ(windows->countCalls("CreateSemaphoreW"), 0U);
  EXPECT_EQ(windows->countCalls("CreateFileW"), 0U);
  EXPECT_TRUE(windows->filesIn(L"C:\\log").empty());
}

TEST_F(LogTest, WithoutAnIniFileAnOldLogIsNotTouched) {
  windows->writeFile(L"C:\\log\\Corvane.log", "old");
  LogInit(L"C:\\log\\Corvane.log", 0, L"Corvane");
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  EXPECT_EQ(windows->fileBytes(L"C:\\log\\Corvane.log"), "old");
}

TEST_F(LogTest, EachKeySwitchesItsOwnLevel) {
  struct {
    const char* keys;
    std::uint32_t mask;
  } const cases[] = {{"Error=1\r\n", 1}, {"Warning=1\r\n", 2},          {"Debug=1\r\n", 4},
                     {"Info=1\r\n", 8},  {"Error=1\r\nDebug=1\r\n", 5}, {"Error=0\r\nWarning=1\r\nDebug=0\r\nInfo=1\r\n", 10}};
  for (const auto& [keys, mask] : cases) {
    g_logMask = 0;
    writeIni(keys);
    LogInit(L"C:\\log\\Corvane.log", 0, L"Corvane");
    EXPECT_EQ(g_logMask, mask) << keys;
    if (g_logSemaphore != nullptr) ::CloseHandle(g_logSemaphore);
    g_logSemaphore = nullptr;
  }
}

TEST_F(LogTest, OnlyExactlyOneSwitchesOn) {
  for (const auto& [name, value, on] : logcases::kSwitches) {
    writeIni(std::string("Debug=") + value + "\r\n");
    EXPECT_EQ(LogSwitchOn(L"Corvane", L"Debug"), on) << name;
  }
}

TEST_F(LogTest, BlankThatThePlatformLeavesInTheValueKeepsTheLevelOff) {
  struct KeepsBlanks : fakes::InMemoryWindows {
    DWORD GetPrivateProfileStringW(LPCWSTR, LPCWSTR, LPCWSTR, LPWSTR buffer, DWORD size, LPCWSTR) override {
      ::wcscpy_s(buffer, size, L"1 ");
      return 2;
    }
  };
  use<KeepsBlanks>();
  EXPECT_FALSE(LogSwitchOn(L"Corvane", L"Debug"));
}

TEST_F(LogTest, OtherSectionsDoNotCount) {
  windows->writeFile(L"C:\\log\\orva_config.ini", "Debug=1\r\n[Other]\r\nDebug=1\r\n");
  LogInit(L"C:\\log\\Corvane.log", 0, L"Corvane");
  EXPECT_TRUE(isOff());
}

struct ProfileReads : fakes::InMemoryWindows {
  DWORD GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR fallback, LPWSTR buffer, DWORD size,
                                 LPCWSTR file) override {
    EXPECT_STREQ(section, L"Corvane");
    EXPECT_EQ(fallback, nullptr);
    EXPECT_EQ(size, 20U);
    EXPECT_STREQ(file, L"C:\\log\\orva_config.ini");
    keys.emplace_back(key);
    return InMemoryWindows::GetPrivateProfileStringW(section, key, fallback, buffer, size, file);
  }
  std::vector<std::wstring> keys;
};

TEST_F(LogTest, SwitchesAreReadOnceInOrder) {
  auto& reads = use<ProfileReads>();
  switchOn();
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  EXPECT_EQ(reads.keys, (std::vector<std::wstring>{L"Error", L"Warning", L"Debug", L"Info"}));
}

TEST_F(LogTest, InfoAloneSetsEverythingUpButTheModulesOwnLinesStayOut) {
  switchOn(L"C:\\log\\Corvane.log", "Info=1\r\n");
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  WriteLog(LOG_ERROR, "f", 1, L"m");
  EXPECT_EQ(g_logMask, 8U);
  EXPECT_STREQ(g_logPath, L"C:\\log\\Corvane.log");
  EXPECT_NE(g_logSemaphore, nullptr);
  EXPECT_FALSE(windows->exists(L"C:\\log\\Corvane.log"));
}

TEST_F(LogTest, SemaphoreIsNamedAfterTheSectionAndStartsFree) {
  struct Creations : fakes::InMemoryWindows {
    HANDLE CreateSemaphoreW(SECURITY_ATTRIBUTES* security, LONG initial, LONG maximum, LPCWSTR name) override {
      EXPECT_EQ(security, nullptr);
      EXPECT_EQ(initial, 1);
      EXPECT_EQ(maximum, 1);
      EXPECT_STREQ(name, L"OrvaQZ_Corvane");
      return InMemoryWindows::CreateSemaphoreW(security, initial, maximum, name);
    }
  };
  use<Creations>();
  switchOn();
  EXPECT_EQ(windows->countCalls("CreateSemaphoreW"), 1U);
  EXPECT_EQ(windows->semaphoreCount(L"OrvaQZ_Corvane"), 1);
}

TEST_F(LogTest, NullPathOrSectionAsksForNothing) {
  fakes::Windows nothingScripted;
  const fakes::Installed inner(nothingScripted);
  LogInit(nullptr, 0, L"Corvane");
  LogInit(L"C:\\log\\Corvane.log", 0, nullptr);
  EXPECT_TRUE(isOff());
}

TEST_F(LogTest, ReservedArgumentIsNotUsed) {
  writeIni("Debug=1\r\n");
  LogInit(L"C:\\log\\Corvane.log", -1, L"Corvane");
  EXPECT_EQ(g_logMask, 4U);
}

TEST_F(LogTest, PathOf259UnitsIsTakenAndALongerOneLeavesTheLogOff) {
  writeIni("Debug=1\r\n");
  LogInit(std::wstring(260, L'p').c_str(), 0, L"Corvane");
  EXPECT_TRUE(isOff());
  LogInit(std::wstring(259, L'p').c_str(), 0, L"Corvane");
  EXPECT_EQ(g_logPath, std::wstring(259, L'p'));
}

TEST_F(LogTest, SectionThatMakesTheSemaphoresNameTooLongLeavesTheLogOff) {
  const std::wstring longest(252, L's');
  windows->writeFile(L"C:\\log\\orva_config.ini",
                     "[" + std::string(252, 's') + "]\r\nDebug=1\r\n[" + std::string(253, 's') + "]\r\nDebug=1\r\n");
  LogInit(L"C:\\log\\Corvane.log", 0, (longest + L's').c_str());
  EXPECT_TRUE(isOff());
  LogInit(L"C:\\log\\Corvane.log", 0, longest.c_str());
  EXPECT_EQ(windows->semaphoreCount(L"OrvaQZ_" + longest), 1);
}

TEST_F(LogTest, IniFileIsNotReadAgainWhileTheLogIsOn) {
  switchOn(L"C:\\log\\Corvane.log", "Debug=1\r\n");
  writeIni("Debug=0\r\nError=1\r\n");
  WriteLog(LOG_ERROR, "f", 1, L"m");
  WriteLog(LOG_DEBUG, "f", 2, L"m");
  EXPECT_EQ(text(), L"2024-03-07 09:05:03.042 [DBG] [f] [2] m\r\n");
}

}  // namespace
