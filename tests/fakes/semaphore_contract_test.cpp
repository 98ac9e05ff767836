#include <thread>

#include "fakes/WindowsContractTest.h"

namespace {

constexpr const wchar_t* kName = L"OrvaQZ_contract";

TEST_F(WindowsContract, ASemaphoreIsGrantedAsOftenAsItsCount) {
  const HANDLE semaphore = ::CreateSemaphoreW(nullptr, 1, 1, nullptr);
  ASSERT_NE(semaphore, nullptr);
  EXPECT_EQ(::WaitForSingleObject(semaphore, 1000), WAIT_OBJECT_0);
  EXPECT_EQ(::WaitForSingleObject(semaphore, 0), WAIT_TIMEOUT);
  EXPECT_EQ(::WaitForSingleObject(semaphore, 10), WAIT_TIMEOUT);
  EXPECT_TRUE(::ReleaseSemaphore(semaphore, 1, nullptr));
  EXPECT_EQ(::WaitForSingleObject(semaphore, 0), WAIT_OBJECT_0);
  ::CloseHandle(semaphore);
}

TEST_F(WindowsContract, ReleaseBeyondTheMaximumFailsAndChangesNothing) {
  const HANDLE semaphore = ::CreateSemaphoreW(nullptr, 1, 1, nullptr);
  LONG previous = 7;
  EXPECT_FALSE(::ReleaseSemaphore(semaphore, 1, &previous));
  EXPECT_EQ(::WaitForSingleObject(semaphore, 0), WAIT_OBJECT_0);
  EXPECT_EQ(::WaitForSingleObject(semaphore, 0), WAIT_TIMEOUT);
  EXPECT_FALSE(::ReleaseSemaphore(semaphore, 2, nullptr));
  EXPECT_TRUE(::ReleaseSemaphore(semaphore, 1, &previous));
  EXPECT_EQ(previous, 0);
  ::CloseHandle(semaphore);
}

TEST_F(WindowsContract, ASemaphoreNeedsAMaximumAndNoMoreThanThat) {
  EXPECT_EQ(::CreateSemaphoreW(nullptr, 2, 1, nullptr), nullptr);
  EXPECT_EQ(::CreateSemaphoreW(nullptr, 0, 0, nullptr), nullptr);
  EXPECT_EQ(::CreateSemaphoreW(nullptr, -1, 1, nullptr), nullptr);
}

TEST_F(WindowsContract, OneNameIsOneSemaphore) {
  const HANDLE first = ::CreateSemaphoreW(nullptr, 1, 1, kName);
  const HANDLE second = ::CreateSemaphoreW(nullptr, 0, 5, kName);  // opened as it is: the counts are not looked at
  EXPECT_NE(first, second);
  EXPECT_EQ(::WaitForSingleObject(second, 0), WAIT_OBJECT_0);
  EXPECT_EQ(::WaitForSingleObject(first, 0), WAIT_TIMEOUT);
  EXPECT_TRUE(::ReleaseSemaphore(first, 1, nullptr));
  EXPECT_FALSE(::ReleaseSemaphore(first, 1, nullptr));
  ::CloseHandle(first);
  ::CloseHandle(second);
}

TEST_F(WindowsContract, ANamedSemaphoreGoesWithItsLastHandle) {
  const HANDLE first = ::CreateSemaphoreW(nullptr, 1, 1, kName);
  EXPECT_EQ(::WaitForSingleObject(first, 0), WAIT_OBJECT_0);
  ::CloseHandle(first);
  const HANDLE second = ::CreateSemaphoreW(nullptr, 1, 1, kName);
  EXPECT_EQ(::WaitForSingleObject(second, 0), WAIT_OBJECT_0);
  ::CloseHandle(second);
}

TEST_F(WindowsContract, AReleaseWakesAnotherThread) {
  const HANDLE semaphore = ::CreateSemaphoreW(nullptr, 0, 1, nullptr);
  DWORD result = WAIT_FAILED;
  std::thread waiter([&] { result = ::WaitForSingleObject(semaphore, 30000); });
  EXPECT_TRUE(::ReleaseSemaphore(semaphore, 1, nullptr));
  waiter.join();
  EXPECT_EQ(result, WAIT_OBJECT_0);
  ::CloseHandle(semaphore);
}

TEST_F(WindowsContract, AClosedHandleCanNeitherBeWaitedForNorReleased) {
  const HANDLE semaphore = ::CreateSemaphoreW(nullptr, 1, 1, nullptr);
  ::CloseHandle(semaphore);
  EXPECT_EQ(::WaitForSingleObject(semaphore, 0), WAIT_FAILED);
  EXPECT_FALSE(::ReleaseSemaphore(semaphore, 1, nullptr));
}

}  // namespace
