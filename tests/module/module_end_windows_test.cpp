/// How a process with the module ends, and how the module leaves a process that goes on.

#include <algorithm>
#include <iostream>

#include "module/ClientTest.h"
#include "support/Watchdog.h"

namespace {

class ModuleEndTest : public ClientTest {
 protected:
  /// As `run`, for a program that takes long and gives signs of life.
  static std::string runLong(const std::wstring& program, const std::vector<std::wstring>& arguments) {
    const support::ChildProcess child(program, arguments);
    auto code = child.wait();
    for (std::size_t seen = 0; !code && child.output().size() > seen;) {
      seen = child.output().size();
      support::enterWatchedStep(testing::UnitTest::GetInstance()->current_test_info()->name());
      code = child.wait();
    }
    EXPECT_EQ(code, 0U) << child.errors();
    return child.output();
  }
};

// What the printer, or the interval, would take is far beyond the patience with the child.
TEST_F(ModuleEndTest, ProcessThatExitsWithoutStopInAWaitEndsAtOnce) { run(L"module_client.exe", {L"exit-in-wait"}); }

TEST_F(ModuleEndTest, ProcessThatExitsWithoutStopInAHandlerEndsAtOnce) { run(L"module_client.exe", {L"exit-in-handler"}); }

TEST_F(ModuleEndTest, ProcessThatExitsWithoutStopWritesTheDetachLineLast) {
  configure("Debug=1\r\n");
  run(L"module_client.exe", {L"exit-in-handler"});
  EXPECT_EQ(log().back().message, L"App Communication DLL Detach.");
}

TEST_F(ModuleEndTest, TwoHundredUnloadsAfterWorkInFlightLeaveNoHandleHardlyABlockAndTheirLinesInOrder) {
  constexpr int kRounds = 200;
  configure("Debug=1\r\n");
  std::cout << runLong(L"module_loader.exe", {L"use", std::to_wstring(kRounds)});

  std::vector<int> milestones;  // attach, a leave for each of the two printers, detach
  for (const auto& line : log()) {
    if (line.number == 264 || line.number == 240 || line.number == 271) milestones.push_back(line.number);
  }
  std::vector<int> expected;
  for (int round = 0; round < kRounds; ++round) expected.insert(expected.end(), {264, 240, 240, 271});
  EXPECT_EQ(milestones, expected);
}

TEST_F(ModuleEndTest, LibraryWithACallUnderWayIsNotUnloadedBeforeItReturns) { run(L"module_loader.exe", {L"too-early"}); }

TEST_F(ModuleEndTest, ThreadsOfTheProgramThatEndDoNotHideThoseOfTheLibrary) { run(L"module_loader.exe", {L"others-end"}); }

TEST_F(ModuleEndTest, LibraryWhoseWorkerWaitsIsNotUnloadedBeforeItsIntervalIsOver) { run(L"module_loader.exe", {L"waiting"}); }

TEST_F(ModuleEndTest, LibraryThatCannotBeEndedIsRefusedAndNotLoaded) { run(L"module_loader.exe", {L"no-end"}); }

TEST_F(ModuleEndTest, LibraryIsUnloadedWhileItsMessagesWaitForTheUnloadingThread) {
  ::GetDesktopWindow();  // Wine starts a process for it, which would live on with the child's output
  run(L"module_loader.exe", {L"messages"});
}

TEST_F(ModuleEndTest, LibraryIsUnloadedDuringATransfer) { run(L"module_loader.exe", {L"transfer"}); }

TEST_F(ModuleEndTest, HundredLoadsAndUnloadsLeaveTheirLinesAndNoHandle) {
  constexpr int kRounds = 100;
  configure("Debug=1\r\n");
  run(L"module_loader.exe", {L"idle", std::to_wstring(kRounds)});

  std::vector<std::wstring> messages;
  for (const auto& line : log()) messages.push_back(line.message);
  std::vector<std::wstring> expected;
  for (int round = 0; round < kRounds; ++round) {
    expected.insert(expected.end(), {L"App Communication DLL Attach.", L"App Communication DLL Detach."});
  }
  EXPECT_EQ(messages, expected);
}

TEST_F(ModuleEndTest, HundredLoadsAndUnloadsWithoutALogLeaveNoHandle) {
  run(L"module_loader.exe", {L"idle", L"100"});
  EXPECT_FALSE(hasLog());
}

}  // namespace
