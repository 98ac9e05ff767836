#include "Callers.h"

#include <algorithm>

#include "Recorder.h"

namespace soak {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr std::uint64_t kThreads = 8;
constexpr std::size_t kMostTasks = 10;  // of a printer
constexpr int kMostAtOnce = 3;          // actions on one printer: each more multiplies the orders that the model has to follow
constexpr int kOneBusyOf = 12;          // printers
constexpr int kActions = 6;             // each second for each printer, about
constexpr int kBetweenStops = 5;        // seconds, about: it ends all lists, and leaves them time for the rest
constexpr int kBetweenSeldomStops = 120;
constexpr auto kPatience = 150s;  // what waits for room does that, and a call that is overdue is told before

}  // namespace

Callers::Callers(std::uint64_t seed, const std::vector<PrinterPlan>& printers, const Checker& checker)
    : m_seed(seed), m_plans(printers), m_checker(checker) {
  for (std::size_t place = 0; place < printers.size(); ++place) m_printers.push_back(std::make_unique<Printer>());
  m_working = kThreads;
  for (std::uint64_t number = 0; number < kThreads; ++number) m_threads.emplace_back(&Callers::work, this, number);
}

Callers::~Callers() {
  rest();
  for (std::thread& thread : m_threads) thread.join();
}

bool Callers::rest() {
  std::unique_lock lock(m_mutex);
  m_resting = true;
  m_changed.notify_all();
  return m_changed.wait_for(lock, kPatience, [this] { return m_working == 0; });
}

void Callers::deleteAll() {
  for (const auto& printer : m_printers) {
    for (const auto& task : printer->tasks) {
      if (!task->released()) task->setDelete();
    }
    printer->tasks.clear();
  }
}

void Callers::work(std::uint64_t number) {
  Random random(m_seed, number);
  const int mostRest = 2 * 1'000'000 * static_cast<int>(kThreads) / (kActions * static_cast<int>(m_printers.size()));
  std::unique_lock lock(m_mutex);
  while (!m_resting) {
    lock.unlock();
    Recorder::instance().waitForRoom();
    act(random);
    lock.lock();
    m_changed.wait_for(lock, std::chrono::microseconds(random.between(0, mostRest)), [this] { return m_resting; });
  }
  --m_working;
  m_changed.notify_all();
}

void Callers::act(Random& random) {
  const int betweenStops = stopsSeldom(m_seed) ? kBetweenSeldomStops : kBetweenStops;
  const bool stops = random.between(1, kActions * betweenStops * static_cast<int>(m_printers.size())) == 1;
  if (stops && !hasLongPauses(m_seed)) return stopAll();
  const PrinterId place = choosePrinter(random);
  std::atomic<int>& actions = m_printers[place]->actions;
  if (actions.fetch_add(1) < kMostAtOnce && !m_checker.isUnclear(place)) actOn(place, random);
  actions.fetch_sub(1);
}

void Callers::actOn(PrinterId place, Random& random) {
  const int what = random.between(1, 100);
  if (what <= 45) return add(random, place);
  if (what <= (stopsSeldom(m_seed) ? 50 : 46)) return emptyPrinter(place);
  if (what <= 65) return requestNpa(random, place, m_plans[place]);
  const auto task = anyTask(random, place);
  if (task == nullptr) return;
  if (what <= 85) return task->setDelete();
  task->setOnce(random.chance(50) || task->traits().type == Type::FirmUpCheck);
}

// A few of all printers get half of all calls, so that calls meet there.
PrinterId Callers::choosePrinter(Random& random) const {
  const int last = static_cast<int>(m_printers.size()) - 1;
  const int lastBusy = std::clamp(last / kOneBusyOf, 0, last);
  return static_cast<PrinterId>(random.between(0, random.chance(50) ? lastBusy : last));
}

void Callers::add(Random& random, PrinterId place) {
  Printer& printer = *m_printers[place];
  const auto task = Task::draw(m_seed, random, place, m_plans[place], ++m_lastCode, m_checker);
  const bool deletedBefore = random.chance(2);
  const bool deletedAtOnce = random.chance(2);
  {
    const std::lock_guard lock(printer.mutex);
    std::erase_if(printer.tasks, [](const auto& one) { return one->released(); });
    const bool quiet = steady_clock::now() < printer.quietUntil && !random.chance(5);
    if (printer.tasks.size() >= kMostTasks || quiet) return;
    task->announce();
    printer.tasks.push_back(task);
  }
  if (deletedBefore) task->setDelete();
  task->add(task);
  if (deletedAtOnce) task->setDelete();
}

// Its list gets the time for its idle cycles, if they are not too long.
void Callers::emptyPrinter(PrinterId place) {
  Printer& printer = *m_printers[place];
  std::vector<std::shared_ptr<Task>> tasks;
  {
    const std::lock_guard lock(printer.mutex);
    const auto cycles = std::chrono::milliseconds(std::max(m_plans[place].interval, 0) * 25 + 300);
    printer.quietUntil = steady_clock::now() + std::min<std::chrono::milliseconds>(cycles, 5s);
    tasks = printer.tasks;
  }
  for (const auto& task : tasks) {
    if (!task->released()) task->setDelete();
  }
}

std::shared_ptr<Task> Callers::anyTask(Random& random, PrinterId place) {
  Printer& printer = *m_printers[place];
  const std::lock_guard lock(printer.mutex);
  if (printer.tasks.empty()) return nullptr;
  return printer.tasks[static_cast<std::size_t>(random.between(0, static_cast<int>(printer.tasks.size()) - 1))];
}

}  // namespace soak
