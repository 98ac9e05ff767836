#include <chrono>
#include <cstdio>
#include <thread>

#include "comm/Registry.h"
#include "comm/SchedulerTest.h"

using namespace std::chrono_literals;

SchedulerTest::SchedulerTest() {
  EXPECT_TRUE(support::waitForThreadCount(kThreadsBefore, std::chrono::steady_clock::now() + 20s)) << "left by another test";
}

SchedulerTest::~SchedulerTest() { endAllLists(); }

std::shared_ptr<AppComm::Node> SchedulerTest::onceTask(Type type, long code, const std::wstring& uid, std::int32_t interval) {
  auto info = std::make_shared<qzstd::PrinterInfo>();
  info->uid = uid;
  info->interval = interval;
  auto task = AppComm::Node::Instance(std::move(info), nullptr, code, type);
  m_tasks.push_back(task);
  return task;
}

std::shared_ptr<AppComm::Node> SchedulerTest::repeatingTask(Type type, long code, const std::wstring& uid,
                                                            std::int32_t interval) {
  auto task = onceTask(type, code, uid, interval);
  task->setRepeat();
  return task;
}

void SchedulerTest::beginWith(std::vector<std::shared_ptr<AppComm::Node>> tasks) {
  handlers.on(Type::SetWifiList, [tasks = std::move(tasks)](auto&) {
    for (const auto& task : tasks) Add(task);
    return 0;
  });
  Add(onceTask(Type::SetWifiList, 0));
  awaitWait(2);
  handlers.on(Type::SetWifiList, nullptr);  // the tasks are now the list's and the test's alone
}

void SchedulerTest::awaitLine(std::string_view function, int number, std::size_t nth) {
  ASSERT_TRUE(logging.lines().waitFor(function, number, nth))
      << function << ' ' << number << " number " << nth << " never came";
}

std::vector<SchedulerTest::Wait> SchedulerTest::waits() const {
  std::vector<Wait> all;
  for (const auto& line : logging.lines().all()) {
    if (line.function != "thread_list" || line.number != 54) continue;
    const auto values = line.message.substr(line.message.find(L", duration: "));
    Wait wait{};
    const int read = std::swscanf(values.c_str(), L", duration: %ld, chkDuration: %ld, npaDuration: %ld, interval: %ld.",
                                  &wait.duration, &wait.chkDuration, &wait.npaDuration, &wait.interval);
    EXPECT_EQ(read, 4) << "a wait line of another form";
    all.push_back(wait);
  }
  return all;
}

SchedulerTest::Wait SchedulerTest::awaitWait(std::size_t nth) {
  awaitLine("thread_list", 54, nth);
  const auto all = waits();
  return all.size() >= nth ? all[nth - 1] : Wait{};
}

void SchedulerTest::passWait(std::size_t nth) {
  const auto wait = awaitWait(nth);
  ASSERT_GT(wait.duration, 0) << "wait " << nth << " is none";
  clock.awaitParked(1);
  clock.advance(ms(wait.duration));
}

void SchedulerTest::stopAndPassTheRest(ms rest) {
  clock.awaitParked(1);
  const auto parkings = clock.parkings();
  Stop();
  clock.awaitParkings(parkings + 1);  // the worker is awake, has looked at the clock, and waits again
  clock.advance(rest);
}

std::size_t SchedulerTest::registeredLists() {
  const std::lock_guard registry(comm::g_registry.lock);
  return comm::g_registry.lists.size();
}

void SchedulerTest::endAllLists() {
  for (const auto& weak : m_tasks) {
    if (const auto task = weak.lock()) task->setDelete();
  }
  Stop();
  // Nothing tells that a detached thread has gone, so this looks again and again; time is moved for those that still wait.
  const auto deadline = std::chrono::steady_clock::now() + 20s;
  while (support::threadCount() > kThreadsBefore && std::chrono::steady_clock::now() < deadline) {
    clock.advance(std::chrono::hours(1));
    std::this_thread::sleep_for(1ms);
  }
  EXPECT_EQ(support::threadCount(), kThreadsBefore) << "a list's threads are left";
  handlers.awaitNoLists();
  EXPECT_EQ(count("thread_list", 35), count("thread_list", 240)) << "a worker entered and did not leave";
}
