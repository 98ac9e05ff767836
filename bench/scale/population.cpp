#include "bench/scale/Population.h"

#include <future>
#include <utility>

namespace bench {

Population::Population(int count, int expectedReads) {
  for (int number = 0; number < count; ++number) printers.push_back(std::make_shared<Printer>(number, expectedReads));
}

Lists::Lists(int count, int expectedReads, bool exchanging) : Population(count, expectedReads) {
  for (const auto& printer : printers) {
    auto task = AppComm::Node::Instance(printer, std::make_shared<BenchWindow>(), 7, AppComm::Type::State);
    task->setResource(std::make_shared<AppComm::State>());
    task->setRepeat();
    if (exchanging) task->setReqNPA();
    m_tasks.push_back(std::move(task));
  }
}

void Lists::start(std::size_t index) { Add(m_tasks[index]); }
void Lists::stop() { Stop(); }

void PollerStop::stop() {
  {
    const std::lock_guard lock(m_mutex);
    m_stopped = true;
  }
  m_condition.notify_one();
}

bool PollerStop::stopped() {
  const std::lock_guard lock(m_mutex);
  return m_stopped;
}

void PollerStop::waitForTurn() {
  std::unique_lock lock(m_mutex);
  m_condition.wait_until(lock, std::chrono::system_clock::now() + kInterval, [this] { return m_stopped; });
}

void pollPlainly(PollerStop& stop, Printer& printer) {
  while (!stop.stopped()) {
    printer.read();
    stop.waitForTurn();
  }
}

void pollByAsyncTimer(PollerStop& stop, Printer& printer) {
  while (!stop.stopped()) {
    printer.read();
    const auto timer = std::async(std::launch::async, [&stop] {
      stop.waitForTurn();
      stop.wakeup.post();
    });
    stop.wakeup.wait();
    timer.wait();
  }
}

Threads::Threads(int count, int expectedReads, Poll poll) : Population(count, expectedReads), m_poll(poll) {}

Threads::~Threads() {
  for (const auto& poller : m_pollers) poller->thread.join();
}

void Threads::start(std::size_t index) {
  m_pollers.push_back(std::make_unique<Poller>());
  Poller& poller = *m_pollers.back();
  poller.thread = std::thread([this, &poller, printer = printers[index]] { m_poll(poller.stop, *printer); });
}

void Threads::stop() {
  for (const auto& poller : m_pollers) poller->stop.stop();
}

}  // namespace bench
