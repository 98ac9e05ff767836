/// The log on the real platform, one process.

#include <algorithm>
#include <chrono>

#include "log/LogCases.h"
#include "log/LogWindowsTest.h"

namespace {

TEST_F(LogOnWindows, LineOnDiskIsLittleEndianUtf16WithoutAByteOrderMark) {
  switchOn();
  WriteLog(LOG_DEBUG, "DllMain", 264, L"uid: %ws.", L"\u00e9\u20ac\U0001f5a8");
  EXPECT_EQ(line(), L"[DBG] [DllMain] [264] uid: \u00e9\u20ac\U0001f5a8.\r\n");
  const std::string raw = bytes();
  EXPECT_EQ(raw.substr(raw.size() - 4), std::string("\r\0\n\0", 4));
  EXPECT_EQ(raw[1], '\0');
  EXPECT_EQ(raw.substr(0, 2), std::string("2\0", 2));
}

TEST_F(LogOnWindows, TimeHasItsFixedForm) {
  switchOn();
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  const std::wstring form = L"dddd-dd-dd dd:dd:dd.ddd ";
  const std::wstring time = text().substr(0, form.size());
  EXPECT_TRUE(std::equal(time.begin(), time.end(), form.begin(), form.end(), [](wchar_t unit, wchar_t wanted) {
    return wanted == L'd' ? unit >= L'0' && unit <= L'9' : unit == wanted;
  })) << testing::PrintToString(time);
}

TEST_F(LogOnWindows, OnlyExactlyOneSwitchesOn) {
  for (const auto& [name, value, on] : logcases::kSwitches) {
    writeIni(std::string("Key=") + value + "\r\n");
    EXPECT_EQ(LogSwitchOn(L"Corvane", L"Key"), on) << name;
  }
}

TEST_F(LogOnWindows, WithoutAnIniFileNothingIsCreated) {
  LogInit(L"C:\\log\\Corvane.log", 0, L"Corvane");
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  EXPECT_EQ(g_logMask, 0U);
  EXPECT_EQ(g_logSemaphore, nullptr);
  EXPECT_TRUE(std::filesystem::is_empty(kFolder));
}

TEST_F(LogOnWindows, WithoutTheFolderNothingIsCreated) {
  std::filesystem::remove_all(kFolder);
  LogInit(L"C:\\log\\Corvane.log", 0, L"Corvane");
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  EXPECT_FALSE(std::filesystem::exists(kFolder));
}

TEST_F(LogOnWindows, FolderThatVanishesLosesTheLine) {
  switchOn();
  std::filesystem::remove_all(kFolder);
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  EXPECT_FALSE(std::filesystem::exists(kFolder));
  EXPECT_EQ(::WaitForSingleObject(g_logSemaphore, 0), WAIT_OBJECT_0);
}

TEST_F(LogOnWindows, LineThatReaches1022UnitsIsDroppedWhole) {
  switchOn();
  for (const auto& [end, written] : logcases::kEnds) {
    std::filesystem::remove(kFolder / L"Corvane.log");
    const std::wstring message = logcases::messageTo(end);
    WriteLog(LOG_DEBUG, "f", 1, L"%ws", message.c_str());
    EXPECT_EQ(line(), written ? L"[DBG] [f] [1] " + message + L"\r\n" : L"") << "message ends at " << end;
  }
}

TEST_F(LogOnWindows, LineThatReaches1022UnitsIsDroppedEvenWithItsOwnLineEnd) {
  switchOn();
  for (const auto& [end, written] : logcases::kEnds) {
    if (end < 42) continue;
    std::filesystem::remove(kFolder / L"Corvane.log");
    const std::wstring message = logcases::messageTo(end, L"\r\n");
    WriteLog(LOG_DEBUG, "f", 1, L"%ws", message.c_str());
    EXPECT_EQ(line(), written ? L"[DBG] [f] [1] " + message : L"") << "message ends at " << end;
  }
}

TEST_F(LogOnWindows, FunctionNameIsCutTo127Units) {
  switchOn();
  for (const std::size_t length : {0U, 1U, 127U, 128U, 5000U}) {
    std::filesystem::remove(kFolder / L"Corvane.log");
    WriteLog(LOG_DEBUG, std::string(length, 'n').c_str(), 1, L"m");
    EXPECT_EQ(line(), L"[DBG] [" + std::wstring(std::min<std::size_t>(length, 127), L'n') + L"] [1] m\r\n");
  }
}

TEST_F(LogOnWindows, DeniedOpenLosesTheLineAndReleasesTheSemaphore) {
  switchOn();
  const HANDLE holder =
      ::CreateFileW((kFolder / L"Corvane.log").c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  WriteLog(LOG_DEBUG, "f", 1, L"lost");
  ::CloseHandle(holder);
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  EXPECT_EQ(line(), L"[DBG] [f] [1] m\r\n");
  EXPECT_EQ(::WaitForSingleObject(g_logSemaphore, 0), WAIT_OBJECT_0);
}

TEST_F(LogOnWindows, WriterThatHoldsTheFileOpenIsNoObstacle) {
  switchOn();
  const HANDLE other = ::CreateFileW((kFolder / L"Corvane.log").c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                     nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  ::CloseHandle(other);
  EXPECT_EQ(line(), L"[DBG] [f] [1] m\r\n");
}

TEST_F(LogOnWindows, FileOfExactlyTwentyMebibytesStaysAndTheNextLineMovesIt) {
  switchOn();
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  const std::size_t lineBytes = bytes().size();
  writeBytes(L"Corvane.log", std::string(logcases::kLargestFile - lineBytes, '\0'));
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  EXPECT_EQ(bytes().size(), logcases::kLargestFile);
  EXPECT_FALSE(exists(L"Corvane1.log"));

  WriteLog(LOG_DEBUG, "f", 1, L"crosses");
  EXPECT_FALSE(exists(L"Corvane.log"));
  const std::wstring moved = text(L"Corvane1.log");
  const std::wstring crossing = L"[DBG] [f] [1] crosses\r\n";
  EXPECT_EQ(moved.substr(moved.size() - crossing.size()), crossing);

  WriteLog(LOG_DEBUG, "f", 1, L"fresh");
  EXPECT_EQ(line(), L"[DBG] [f] [1] fresh\r\n");
}

// The write times are set, since there are platforms that take the creation time from them.
TEST_F(LogOnWindows, WithAllTenTheOldestIsReplaced) {
  switchOn();
  for (int number = 1; number <= 10; ++number) {
    const std::wstring name = L"Corvane" + std::to_wstring(number) + L".log";
    writeBytes(name, "kept");
    const HANDLE file = ::CreateFileW((kFolder / name).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    const FILETIME time{0, static_cast<DWORD>(0x01DA0000 + (number == 7 ? 0 : number))};
    EXPECT_TRUE(::SetFileTime(file, &time, nullptr, &time));
    ::CloseHandle(file);
  }
  writeBytes(L"Corvane.log", std::string(logcases::kLargestFile, '\0'));
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  EXPECT_GT(bytes(L"Corvane7.log").size(), logcases::kLargestFile);
  EXPECT_FALSE(exists(L"Corvane.log"));
  for (const int number : {1, 2, 3, 4, 5, 6, 8, 9, 10}) {
    EXPECT_EQ(bytes(L"Corvane" + std::to_wstring(number) + L".log"), "kept");
  }
}

}  // namespace
