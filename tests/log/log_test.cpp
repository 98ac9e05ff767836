/// The line: its fields, and when there is none.

#include "log/Log.h"

#include <cstring>
#include <limits>
#include <vector>

#include "log/LogCases.h"
#include "log/LogTest.h"

namespace {

const std::wstring kTime = L"2024-03-07 09:05:03.042 ";

TEST_F(LogTest, LineHasItsFieldsInOrderAndNoByteOrderMark) {
  switchOn();
  WriteLog(LOG_DEBUG, "DllMain", 264, L"App Communication DLL Attach.");
  EXPECT_EQ(text(), L"2024-03-07 09:05:03.042 [DBG] [DllMain] [264] App Communication DLL Attach.\r\n");
}

TEST_F(LogTest, TimeFieldsArePaddedExceptTheYearAndTheDayOfTheWeekIsNotUsed) {
  switchOn();
  windows->setLocalTime(SYSTEMTIME{987, 1, 6, 2, 3, 4, 5, 6});
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  EXPECT_EQ(text(), L"987-01-02 03:04:05.006 [DBG] [f] [1] m\r\n");
}

TEST_F(LogTest, WidestTimeIsWrittenWhole) {
  switchOn();
  windows->setLocalTime(SYSTEMTIME{65535, 12, 6, 31, 23, 59, 59, 999});
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  EXPECT_EQ(text(), L"65535-12-31 23:59:59.999 [DBG] [f] [1] m\r\n");
}

TEST_F(LogTest, TagFollowsTheLevel) {
  switchOn();
  for (const std::uint32_t level : {LOG_ERROR, LOG_WARNING, LOG_DEBUG, LOG_INFO}) WriteLog(level, "f", 1, L"m");
  EXPECT_EQ(text(), kTime + L"[ERR] [f] [1] m\r\n" + kTime + L"[WRN] [f] [1] m\r\n" + kTime + L"[DBG] [f] [1] m\r\n" + kTime +
                        L"[INF] [f] [1] m\r\n");
}

TEST_F(LogTest, OnlyTheFourExactLevelsWrite) {
  switchOn();
  g_logMask = std::numeric_limits<std::uint32_t>::max();
  for (const std::uint32_t level : {0U, 3U, 5U, 6U, 7U, 9U, 10U, 12U, 15U, 16U, 17U, 0x80000001U, 0xFFFFFFFFU}) {
    WriteLog(level, "f", 1, L"m");
  }
  EXPECT_FALSE(windows->exists(L"C:\\log\\Corvane.log"));
}

TEST_F(LogTest, DisabledLevelAsksForNothingAndReadsNoArgument) {
  fakes::Windows nothingScripted;
  const fakes::Installed inner(nothingScripted);
  g_logMask = LOG_ERROR | LOG_INFO;
  WriteLog(LOG_DEBUG, nullptr, 1, nullptr);
  WriteLog(LOG_WARNING, nullptr, 1, nullptr);
  g_logMask = 0;
  WriteLog(LOG_ERROR, nullptr, 1, nullptr);
}

TEST_F(LogTest, ErrorAloneWritesOnlyErrors) {
  switchOn(L"C:\\log\\Corvane.log", "Error=1\r\n");
  for (const std::uint32_t level : {LOG_ERROR, LOG_WARNING, LOG_DEBUG, LOG_INFO}) WriteLog(level, "f", 1, L"m");
  EXPECT_EQ(text(), kTime + L"[ERR] [f] [1] m\r\n");
}

TEST_F(LogTest, DebugAloneWritesOnlyDebugLines) {
  switchOn(L"C:\\log\\Corvane.log", "Debug=1\r\n");
  for (const std::uint32_t level : {LOG_ERROR, LOG_WARNING, LOG_DEBUG, LOG_INFO}) WriteLog(level, "f", 1, L"m");
  EXPECT_EQ(text(), kTime + L"[DBG] [f] [1] m\r\n");
}

TEST_F(LogTest, LineNumberIsSigned) {
  switchOn();
  WriteLog(LOG_DEBUG, "f", std::numeric_limits<std::int32_t>::min(), L"m");
  WriteLog(LOG_DEBUG, "f", std::numeric_limits<std::int32_t>::max(), L"m");
  EXPECT_EQ(text(), kTime + L"[DBG] [f] [-2147483648] m\r\n" + kTime + L"[DBG] [f] [2147483647] m\r\n");
}

TEST_F(LogTest, MessageIsFormattedWithItsArguments) {
  switchOn();
  WriteLog(LOG_DEBUG, "f", 1, L"uid: %ws, %d, %ld, 100%%.", L"100%d", -3, -600000L);
  EXPECT_EQ(text(), kTime + L"[DBG] [f] [1] uid: 100%d, -3, -600000, 100%.\r\n");
}

TEST_F(LogTest, EmptyMessageWritesNothing) {
  switchOn();
  WriteLog(LOG_DEBUG, "f", 1, L"");
  WriteLog(LOG_DEBUG, "f", 1, L"%ws", L"");
  EXPECT_FALSE(windows->exists(L"C:\\log\\Corvane.log"));
}

TEST_F(LogTest, LineEndIsAddedUnlessTheMessageBringsIt) {
  struct {
    const wchar_t* message;
    const wchar_t* written;
  } const cases[] = {
      {L"m", L"m\r\n"},     {L"m\r\n", L"m\r\n"}, {L"\r\n", L"\r\n"},         {L"m\n", L"m\n\r\n"},
      {L"m\r", L"m\r\r\n"}, {L"\n", L"\n\r\n"},   {L"m\r\nm", L"m\r\nm\r\n"}, {L"m\n\r", L"m\n\r\r\n"},
  };
  switchOn();
  std::wstring expected;
  for (const auto& test : cases) {
    WriteLog(LOG_DEBUG, "f", 1, L"%ws", test.message);
    expected += kTime + L"[DBG] [f] [1] " + test.written;
  }
  EXPECT_EQ(text(), expected);
}

TEST_F(LogTest, LineThatReaches1022UnitsIsDroppedWhole) {
  switchOn();
  std::wstring expected;
  for (const auto& [end, written] : logcases::kEnds) {
    const std::wstring message = logcases::messageTo(end);
    WriteLog(LOG_DEBUG, "f", 1, L"%ws", message.c_str());
    if (written) expected += kTime + L"[DBG] [f] [1] " + message + L"\r\n";
    EXPECT_EQ(text(), expected) << "message ends at " << end;
  }
}

TEST_F(LogTest, LineThatReaches1022UnitsIsDroppedEvenWithItsOwnLineEnd) {
  switchOn();
  std::wstring expected;
  for (const auto& [end, written] : logcases::kEnds) {
    if (end < 42) continue;
    const std::wstring message = logcases::messageTo(end, L"\r\n");
    WriteLog(LOG_DEBUG, "f", 1, L"%ws", message.c_str());
    if (written) expected += kTime + L"[DBG] [f] [1] " + message;
    EXPECT_EQ(text(), expected) << "message ends at " << end;
  }
}

TEST_F(LogTest, FunctionNameIsCutTo127Units) {
  switchOn();
  for (const std::size_t length : {1U, 126U, 127U, 128U, 129U, 900U, 5000U}) {
    windows->DeleteFileW(L"C:\\log\\Corvane.log");
    WriteLog(LOG_DEBUG, std::string(length, 'n').c_str(), 1, L"m");
    EXPECT_EQ(text(), kTime + L"[DBG] [" + std::wstring(std::min<std::size_t>(length, 127), L'n') + L"] [1] m\r\n");
  }
}

TEST_F(LogTest, EmptyFunctionNameGivesEmptyBrackets) {
  switchOn();
  WriteLog(LOG_DEBUG, "", 1, L"m");
  EXPECT_EQ(text(), kTime + L"[DBG] [] [1] m\r\n");
}

TEST_F(LogTest, ShortFunctionNameShowsNothingOfALongerOneBefore) {
  switchOn();
  WriteLog(LOG_DEBUG, std::string(127, 'n').c_str(), 1, L"m");
  windows->DeleteFileW(L"C:\\log\\Corvane.log");
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  EXPECT_EQ(text(), kTime + L"[DBG] [f] [1] m\r\n");
}

class NameConversions : public fakes::InMemoryWindows {
 public:
  struct Call {
    UINT codePage;
    DWORD flags;
    int bytes;
    bool measures;
    int units;
    bool operator==(const Call&) const = default;
  };

  int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR source, int bytes, LPWSTR target, int units) override {
    made.push_back({codePage, flags, bytes, target == nullptr, units});
    return InMemoryWindows::MultiByteToWideChar(codePage, flags, source, bytes, target, units);
  }

  std::vector<Call> made;
};

TEST_F(LogTest, FunctionNameIsConvertedWithItsMeasuredLength) {
  auto& conversions = use<NameConversions>();
  switchOn();
  WriteLog(LOG_DEBUG, "DllMain", 1, L"m");
  EXPECT_EQ(conversions.made, (std::vector<NameConversions::Call>{{CP_ACP, 0, 7, true, 0}, {CP_ACP, 0, 7, false, 7}}));
}

TEST_F(LogTest, FunctionNameThatThePlatformCannotConvertGivesEmptyBrackets) {
  struct NoConversion : fakes::InMemoryWindows {
    int MultiByteToWideChar(UINT, DWORD, LPCSTR, int, LPWSTR, int) override { return 0; }
  };
  use<NoConversion>();
  switchOn();
  WriteLog(LOG_DEBUG, "f", 1, L"m");
  EXPECT_EQ(text(), kTime + L"[DBG] [] [1] m\r\n");
}

}  // namespace
