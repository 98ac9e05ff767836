/// Writing the finished line, and what is lost when the platform fails.

#include <string_view>
#include <thread>
#include <vector>

#include "log/LogTest.h"

namespace {

constexpr const wchar_t* kLog = L"C:\\log\\Corvane.log";
const std::wstring kLine = L"2024-03-07 09:05:03.042 [DBG] [f] [1] m\r\n";

void writeLine() { WriteLog(LOG_DEBUG, "f", 1, L"m"); }

TEST_F(LogTest, LineIsWrittenAtTheEndUnderTheSemaphore) {
  switchOn();
  const std::size_t before = windows->calls().size();
  writeLine();
  const auto calls = windows->calls();
  const std::vector<std::string_view> appending(calls.begin() + static_cast<std::ptrdiff_t>(before), calls.end());
  EXPECT_EQ(appending, (std::vector<std::string_view>{"GetLocalTime", "MultiByteToWideChar", "MultiByteToWideChar",
                                                      "WaitForSingleObject", "CreateFileW", "SetFilePointer", "WriteFile",
                                                      "GetFileSizeEx", "CloseHandle", "ReleaseSemaphore"}));
}

TEST_F(LogTest, FileIsOpenedForWritingAndSharedWithReadersAndWriters) {
  struct Opens : fakes::InMemoryWindows {
    HANDLE CreateFileW(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security, DWORD disposition,
                       DWORD attributes, HANDLE pattern) override {
      EXPECT_STREQ(path, kLog);
      EXPECT_EQ(access, GENERIC_WRITE);
      EXPECT_EQ(share, FILE_SHARE_READ | FILE_SHARE_WRITE);
      EXPECT_EQ(security, nullptr);
      EXPECT_EQ(disposition, OPEN_ALWAYS);
      EXPECT_EQ(attributes, FILE_ATTRIBUTE_NORMAL);
      EXPECT_EQ(pattern, nullptr);
      return InMemoryWindows::CreateFileW(path, access, share, security, disposition, attributes, pattern);
    }
    DWORD SetFilePointer(HANDLE file, LONG distance, PLONG distanceHigh, DWORD method) override {
      EXPECT_EQ(distance, 0);
      EXPECT_EQ(distanceHigh, nullptr);
      EXPECT_EQ(method, FILE_END);
      return InMemoryWindows::SetFilePointer(file, distance, distanceHigh, method);
    }
  };
  use<Opens>();
  switchOn();
  writeLine();
  EXPECT_EQ(windows->countCalls("CreateFileW"), 1U);
  EXPECT_EQ(windows->countCalls("SetFilePointer"), 1U);
}

TEST_F(LogTest, AppendWritesExactlyTheBytesItIsGiven) {
  switchOn();
  LogAppend(L"abcdef", 4);
  EXPECT_EQ(windows->fileBytes(kLog)->size(), 4U);
}

TEST_F(LogTest, LinesFollowWhatIsInTheFile) {
  switchOn();
  writeLine();
  writeLine();
  EXPECT_EQ(text(), kLine + kLine);
}

TEST_F(LogTest, WriterThatHoldsTheFileOpenIsNoObstacle) {
  switchOn();
  const HANDLE other = ::CreateFileW(kLog, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                     FILE_ATTRIBUTE_NORMAL, nullptr);
  writeLine();
  ::CloseHandle(other);
  EXPECT_EQ(text(), kLine);
}

TEST_F(LogTest, DeniedOpenLosesTheLineAndReleasesTheSemaphore) {
  switchOn();
  const HANDLE holder = ::CreateFileW(kLog, GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  writeLine();
  EXPECT_EQ(windows->semaphoreCount(L"OrvaQZ_Corvane"), 1);
  EXPECT_EQ(windows->countCalls("WriteFile"), 0U);
  ::CloseHandle(holder);
  writeLine();
  EXPECT_EQ(text(), kLine);
}

TEST_F(LogTest, FolderThatVanishesLosesTheLineAndIsNotMadeAgain) {
  switchOn();
  writeLine();
  windows->removeFolder(L"C:\\log");
  writeLine();
  EXPECT_EQ(windows->semaphoreCount(L"OrvaQZ_Corvane"), 1);
  EXPECT_TRUE(windows->filesIn(L"C:\\log").empty());
  windows->makeFolder(L"C:\\log");
  writeLine();
  EXPECT_EQ(text(), kLine);
}

struct ShortWrite : fakes::InMemoryWindows {
  BOOL WriteFile(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD written, OVERLAPPED* overlapped) override {
    return InMemoryWindows::WriteFile(file, bytes, full ? count / 2 : count, written, overlapped) != FALSE && !full;
  }
  bool full = false;
};

TEST_F(LogTest, ShortWriteDamagesOnlyItsOwnLine) {
  auto& disk = use<ShortWrite>();
  switchOn();
  disk.full = true;
  writeLine();
  const std::size_t half = windows->fileBytes(kLog)->size();
  disk.full = false;
  writeLine();
  EXPECT_EQ(half, kLine.size() * sizeof(wchar_t) / 2);
  EXPECT_EQ(support::decodedUnits(windows->fileBytes(kLog)->substr(half)), kLine);
}

TEST_F(LogTest, UnknownSizeIsNoReasonToRotate) {
  struct NoSize : fakes::InMemoryWindows {
    BOOL GetFileSizeEx(HANDLE, LARGE_INTEGER*) override { return FALSE; }
  };
  use<NoSize>();
  switchOn();
  writeLine();
  EXPECT_EQ(text(), kLine);
  EXPECT_EQ(windows->countCalls("MoveFileW"), 0U);
}

TEST_F(LogTest, FailedSeekLosesTheLineAndNoOther) {
  struct Seeks : fakes::InMemoryWindows {
    DWORD SetFilePointer(HANDLE file, LONG distance, PLONG distanceHigh, DWORD method) override {
      if (fails) return INVALID_SET_FILE_POINTER;
      return InMemoryWindows::SetFilePointer(file, distance, distanceHigh, method);
    }
    bool fails = false;
  };
  auto& seeks = use<Seeks>();
  switchOn();
  writeLine();
  seeks.fails = true;
  WriteLog(LOG_DEBUG, "f", 2, L"m");
  seeks.fails = false;
  writeLine();
  EXPECT_EQ(text(), kLine + kLine);
}

TEST_F(LogTest, SemaphoreThatCannotBeMadeLeavesTheLogUnserialised) {
  struct NoSemaphore : fakes::InMemoryWindows {
    HANDLE CreateSemaphoreW(SECURITY_ATTRIBUTES*, LONG, LONG, LPCWSTR) override { return nullptr; }
  };
  use<NoSemaphore>();
  switchOn();
  writeLine();
  EXPECT_EQ(text(), kLine);
  EXPECT_EQ(windows->countCalls("WaitForSingleObject"), 0U);
  EXPECT_EQ(windows->countCalls("ReleaseSemaphore"), 0U);
}

TEST_F(LogTest, SemaphoreIsWaitedForAtMostTwoSeconds) {
  struct Waits : fakes::InMemoryWindows {
    DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds) override {
      EXPECT_EQ(handle, g_logSemaphore);
      EXPECT_EQ(milliseconds, 2000U);
      return InMemoryWindows::WaitForSingleObject(handle, milliseconds);
    }
  };
  use<Waits>();
  switchOn();
  writeLine();
  EXPECT_EQ(windows->countCalls("WaitForSingleObject"), 1U);
}

TEST_F(LogTest, TimedOutWaitWritesTheLineAndReleasesOnceAllTheSame) {
  switchOn();
  windows->expireWaits();
  ::WaitForSingleObject(g_logSemaphore, 0);
  writeLine();
  EXPECT_EQ(text(), kLine);
  EXPECT_EQ(windows->countCalls("ReleaseSemaphore"), 1U);
  EXPECT_EQ(windows->semaphoreCount(L"OrvaQZ_Corvane"), 1);
}

TEST_F(LogTest, FailedWaitWritesTheLineAndReleasesOnceAllTheSame) {
  struct FailedWait : fakes::InMemoryWindows {
    DWORD WaitForSingleObject(HANDLE, DWORD) override { return WAIT_FAILED; }
  };
  use<FailedWait>();
  switchOn();
  writeLine();
  EXPECT_EQ(text(), kLine);
  EXPECT_EQ(windows->countCalls("ReleaseSemaphore"), 1U);
}

TEST_F(LogTest, ThreadsLoseNoLineAndMixNone) {
  constexpr int kThreads = 4;
  constexpr int kLines = 250;
  switchOn();
  std::vector<std::thread> writers;
  for (int writer = 1; writer <= kThreads; ++writer) {
    writers.emplace_back([writer] {
      for (int line = 1; line <= kLines; ++line) WriteLog(LOG_DEBUG, "writer", writer, L"%d", line);
    });
  }
  for (auto& writer : writers) writer.join();

  std::vector<int> last(kThreads + 1, 0);
  for (const auto& line : support::LogLines(*windows).all()) {
    ASSERT_TRUE(line.number >= 1 && line.number <= kThreads);
    EXPECT_EQ(line.message, std::to_wstring(++last[static_cast<std::size_t>(line.number)]));
  }
  EXPECT_EQ(last, (std::vector<int>{0, kLines, kLines, kLines, kLines}));
}

}  // namespace
