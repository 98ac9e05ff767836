#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "model/PrinterModel.h"

namespace soak::test {

using namespace std::chrono_literals;

inline constexpr ThreadId kCaller = 1;
inline constexpr ThreadId kHelper = 10;     // of the first list
inline constexpr ThreadId kNewHelper = 11;  // of a later one
inline constexpr ThreadId kWorker = 20;
inline constexpr ThreadId kNewWorker = 21;

inline constexpr std::string_view kJobs = "AppMgr_GetPrintingJob";
inline constexpr std::string_view kRead = "AppPrinterSdk_GetState";
inline constexpr std::string_view kScan = "AppPrinterSdk_IsSuppportPushScan";
inline constexpr std::string_view kParameters = "AppPrinterSdk_GetPushScanPara";
inline constexpr std::string_view kNetwork = "AppPrinterSdk_GetNetWork";
inline constexpr std::string_view kAlarm = "AppPrinterSdk_IsSuppportSuppliesAlarm";

/// Tells a model what was seen, at times of its own.
class Story : public testing::Test {
 protected:
  explicit Story(const PrinterTraits& printer = {}) : m_model(std::make_unique<PrinterModel>(printer)) {}

  /// What follows happens so many milliseconds after the start.
  void at(double milliseconds) {
    m_now = Moment(1'000'000s) +
            std::chrono::duration_cast<Moment::duration>(std::chrono::duration<double, std::milli>(milliseconds));
  }
  /// So many seconds pass; nothing is overdue.
  void ticks(int count) {
    for (int tick = 0; tick < count; ++tick) seen({.what = What::tick});
  }
  void runsOn(ThreadId thread) { m_helper = thread; }

  void seen(Event event) {
    if (const auto difference = see(event)) FAIL() << *difference;
  }
  /// The event is a difference, and the report says this of it.
  void refused(Event event, std::string_view why) {
    const auto difference = see(event);
    ASSERT_TRUE(difference) << "no difference; expected: " << why;
    EXPECT_NE(difference->find(why), std::string::npos) << *difference;
  }

  // Whole calls, which nothing else meets.
  void add(TaskId task, const TaskTraits& traits) {
    seen({.what = What::addBegin, .thread = kCaller, .task = task, .traits = traits});
    seen({.what = What::addEnd, .thread = kCaller, .task = task});
  }
  void stop() {
    seen({.what = What::stopBegin, .thread = kCaller});
    seen({.what = What::stopEnd, .thread = kCaller});
  }
  void beginStart(ThreadId thread = kCaller) {
    seen({.what = What::startBegin, .thread = thread, .traits = {.type = Type::State}});
  }
  void endStart(ThreadId thread = kCaller) { seen({.what = What::startEnd, .thread = thread}); }
  void startNpa() {
    beginStart();
    endStart();
  }
  void pauseNpa() {
    seen({.what = What::pauseBegin, .thread = kCaller, .traits = {.type = Type::State}});
    seen({.what = What::pauseEnd, .thread = kCaller});
  }
  void setDelete(TaskId task) {
    seen({.what = What::deleteBegin, .thread = kCaller, .task = task});
    seen({.what = What::deleteEnd, .thread = kCaller, .task = task});
  }
  void setOnce(TaskId task, bool once) {
    seen({.what = What::onceBegin, .thread = kCaller, .task = task, .value = once ? 1 : 0});
    seen({.what = What::onceEnd, .thread = kCaller, .task = task});
  }

  // What a run shows.
  Event callOf(std::string_view function) const { return {.what = What::callBegin, .thread = m_helper, .function = function}; }
  void call(std::string_view function, int result = 0) {
    seen(callOf(function));
    seen({.what = What::callEnd, .thread = m_helper, .value = result, .function = function});
  }
  Event noticeTo(TaskId task, int queried = -1) const {
    return {.what = What::noticeBegin, .thread = m_helper, .task = task, .value = queried};
  }
  void notice(TaskId task, bool answer = true) {
    seen(noticeTo(task));
    seen({.what = What::noticeEnd, .thread = m_helper, .task = task, .value = answer ? 1 : 0});
  }
  void unreadState(TaskId task) {  // a run of State
    call(kJobs);
    call(kScan);
    notice(task);
  }
  void network(TaskId task) {  // a run of GetNetwork
    call("AppPrinterSdk_GetNetWork");
    notice(task);
  }

  // A StartNPA that is under way has marked the first of two tasks, which is read for both, and leaves.
  void serveFirstOfTwoDuringAStart(ThreadId starter = kCaller) {
    add(1, once(Type::State));
    add(2, repeating(Type::State));
    beginStart(starter);
    call(kJobs);
    call(kRead);
    notice(1);
    notice(2);
    released(1);
  }
  // Task 1 hangs in a library call during `Stop`; task 2 has a list of its own by the time that the old worker ends.
  void endOldWorkerBesideANewList() {
    add(1, repeating(Type::GetNetwork));
    seen(callOf(kNetwork));  // hangs
    stop();
    add(2, repeating(Type::GetNetwork));
    runsOn(kNewHelper);
    network(2);
    seen({.what = What::callEnd, .thread = kHelper, .function = kNetwork});
    runsOn(kHelper);
    notice(1);
    released(1);
    seen(endOf(kHelper));
  }

  static Event releaseOf(TaskId task, ThreadId worker = kWorker) {
    return {.what = What::released, .thread = worker, .task = task};
  }
  void released(TaskId task) { seen(releaseOf(task)); }
  static Event endOf(ThreadId thread) { return {.what = What::threadEnded, .thread = thread}; }

  static TaskTraits once(Type type, int interval = 0) { return {.type = type, .interval = interval, .once = true}; }
  static TaskTraits repeating(Type type, int interval = 0) { return {.type = type, .interval = interval, .once = false}; }

  void expectRest() { EXPECT_EQ(m_model->atRest(m_now), std::nullopt); }

  std::unique_ptr<PrinterModel> m_model;

 private:
  std::optional<std::string> see(Event event) {
    event.number = ++m_number;
    event.time = m_now;
    m_now += 10us;
    return m_model->see(event);
  }

  Moment m_now = Moment(1'000'000s);
  std::uint64_t m_number = 0;
  ThreadId m_helper = kHelper;
};

}  // namespace soak::test
