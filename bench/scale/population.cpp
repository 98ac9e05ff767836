#include "bench/scale/Population.h"

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

BareThreads::~BareThreads() {
  for (const auto& poller : m_pollers) poller->thread.join();
}

void BareThreads::start(std::size_t index) {
  m_pollers.push_back(std::make_unique<Poller>());
  Poller& poller = *m_pollers.back();
  poller.thread = std::thread([&poller, printer = printers[index]] { poll(poller, *printer); });
}

void BareThreads::stop() {
  for (const auto& poller : m_pollers) {
    const std::lock_guard lock(poller->mutex);
    poller->stopped = true;
    poller->condition.notify_one();
  }
}

void BareThreads::poll(Poller& poller, Printer& printer) {
  std::unique_lock lock(poller.mutex);
  while (!poller.stopped) {
    lock.unlock();
    printer.read();
    lock.lock();
    poller.condition.wait_until(lock, std::chrono::system_clock::now() + kInterval, [&poller] { return poller.stopped; });
  }
}

}  // namespace bench
