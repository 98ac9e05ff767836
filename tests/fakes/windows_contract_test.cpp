#include "fakes/WindowsContractTest.h"

namespace {

BOOL append(HANDLE file, const std::string& bytes) {
  DWORD written = 0;
  ::SetFilePointer(file, 0, nullptr, FILE_END);
  return ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != FALSE &&
         written == bytes.size();
}

std::uint64_t asNumber(const FILETIME& time) { return (std::uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime; }

TEST_F(WindowsContract, OpeningMakesAMissingFile) {
  const HANDLE file = open(path(L"new.log"));
  ASSERT_NE(file, INVALID_HANDLE_VALUE);
  EXPECT_TRUE(::CloseHandle(file));
  EXPECT_EQ(platform->fileBytes(path(L"new.log")), "");
}

TEST_F(WindowsContract, OpeningKeepsWhatIsInTheFile) {
  platform->writeFile(path(L"old.log"), "old");
  ::CloseHandle(open(path(L"old.log")));
  EXPECT_EQ(platform->fileBytes(path(L"old.log")), "old");
}

TEST_F(WindowsContract, OpeningInAMissingFolderFails) { EXPECT_EQ(open(path(L"missing\\new.log")), INVALID_HANDLE_VALUE); }

TEST_F(WindowsContract, OpeningAFolderFails) {
  platform->makeFolder(path(L"folder"));
  EXPECT_EQ(open(path(L"folder")), INVALID_HANDLE_VALUE);
}

TEST_F(WindowsContract, PathsAreTheSameInAnyCase) {
  platform->writeFile(path(L"Mixed.log"), "12");
  const HANDLE file = open(path(L"mIXED.LOG"));
  LARGE_INTEGER size{};
  EXPECT_TRUE(::GetFileSizeEx(file, &size));
  EXPECT_EQ(size.QuadPart, 2);
  ::CloseHandle(file);
}

TEST_F(WindowsContract, WritingAtTheStartReplaces) {
  platform->writeFile(path(L"a.log"), "abcd");
  const HANDLE file = open(path(L"a.log"));
  DWORD written = 0;
  EXPECT_TRUE(::WriteFile(file, "XY", 2, &written, nullptr));
  EXPECT_EQ(written, 2U);
  ::CloseHandle(file);
  EXPECT_EQ(platform->fileBytes(path(L"a.log")), "XYcd");
}

TEST_F(WindowsContract, WritingAtTheEndAppends) {
  platform->writeFile(path(L"a.log"), "abcd");
  const HANDLE file = open(path(L"a.log"));
  EXPECT_EQ(::SetFilePointer(file, 0, nullptr, FILE_END), 4U);
  EXPECT_TRUE(append(file, "XY"));
  LARGE_INTEGER size{};
  EXPECT_TRUE(::GetFileSizeEx(file, &size));
  EXPECT_EQ(size.QuadPart, 6);
  ::CloseHandle(file);
  EXPECT_EQ(platform->fileBytes(path(L"a.log")), "abcdXY");
}

TEST_F(WindowsContract, TwoHandlesThatShareEverythingSeeEachOthersBytes) {
  const HANDLE one = open(path(L"a.log"));
  const HANDLE other = open(path(L"a.log"));
  EXPECT_TRUE(append(one, "1"));
  EXPECT_TRUE(append(other, "2"));
  EXPECT_TRUE(append(one, "3"));
  ::CloseHandle(one);
  ::CloseHandle(other);
  EXPECT_EQ(platform->fileBytes(path(L"a.log")), "123");
}

TEST_F(WindowsContract, AHandleThatSharesNothingShutsOthersOut) {
  const HANDLE holder = open(path(L"a.log"), 0);
  EXPECT_EQ(open(path(L"a.log")), INVALID_HANDLE_VALUE);
  ::CloseHandle(holder);
  const HANDLE later = open(path(L"a.log"));
  EXPECT_NE(later, INVALID_HANDLE_VALUE);
  ::CloseHandle(later);
}

TEST_F(WindowsContract, ANewcomerMustShareWithTheHolder) {
  const HANDLE holder = open(path(L"a.log"));
  EXPECT_EQ(open(path(L"a.log"), FILE_SHARE_READ), INVALID_HANDLE_VALUE);
  ::CloseHandle(holder);
}

TEST_F(WindowsContract, AHandleClosesOnce) {
  const HANDLE file = open(path(L"a.log"));
  EXPECT_TRUE(::CloseHandle(file));
  EXPECT_FALSE(::CloseHandle(file));
}

TEST_F(WindowsContract, MovingMovesTheBytes) {
  platform->writeFile(path(L"a.log"), "abcd");
  EXPECT_TRUE(::MoveFileW(path(L"a.log").c_str(), path(L"a1.log").c_str()));
  EXPECT_FALSE(platform->exists(path(L"a.log")));
  EXPECT_EQ(platform->fileBytes(path(L"a1.log")), "abcd");
}

TEST_F(WindowsContract, MovingOntoAnExistingNameFailsAndChangesNothing) {
  platform->writeFile(path(L"a.log"), "abcd");
  platform->writeFile(path(L"a1.log"), "1");
  EXPECT_FALSE(::MoveFileW(path(L"a.log").c_str(), path(L"a1.log").c_str()));
  EXPECT_EQ(platform->fileBytes(path(L"a.log")), "abcd");
  EXPECT_EQ(platform->fileBytes(path(L"a1.log")), "1");
}

TEST_F(WindowsContract, MovingAMissingOrAnOpenFileOrIntoAMissingFolderFails) {
  EXPECT_FALSE(::MoveFileW(path(L"a.log").c_str(), path(L"a1.log").c_str()));
  platform->writeFile(path(L"a.log"), "abcd");
  EXPECT_FALSE(::MoveFileW(path(L"a.log").c_str(), path(L"missing\\a1.log").c_str()));
  const HANDLE file = open(path(L"a.log"));
  EXPECT_FALSE(::MoveFileW(path(L"a.log").c_str(), path(L"a1.log").c_str()));
  ::CloseHandle(file);
}

TEST_F(WindowsContract, DeletingRemovesAFileThatNobodyHasOpen) {
  EXPECT_FALSE(::DeleteFileW(path(L"a.log").c_str()));
  const HANDLE file = open(path(L"a.log"));
  EXPECT_FALSE(::DeleteFileW(path(L"a.log").c_str()));
  ::CloseHandle(file);
  EXPECT_TRUE(::DeleteFileW(path(L"a.log").c_str()));
  EXPECT_FALSE(platform->exists(path(L"a.log")));
}

TEST_F(WindowsContract, AttributesTellSizeAndTimes) {
  platform->writeFile(path(L"a.log"), "abcd");
  WIN32_FILE_ATTRIBUTE_DATA data{};
  ASSERT_TRUE(::GetFileAttributesExW(path(L"a.log").c_str(), GetFileExInfoStandard, &data));
  EXPECT_EQ(data.nFileSizeHigh, 0U);
  EXPECT_EQ(data.nFileSizeLow, 4U);
  EXPECT_GT(asNumber(data.ftCreationTime), 0U);
  EXPECT_LE(asNumber(data.ftCreationTime), asNumber(data.ftLastWriteTime));
}

TEST_F(WindowsContract, AttributesOfAMissingFileFailAndLeaveTheDataAlone) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  EXPECT_FALSE(::GetFileAttributesExW(path(L"a.log").c_str(), GetFileExInfoStandard, &data));
  EXPECT_EQ(asNumber(data.ftCreationTime), 0U);
}

TEST_F(WindowsContract, CreationTimeStaysWhenTheFileIsWrittenAndMoved) {
  if (!platform->keepsCreationTime()) GTEST_SKIP() << "here a file's creation time is its write time";
  platform->writeFile(path(L"a.log"), "abcd");
  WIN32_FILE_ATTRIBUTE_DATA before{};
  ASSERT_TRUE(::GetFileAttributesExW(path(L"a.log").c_str(), GetFileExInfoStandard, &before));
  const HANDLE file = open(path(L"a.log"));
  EXPECT_TRUE(append(file, "e"));
  ::CloseHandle(file);
  ASSERT_TRUE(::MoveFileW(path(L"a.log").c_str(), path(L"b.log").c_str()));
  WIN32_FILE_ATTRIBUTE_DATA after{};
  ASSERT_TRUE(::GetFileAttributesExW(path(L"b.log").c_str(), GetFileExInfoStandard, &after));
  EXPECT_EQ(asNumber(before.ftCreationTime), asNumber(after.ftCreationTime));
}

TEST_F(WindowsContract, LocalTimeIsADate) {
  SYSTEMTIME time{};
  ::GetLocalTime(&time);
  EXPECT_GE(time.wYear, 2024);
  EXPECT_TRUE(time.wMonth >= 1 && time.wMonth <= 12);
  EXPECT_TRUE(time.wDay >= 1 && time.wDay <= 31);
}

}  // namespace
