#include <chrono>
#include <new>
#include <system_error>

#include "comm/Registry.h"
#include "comm/SchedulerFaultTest.h"
#include "operations/Notice.h"
#include "support/ThreadCount.h"

using namespace std::chrono_literals;

namespace {

constexpr auto kPatience = 20s;
constexpr int kThreadsBefore = 1;  // the main thread
constexpr std::size_t kMostSteps = 1000;

// True when it left as the exception of this step.
bool fails(fakes::Step step, const std::function<void()>& operation) {
  try {
    operation();
    return false;
  } catch (const std::bad_alloc&) {
    return step == fakes::Step::allocation;
  } catch (const std::system_error& error) {
    return step == fakes::Step::lock && error.code() == std::errc::resource_deadlock_would_occur;
  }
}

}  // namespace

class SchedulerFaultTest::Window : public support::PlainWindow {
 public:
  explicit Window(SchedulerFaultTest& test) : m_test(test) {}
  bool Notice(long /*code*/) const override {
    const std::lock_guard lock(m_test.m_mutex);
    ++m_test.m_notices;
    m_test.m_changed.notify_all();
    return true;
  }

 private:
  SchedulerFaultTest& m_test;
};

SchedulerFaultTest::SchedulerFaultTest() {
  EXPECT_TRUE(support::waitForThreadCount(kThreadsBefore, std::chrono::steady_clock::now() + kPatience));
  handlers.onAny([this](comm::CNode& entry) { return run(entry); });
}

SchedulerFaultTest::~SchedulerFaultTest() {
  letAllRun();
  Stop();
  handlers.awaitNoLists();
  EXPECT_TRUE(support::waitForThreadCount(kThreadsBefore, std::chrono::steady_clock::now() + kPatience))
      << "a list's threads are left";
}

SchedulerFaultTest::Task SchedulerFaultTest::onceTask(Type type, const std::wstring& uid, std::int32_t interval) {
  auto info = std::make_shared<qzstd::PrinterInfo>();
  info->uid = uid;
  info->interval = interval;
  return AppComm::Node::Instance(std::move(info), std::make_shared<Window>(*this), 0, type);
}

int SchedulerFaultTest::run(comm::CNode& entry) {
  {
    std::unique_lock lock(m_mutex);
    EXPECT_TRUE(m_changed.wait_for(lock, kPatience, [this] { return !m_held || m_leaves > 0; }));
    if (m_held) --m_leaves;
  }
  notice_caller(entry);
  return 0;
}

void SchedulerFaultTest::holdRuns() {
  const std::lock_guard lock(m_mutex);
  m_held = true;
}

void SchedulerFaultTest::letRun(std::size_t count) {
  const std::lock_guard lock(m_mutex);
  m_leaves += count;
  m_changed.notify_all();
}

void SchedulerFaultTest::letAllRun() {
  const std::lock_guard lock(m_mutex);
  m_held = false;
  m_leaves = 0;
  m_changed.notify_all();
}

std::size_t SchedulerFaultTest::notices() {
  const std::lock_guard lock(m_mutex);
  return m_notices;
}

void SchedulerFaultTest::awaitNotices(std::size_t count) {
  std::unique_lock lock(m_mutex);
  EXPECT_TRUE(m_changed.wait_for(lock, kPatience, [&] { return m_notices >= count; }))
      << m_notices << " notices, not " << count;
}

void SchedulerFaultTest::expectToRunInAListOfItsOwn(const Task& task) {
  const auto before = notices();
  EXPECT_EQ(Add(task), 0);
  awaitNotices(before + 1);
  handlers.awaitNoLists();
  EXPECT_TRUE(registeredLists().empty());
  EXPECT_EQ(task.use_count(), 1);
}

std::vector<std::shared_ptr<comm::CList>> SchedulerFaultTest::registeredLists() {
  const std::lock_guard registry(comm::g_registry.lock);
  return {comm::g_registry.lists.begin(), comm::g_registry.lists.end()};
}

void SchedulerFaultTest::expectUnlocked(comm::CList& list) {
  const std::unique_lock registry(comm::g_registry.lock, std::try_to_lock);
  const std::unique_lock backend(list.m_backendLock, std::try_to_lock);
  EXPECT_TRUE(registry.owns_lock());
  EXPECT_TRUE(backend.owns_lock());
}

std::size_t SchedulerFaultTest::failEach(fakes::Step step, const std::function<void()>& operation,
                                         const std::function<void()>& settle) {
  for (std::size_t nth = 1; nth <= kMostSteps; ++nth) {
    bool failed = false;
    bool happened = false;
    {
      const fakes::StepFault fault(step, nth);
      failed = fails(step, operation);
      happened = fault.happened();
    }
    SCOPED_TRACE(testing::Message() << "step " << nth << " fails");
    EXPECT_EQ(failed, happened) << "a failure leaves the function as its own exception";
    if (!happened) return nth - 1;
    settle();
  }
  ADD_FAILURE() << "steps without end";
  return kMostSteps;
}
