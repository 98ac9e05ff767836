/// Changing over to a new file.

#include <array>
#include <numeric>

#include "log/LogCases.h"
#include "log/LogTest.h"

namespace {

const std::wstring kLine = L"2024-03-07 09:05:03.042 [DBG] [f] [1] m\r\n";

std::wstring numbered(int number) { return L"C:\\log\\Corvane" + std::to_wstring(number) + L".log"; }

void writeLine() { WriteLog(LOG_DEBUG, "f", 1, L"m"); }

class LogRotation : public LogTest {
 protected:
  /// A log file that has `size` bytes once one more line is in it.
  void fillTo(std::size_t size, const std::wstring& path = L"C:\\log\\Corvane.log") {
    windows->writeFile(path, std::string(size - kLine.size() * sizeof(wchar_t), '\0'));
  }
  void fillAndCross(const std::wstring& path = L"C:\\log\\Corvane.log") {
    fillTo(logcases::kLargestFile + 1, path);
    writeLine();
  }
  /// Files 1 to 10, each with its number in it, created in this order of age: the oldest first.
  void makeAllTen(const std::array<int, 10>& oldestFirst) {
    for (int number = 1; number <= 10; ++number) windows->writeFile(numbered(number), std::to_string(number));
    for (std::size_t age = 0; age < oldestFirst.size(); ++age) {
      windows->setCreationTime(numbered(oldestFirst[age]), 1000 + age);
      windows->setWriteTime(numbered(oldestFirst[age]), 9000 - age);  // the other way round: not what counts
    }
  }
  std::size_t sizeOf(const std::wstring& path) const { return windows->fileBytes(path).value_or("").size(); }
};

constexpr std::array<int, 10> kSeventhIsOldest = {7, 1, 2, 3, 4, 5, 6, 8, 9, 10};

TEST_F(LogRotation, FileOfExactlyTwentyMebibytesStays) {
  switchOn();
  fillTo(logcases::kLargestFile);
  writeLine();
  EXPECT_EQ(sizeOf(L"C:\\log\\Corvane.log"), logcases::kLargestFile);
  EXPECT_FALSE(windows->exists(numbered(1)));
}

TEST_F(LogRotation, LineThatCrossesStaysInTheMovedFileAndTheNextStartsAFreshOne) {
  switchOn();
  fillAndCross();
  EXPECT_FALSE(windows->exists(L"C:\\log\\Corvane.log"));
  ASSERT_EQ(sizeOf(numbered(1)), logcases::kLargestFile + 1);
  EXPECT_EQ(support::decodedUnits(
                windows->fileBytes(numbered(1))->substr(logcases::kLargestFile + 1 - kLine.size() * sizeof(wchar_t))),
            kLine);
  writeLine();
  EXPECT_EQ(text(), kLine);
}

TEST_F(LogRotation, LowestFreeNumberIsTaken) {
  switchOn();
  for (const int number : {1, 2, 4}) windows->writeFile(numbered(number), "kept");
  fillAndCross();
  EXPECT_EQ(sizeOf(numbered(3)), logcases::kLargestFile + 1);
  for (const int number : {1, 2, 4}) EXPECT_EQ(windows->fileBytes(numbered(number)), "kept");
}

TEST_F(LogRotation, TenthNumberIsTheLast) {
  switchOn();
  for (int number = 1; number <= 9; ++number) windows->writeFile(numbered(number), "kept");
  fillAndCross();
  EXPECT_EQ(sizeOf(numbered(10)), logcases::kLargestFile + 1);
  fillAndCross();
  EXPECT_FALSE(windows->exists(numbered(11)));
  EXPECT_EQ(windows->filesIn(L"C:\\log").size(), 11U);  // ten and the ini file
}

TEST_F(LogRotation, WithAllTenTheOldestByCreationIsReplaced) {
  switchOn();
  makeAllTen(kSeventhIsOldest);
  fillAndCross();
  EXPECT_EQ(sizeOf(numbered(7)), logcases::kLargestFile + 1);
  for (const int number : {1, 2, 3, 4, 5, 6, 8, 9, 10}) EXPECT_EQ(windows->fileBytes(numbered(number)), std::to_string(number));
}

TEST_F(LogRotation, AmongEquallyOldTheLowestNumberIsReplaced) {
  switchOn();
  makeAllTen(kSeventhIsOldest);
  for (const int number : {9, 7, 4}) windows->setCreationTime(numbered(number), 5);
  fillAndCross();
  EXPECT_EQ(sizeOf(numbered(4)), logcases::kLargestFile + 1);
}

TEST_F(LogRotation, TimesAreComparedAsUnsigned64BitValues) {
  struct {
    std::uint64_t third, others;
  } const cases[] = {
      {0x7FFFFFFFFFFFFFFF, 0x8000000000000000},  // signed, the others would be older
      {0x00000001FFFFFFFF, 0x0000000200000000},  // by their low halves alone, the others would be older
  };
  switchOn();
  for (const auto& [third, others] : cases) {
    makeAllTen(kSeventhIsOldest);
    for (int number = 1; number <= 10; ++number) windows->setCreationTime(numbered(number), number == 3 ? third : others);
    fillAndCross();
    EXPECT_EQ(sizeOf(numbered(3)), logcases::kLargestFile + 1);
  }
}

TEST_F(LogRotation, CandidateWhoseAttributesCannotBeReadCountsAsTheOldest) {
  struct Unreadable : fakes::InMemoryWindows {
    BOOL GetFileAttributesExW(LPCWSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data) override {
      return path != numbered(5) && InMemoryWindows::GetFileAttributesExW(path, level, data) != FALSE;
    }
  };
  use<Unreadable>();
  switchOn();
  makeAllTen(kSeventhIsOldest);
  fillAndCross();
  EXPECT_EQ(sizeOf(numbered(5)), logcases::kLargestFile + 1);
}

struct RenameDenied : fakes::InMemoryWindows {
  BOOL MoveFileW(LPCWSTR, LPCWSTR) override {
    ++attempts;
    return FALSE;
  }
  int attempts = 0;
};

TEST_F(LogRotation, RenameDeniedKeepsWritingAndLosesNoLine) {
  auto& platform = use<RenameDenied>();
  switchOn();
  fillAndCross();
  writeLine();
  EXPECT_EQ(sizeOf(L"C:\\log\\Corvane.log"), logcases::kLargestFile + 1 + kLine.size() * sizeof(wchar_t));
  EXPECT_EQ(platform.attempts, 2 * 11);
  EXPECT_EQ(windows->semaphoreCount(L"OrvaQZ_Corvane"), 1);
}

TEST_F(LogRotation, DeleteDeniedKeepsWritingAndLosesNoLine) {
  switchOn();
  makeAllTen(kSeventhIsOldest);
  const HANDLE reader = ::CreateFileW(numbered(7).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_ALWAYS, 0, nullptr);
  fillAndCross();
  writeLine();
  ::CloseHandle(reader);
  EXPECT_EQ(sizeOf(L"C:\\log\\Corvane.log"), logcases::kLargestFile + 1 + kLine.size() * sizeof(wchar_t));
  EXPECT_EQ(windows->fileBytes(numbered(7)), "7");
}

TEST_F(LogRotation, ReaderOfTheFullFilePutsRotationOff) {
  switchOn();
  fillTo(logcases::kLargestFile + 1);
  const HANDLE reader = ::CreateFileW(L"C:\\log\\Corvane.log", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_ALWAYS, 0, nullptr);
  writeLine();
  EXPECT_TRUE(windows->exists(L"C:\\log\\Corvane.log"));
  ::CloseHandle(reader);
  writeLine();
  EXPECT_EQ(sizeOf(numbered(1)), logcases::kLargestFile + 1 + kLine.size() * sizeof(wchar_t));
}

TEST_F(LogRotation, SemaphoreIsReleasedOnceOnEveryPath) {
  switchOn();
  fillAndCross();  // moved at the first try
  makeAllTen(kSeventhIsOldest);
  fillAndCross();  // moved in place of the oldest
  EXPECT_EQ(windows->countCalls("WaitForSingleObject"), 2U);
  EXPECT_EQ(windows->countCalls("ReleaseSemaphore"), 2U);
  EXPECT_EQ(windows->calls().back(), "ReleaseSemaphore");
}

TEST_F(LogRotation, PathWithoutLogAtItsEndLosesItsLastFourUnits) {
  switchOn(L"C:\\log\\Corvane.text");
  fillAndCross(L"C:\\log\\Corvane.text");
  EXPECT_EQ(sizeOf(L"C:\\log\\Corvane.1.log"), logcases::kLargestFile + 1);
}

std::wstring pathOf(std::size_t units) { return L"C:\\log\\" + std::wstring(units - 11, L'p') + L".log"; }

TEST_F(LogRotation, PathWithRoomForOneDigitRotatesAmongNineFiles) {
  const std::wstring path = pathOf(258);
  const std::wstring stem = path.substr(0, 254);
  switchOn(path.c_str());
  for (int number = 1; number <= 9; ++number) windows->writeFile(stem + std::to_wstring(number) + L".log", "kept");
  windows->setCreationTime(stem + L"6.log", 0);
  fillAndCross(path);
  EXPECT_EQ(sizeOf(stem + L"6.log"), logcases::kLargestFile + 1);
  EXPECT_EQ(windows->filesIn(L"C:\\log").size(), 10U);  // nine and the ini file
}

TEST_F(LogRotation, PathWithoutRoomForANumberGrowsOn) {
  const std::wstring path = pathOf(259);
  switchOn(path.c_str());
  fillAndCross(path);
  writeLine();
  EXPECT_EQ(sizeOf(path), logcases::kLargestFile + 1 + kLine.size() * sizeof(wchar_t));
  EXPECT_EQ(windows->countCalls("MoveFileW"), 0U);
  EXPECT_EQ(windows->countCalls("DeleteFileW"), 0U);
}

TEST_F(LogRotation, PathShorterThanAnExtensionGrowsOn) {
  windows->makeFolder(L"");
  switchOn(L"\\ab");
  fillAndCross(L"\\ab");
  EXPECT_EQ(sizeOf(L"\\ab"), logcases::kLargestFile + 1);
  EXPECT_EQ(windows->countCalls("MoveFileW"), 0U);
}

}  // namespace
