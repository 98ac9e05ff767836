#include "simulator/Simulation.h"

#include <new>
#include <stdexcept>
#include <utility>

namespace simulator {

Session::Session(Scenario loaded, Time::Point now)
    : scenario(std::move(loaded)), start(now), counts(scenario.printers.size() + 1) {
  for (const Printer& printer : scenario.printers) printers.emplace_back(printer);
}

Simulation& Simulation::instance() {
  alignas(Simulation) static std::byte storage[sizeof(Simulation)];
  static Simulation* const simulation = ::new (storage) Simulation;
  return *simulation;
}

void Simulation::replaceLocked(std::shared_ptr<Session> session) {
  if (m_session) ++m_session->releases;
  m_session = std::move(session);
  m_changed.notify_all();
  m_recorded.notify_all();
}

void Simulation::load(Scenario scenario) {
  std::lock_guard lock(m_mutex);
  replaceLocked(std::make_shared<Session>(std::move(scenario), m_time.now()));
}

void Simulation::reset() {
  std::lock_guard lock(m_mutex);
  m_time.run();
  replaceLocked(nullptr);
}

std::shared_ptr<Session> Simulation::session() {
  {
    std::lock_guard lock(m_mutex);
    if (m_session) return m_session;
  }
  Scenario scenario = readScenarioFromEnvironment();  // outside the lock: it reads a file
  std::lock_guard lock(m_mutex);
  if (!m_session) replaceLocked(std::make_shared<Session>(std::move(scenario), m_time.now()));
  return m_session;
}

OpenCall Simulation::begin(std::shared_ptr<Session> session, Function function, std::optional<std::size_t> printer) {
  std::lock_guard lock(m_mutex);
  Session& in = *session;
  const Time::Point now = m_time.now();
  const std::uint32_t number = ++in.counts[printer.value_or(in.scenario.printers.size())][indexOf(function)].begun;
  OpenCall call{std::move(session), function, printer, number, in.forgotten + in.record.size(), {}};
  if (printer) call.effects = effectsOf(in.scenario, *printer, function, number, elapsedLocked(in));
  in.record.push_back({std::string(rowOf(function).name), printer ? in.scenario.printers[*printer].description.uid : L"", now,
                       std::nullopt, std::nullopt});
  if (in.record.size() > recordCapacity) {
    in.record.pop_front();
    ++in.forgotten;
  }
  m_recorded.notify_all();
  waitAsToldLocked(call, now);
  return call;
}

void Simulation::waitAsToldLocked(const OpenCall& call, Time::Point begun) {
  if (call.session != m_session) return;  // an ended session has nobody left who could release the call
  const auto wait = waitOf(call.effects);
  const auto deadline = wait ? std::optional(begun + *wait) : std::nullopt;
  const std::uint64_t releases = call.session->releases;
  while (call.session->releases == releases && (!deadline || m_time.now() < *deadline)) waitLocked(deadline);
}

void Simulation::waitLocked(std::optional<Time::Point> deadline) {
  std::unique_lock lock(m_mutex, std::adopt_lock);
  m_time.wait(m_changed, lock, deadline);
  lock.release();
}

void Simulation::end(const OpenCall& call, std::optional<int> result) {
  std::lock_guard lock(m_mutex);
  Session& in = *call.session;
  ++in.counts[call.printer.value_or(in.scenario.printers.size())][indexOf(call.function)].ended;
  if (call.place >= in.forgotten) {
    CallRecord& entry = in.record[static_cast<std::size_t>(call.place - in.forgotten)];
    entry.end = m_time.now();
    entry.result = result;
  }
  m_recorded.notify_all();
}

milliseconds Simulation::elapsedLocked(const Session& session) const {
  return std::chrono::duration_cast<milliseconds>(m_time.now() - session.start);
}

std::vector<CallRecord> Simulation::calls() {
  std::lock_guard lock(m_mutex);
  if (!m_session) return {};
  return {m_session->record.begin(), m_session->record.end()};
}

std::size_t Simulation::countedLocked(std::uint32_t Session::Count::*counted, Function function,
                                      std::wstring_view printer) const {
  if (!m_session) return 0;
  const auto& printers = m_session->scenario.printers;
  std::size_t sum = 0;
  for (std::size_t i = 0; i < m_session->counts.size(); ++i) {
    const bool named = i < printers.size() && printers[i].description.uid == printer;
    if (printer.empty() || named) sum += m_session->counts[i][indexOf(function)].*counted;
  }
  return sum;
}

bool Simulation::waitUntil(std::uint32_t Session::Count::*counted, Function function, std::wstring_view printer,
                           std::size_t count, milliseconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;  // real time, also while the simulation's is held
  std::lock_guard lock(m_mutex);
  std::unique_lock waiting(m_mutex, std::adopt_lock);
  bool reached = countedLocked(counted, function, printer) >= count;
  while (!reached && m_recorded.wait_until(waiting, deadline) == std::cv_status::no_timeout) {
    reached = countedLocked(counted, function, printer) >= count;
  }
  waiting.release();
  return reached || countedLocked(counted, function, printer) >= count;
}

void Simulation::release() {
  std::lock_guard lock(m_mutex);
  if (m_session) ++m_session->releases;
  m_changed.notify_all();
}

void Simulation::holdTime() {
  std::lock_guard lock(m_mutex);
  m_time.hold();
}

void Simulation::advanceTime(milliseconds by) {
  std::lock_guard lock(m_mutex);
  if (!m_time.held()) throw std::logic_error("the simulation's time is not held");
  m_time.advance(by);
  m_changed.notify_all();
}

}  // namespace simulator
