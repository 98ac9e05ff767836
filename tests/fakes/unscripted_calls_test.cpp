#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <thread>

#include "fakes/InMemoryWindows.h"

namespace {

class OnlyTicks : public fakes::Windows {
 public:
  explicit OnlyTicks(ULONGLONG ticks) : m_ticks(ticks) {}
  ULONGLONG GetTickCount64() override { return m_ticks; }

 private:
  const ULONGLONG m_ticks;
};

TEST(UnscriptedCalls, WithoutAPlatformEveryCallFailsTheTestByItsName) {
  HANDLE handle = nullptr;
  EXPECT_NONFATAL_FAILURE(handle = ::CreateFileW(L"x", 0, 0, nullptr, OPEN_ALWAYS, 0, nullptr), "unscripted call: CreateFileW");
  EXPECT_EQ(handle, INVALID_HANDLE_VALUE);
}

TEST(UnscriptedCalls, WhatTheTestDidNotOverrideFailsIt) {
  OnlyTicks ticks(5);
  const fakes::Installed installed(ticks);
  EXPECT_EQ(::GetTickCount64(), 5U);
  SYSTEMTIME time{1, 1, 1, 1, 1, 1, 1, 1};
  EXPECT_NONFATAL_FAILURE(::GetLocalTime(&time), "unscripted call: GetLocalTime");
  EXPECT_EQ(time.wYear, 0);
  EXPECT_NONFATAL_FAILURE(EXPECT_EQ(::SendMessageW(nullptr, WM_APP, 0, 0), 0), "unscripted call: SendMessageW");
}

TEST(UnscriptedCalls, AnInnerScopeGivesThePreviousPlatformBack) {
  OnlyTicks outer(1);
  const fakes::Installed installed(outer);
  {
    OnlyTicks inner(2);
    const fakes::Installed innerInstalled(inner);
    EXPECT_EQ(::GetTickCount64(), 2U);
  }
  EXPECT_EQ(::GetTickCount64(), 1U);
}

TEST(InMemoryWindows, ThreadsMayCallItTogether) {
  fakes::InMemoryWindows windows;
  windows.makeFolder(L"C:\\log");
  const fakes::Installed installed(windows);
  const auto append = [] {
    const HANDLE file =
        ::CreateFileW(L"C:\\log\\a", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, 0, nullptr);
    DWORD written = 0;
    for (int i = 0; i < 500; ++i) ::WriteFile(file, "x", 1, &written, nullptr);
    ::CloseHandle(file);
  };
  std::thread one(append);
  std::thread other(append);
  EXPECT_TRUE(windows.waitForWriteAfter(999, fakes::InMemoryWindows::Clock::now() + std::chrono::seconds(30)));
  one.join();
  other.join();
  EXPECT_EQ(windows.writeCount(), 1000U);
  EXPECT_EQ(windows.openFileHandles(), 0U);
}

TEST(InMemoryWindows, ExpiredWaitsReturnAtOnce) {
  fakes::InMemoryWindows windows;
  const fakes::Installed installed(windows);
  windows.expireWaits();
  const HANDLE semaphore = ::CreateSemaphoreW(nullptr, 1, 1, L"name");
  EXPECT_EQ(::WaitForSingleObject(semaphore, INFINITE), WAIT_OBJECT_0);
  EXPECT_EQ(::WaitForSingleObject(semaphore, INFINITE), WAIT_TIMEOUT);
  EXPECT_EQ(windows.semaphoreCount(L"name"), 0);
  EXPECT_FALSE(windows.waitUntilIdle(fakes::InMemoryWindows::Clock::now()));
  ::CloseHandle(semaphore);
  EXPECT_EQ(windows.semaphoreCount(L"name"), std::nullopt);
}

TEST(InMemoryWindows, WritesAreToldWithTheirBytesInTheFileAndOnlyWhenTheyWrote) {
  fakes::InMemoryWindows windows;
  windows.makeFolder(L"C:\\log");
  const fakes::Installed installed(windows);
  std::vector<std::optional<std::string>> told;
  windows.listenToWrites([&] { told.push_back(windows.fileBytes(L"C:\\log\\a")); });
  const HANDLE file = ::CreateFileW(L"C:\\log\\a", GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, 0, nullptr);
  DWORD written = 9;

  ::WriteFile(file, "x", 1, &written, nullptr);
  ::WriteFile(file, "yz", 2, &written, nullptr);
  EXPECT_EQ(written, 2U);
  EXPECT_EQ(::WriteFile(nullptr, "lost", 4, &written, nullptr), FALSE);
  EXPECT_EQ(written, 0U);
  windows.listenToWrites(nullptr);
  ::WriteFile(file, "!", 1, &written, nullptr);

  EXPECT_EQ(told, (std::vector<std::optional<std::string>>{"x", "xyz"}));
  EXPECT_EQ(windows.fileBytes(L"C:\\log\\a"), "xyz!");
  ::CloseHandle(file);
}

TEST(InMemoryWindows, AFolderGoesWithItsFiles) {
  fakes::InMemoryWindows windows;
  windows.makeFolder(L"C:\\log");
  windows.writeFile(L"C:\\log\\b", "");
  windows.writeFile(L"C:\\log\\a", "");
  EXPECT_EQ(windows.filesIn(L"C:\\log"), (std::vector<std::wstring>{L"a", L"b"}));
  windows.removeFolder(L"C:\\log");
  EXPECT_FALSE(windows.exists(L"C:\\log\\a"));
}

}  // namespace
