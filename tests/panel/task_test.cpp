#include <algorithm>
#include <system_error>
#include <utility>

#include "TaskTest.h"
#include "comm/Registry.h"

namespace {

using examples::Outcome;
using panel::Task;
using paneltest::TaskTest;

TEST_F(TaskTest, EndIsToldOnceAndLastOnTheThreadOfTheWindow) {
  start();
  EXPECT_TRUE(told.empty()) << "never within the constructor";

  ASSERT_TRUE(becomesOver());
  EXPECT_TRUE(becomesFree());
  EXPECT_EQ(ends(), 1U);
  EXPECT_TRUE(told.back().isOver);
  EXPECT_EQ(told.back().report.outcome, Outcome::Succeeded);
  for (const auto& each : told) EXPECT_EQ(each.on, std::this_thread::get_id());
}

TEST_F(TaskTest, EndOfAnOperationWithoutANoticeIsToldToo) {
  start({.isSkipped = true});
  ASSERT_TRUE(becomesOver());
  ASSERT_EQ(told.size(), 1U);
  EXPECT_EQ(told[0].report.outcome, Outcome::Failed);
  EXPECT_EQ(windows.sent(), 0U);
}

// The module lets go of the task although what its notice said is still on its way.
TEST_F(TaskTest, EndBeforeTheNoticeHasArrivedIsToldOnce) {
  using Take = std::size_t (fakes::MessageWindows::*)();
  constexpr Take sent = &fakes::MessageWindows::takeSent;
  constexpr Take posted = &fakes::MessageWindows::takePosted;
  for (const auto& [first, second] : {std::pair(sent, posted), std::pair(posted, sent)}) {
    told.clear();
    start();
    ASSERT_TRUE(windows.awaitSent(1)) << "the notice's sender";
    ASSERT_TRUE(windows.awaitPosted(1)) << "the end";

    (windows.*first)();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].isOver);
    EXPECT_EQ(told[0].report.outcome, Outcome::Succeeded);
    EXPECT_TRUE(task->isOver());

    (windows.*second)();
    EXPECT_EQ(told.size(), 1U) << "what comes later brings nothing";
    ASSERT_TRUE(becomesFree());
    Stop();
    ASSERT_TRUE(threadsLeft(0));
  }
}

TEST_F(TaskTest, TaskThatStopDropsBeforeItsRunIsToldItsEnd) {
  gate.close();
  const auto info = newPrinter();
  start();  // holds up the next one
  ASSERT_TRUE(gate.awaitHeld());
  const auto queued = newTask({.type = AppComm::Type::GetPushscan}, info);
  Stop();
  EXPECT_EQ(windows.posted(), 0U) << "the worker has not come to it";
  gate.open();

  ASSERT_TRUE(eventually([&] { return queued->mayGo(); }));
  const auto isQueueds = [](const Told& each) { return each.isOver && each.report.outcome == Outcome::Failed; };
  EXPECT_EQ(std::ranges::count_if(told, isQueueds), 1);
  ASSERT_TRUE(becomesFree());
  EXPECT_EQ(ends(), 2U);
}

TEST_F(TaskTest, CancelledTaskIsToldInterruptedAndItsRecordIsNotRead) {
  gate.close();
  start({.repeats = true});
  ASSERT_TRUE(gate.awaitHeld());
  steps.noticed = [this] {  // of the run that is under way; the notice reads the record once
    task->cancel();
    return true;
  };
  gate.open();

  ASSERT_TRUE(becomesOver());
  EXPECT_EQ(told.back().report.outcome, Outcome::Interrupted);
  EXPECT_EQ(ends(), 1U);
  EXPECT_EQ(steps.reports, 1) << "in the notice, not at the end";
}

TEST_F(TaskTest, RepeatingTaskTellsOfItsNoticesUntilItIsCancelled) {
  start({.repeats = true});
  ASSERT_TRUE(eventually([this] { return told.size() >= 3; }));
  EXPECT_EQ(ends(), 0U);
  EXPECT_FALSE(task->mayGo());

  task->cancel();
  EXPECT_TRUE(becomesFree());
  EXPECT_EQ(ends(), 1U);
}

TEST_F(TaskTest, NoticeThatWasNotTakenGivesWayToTheNext) {
  steps.noticed = [this, notices = 0]() mutable {
    if (++notices == 2) gate.close();  // no third one
    return true;
  };
  start({.repeats = true});
  ASSERT_TRUE(windows.awaitSent(2));
  ASSERT_TRUE(gate.awaitHeld());

  windows.takeSent();
  EXPECT_EQ(told.size(), 1U);
  gate.open();
}

TEST_F(TaskTest, EverythingIsToldWithoutASenderThread) {
  steps.noticed = [this] {
    fault.emplace();  // the list's own threads run already
    return true;
  };
  start();
  ASSERT_TRUE(becomesOver());
  fault.reset();
  EXPECT_EQ(told.back().report.outcome, Outcome::Succeeded);
  EXPECT_TRUE(becomesFree());
}

TEST_F(TaskTest, MayNotGoWhileItIsUnderWay) {
  gate.close();
  start();
  ASSERT_TRUE(gate.awaitHeld());
  EXPECT_FALSE(task->mayGo());
}

TEST_F(TaskTest, MayNotGoBeforeItIsToldOfItsEnd) {
  start({.isSkipped = true});
  ASSERT_TRUE(windows.awaitPosted(1));
  Stop();
  ASSERT_TRUE(threadsLeft(0)) << "nobody else holds the window";

  EXPECT_FALSE(task->mayGo());
  windows.takePosted();
  EXPECT_TRUE(task->mayGo());
}

TEST_F(TaskTest, MayNotGoWhileASenderIsUnderWay) {
  start();
  ASSERT_TRUE(windows.awaitSent(1));
  ASSERT_TRUE(windows.awaitPosted(1));
  windows.takePosted();
  Stop();
  ASSERT_TRUE(threadsLeft(1)) << "the sender; the module holds nothing any more";

  EXPECT_TRUE(task->isOver());
  EXPECT_FALSE(task->mayGo());
  windows.takeSent();
  ASSERT_TRUE(threadsLeft(0));
  EXPECT_TRUE(task->mayGo());
}

TEST_F(TaskTest, MayNotGoWhileTheModuleHoldsItsWindow) {
  endGate.close();
  // Within the end of the module's task: the end has been told, the window is let go of after this.
  steps.gone = [this] { endGate.pass(); };
  start({.isSkipped = true});
  ASSERT_TRUE(endGate.awaitHeld());
  windows.takePosted();

  EXPECT_TRUE(task->isOver());
  EXPECT_FALSE(task->mayGo());
  endGate.open();
  EXPECT_TRUE(becomesFree());
}

TEST_F(TaskTest, WindowGoesWithATaskThatMayGo) {
  gate.close();
  start();
  ASSERT_TRUE(gate.awaitHeld());
  const auto window = listedWindow();
  gate.open();
  ASSERT_TRUE(becomesFree());
  EXPECT_FALSE(window.expired());
  EXPECT_EQ(windows.count(), 1U);

  task.reset();
  EXPECT_TRUE(window.expired());
  EXPECT_EQ(windows.count(), 0U);
}

TEST_F(TaskTest, TaskThatGoesTooEarlyLeavesItsWindowToItsSender) {
  gate.close();
  start();
  ASSERT_TRUE(gate.awaitHeld());
  const auto window = listedWindow();
  gate.open();
  ASSERT_TRUE(windows.awaitSent(1));
  ASSERT_TRUE(windows.awaitPosted(1));
  Stop();
  ASSERT_TRUE(threadsLeft(1)) << "the sender, and nobody else but the task holds its window";

  task.reset();
  EXPECT_EQ(windows.count(), 0U) << "destroyed by its own thread";
  EXPECT_FALSE(window.expired()) << "the sender counts itself out there";
  EXPECT_TRUE(threadsLeft(0)) << "no sender waits for a window that is gone";
  EXPECT_FALSE(window.expired()) << "its last reference must not go on another thread";
  EXPECT_TRUE(told.empty());
}

TEST_F(TaskTest, TaskThatGoesWhileALibraryCallHangsIsDeletedAndToldNothing) {
  gate.close();
  start({.repeats = true});
  ASSERT_TRUE(gate.awaitHeld());
  const auto window = listedWindow();

  task.reset();
  EXPECT_EQ(windows.count(), 0U);
  gate.open();

  // Without a Stop: the list has nothing more to do.
  EXPECT_TRUE(threadsLeft(0));
  EXPECT_FALSE(window.expired());
  EXPECT_TRUE(told.empty());
  EXPECT_EQ(windows.posted(), 0U);
}

/// The system gives no window.
class NoWindows : public fakes::MessageWindows {
 public:
  static constexpr DWORD kError = 1158;

  HWND CreateDialogParamW(HINSTANCE /*instance*/, LPCWSTR /*resource*/, HWND /*parent*/, DLGPROC /*procedure*/,
                          LPARAM /*parameter*/) override {
    return nullptr;
  }
  DWORD GetLastError() override { return kError; }
};

TEST_F(TaskTest, WithoutAWindowNothingBegins) {
  NoWindows none;
  const fakes::Installed installedNone(none);
  try {
    start();
    FAIL() << "it began";
  } catch (const std::system_error& error) {
    EXPECT_EQ(error.code().value(), static_cast<int>(NoWindows::kError));
  }
  EXPECT_TRUE(printer.calls().empty());
  const std::lock_guard registry(comm::g_registry.lock);
  EXPECT_TRUE(comm::g_registry.lists.empty());
}

TEST_F(TaskTest, WithoutAThreadForItsListNothingArrivesAtATaskThatWasNeverMade) {
  fault.emplace();
  EXPECT_THROW(start(), std::system_error);
  fault.reset();
  EXPECT_EQ(task, nullptr);
  EXPECT_EQ(windows.count(), 0U) << "the module keeps the object; the window must not stay";

  Stop();  // drops what it keeps
  EXPECT_EQ(windows.takePosted(), 0U);
  EXPECT_TRUE(told.empty());
}

}  // namespace
