#include "simulator/Call.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>

namespace simulator {
namespace {

std::atomic<CallWatcher> g_watcher{nullptr};

std::array<std::int32_t, 2> toldBy(const Target& target) {
  std::array<std::int32_t, 2> told{};
  const auto valueOf = [](const std::int32_t* count) { return count == nullptr ? 0 : *count; };
  std::ranges::transform(target.counts, told.begin(), valueOf);
  if (target.flag != nullptr) told[0] = *target.flag ? 1 : 0;
  return told;
}

// The sight of a call that begins.
CallSight sightOf(Function function, const Session& session, std::optional<std::size_t> printer) {
  const std::wstring_view uid = printer ? std::wstring_view(session.scenario.printers[*printer].description.uid) : L"";
  CallSight sight;
  sight.function = rowOf(function).name;
  sight.printer = uid;
  return sight;
}

void showWatcher(const CallSight& sight) {
  if (const CallWatcher watcher = g_watcher.load()) watcher(sight);
}

std::shared_ptr<Session> sessionOrExit() {
  try {
    return Simulation::instance().session();
  } catch (const ScenarioError& error) {
    std::fprintf(stderr, "%s\n", error.what());
    std::fflush(stdout);
    std::_Exit(2);  // std::exit would destroy what other threads still use
  }
}

std::optional<std::size_t> printerOfJob(Session& session, JobKind kind) {
  return Simulation::instance().visit(session, [kind](Session& in, milliseconds) -> std::optional<std::size_t> {
    const Job* job = in.jobs.find(kind);
    return job == nullptr ? std::nullopt : std::optional(job->printer);
  });
}

std::optional<std::size_t> find(Session& session, const Target& target) {
  if (target.job) return printerOfJob(session, *target.job);
  if (!target.value) return std::nullopt;
  const auto& printers = session.scenario.printers;
  const auto printer =
      std::ranges::find_if(printers, [&](const Printer& one) { return one.description.*target.key == *target.value; });
  if (printer == printers.end()) return std::nullopt;
  return static_cast<std::size_t>(printer - printers.begin());
}

OpenCall begin(Function function, const Target& target) {
  auto session = sessionOrExit();
  const auto printer = find(*session, target);
  showWatcher(sightOf(function, *session, printer));
  return Simulation::instance().begin(std::move(session), function, printer);
}

Target byMember(const qzstd::PrinterInfo* printer, const std::wstring qzstd::PrinterInfo::*key) {
  return {key, printer == nullptr ? std::nullopt : std::optional<std::wstring_view>(printer->*key), {}};
}

}  // namespace

void watchCalls(CallWatcher watcher) { g_watcher.store(watcher); }

Target byUid(const qzstd::PrinterInfo* printer) { return byMember(printer, &qzstd::PrinterInfo::uid); }

Target byManagerId(const qzstd::PrinterInfo* printer) { return byMember(printer, &qzstd::PrinterInfo::managerId); }

Target byManagerId(const wchar_t* managerId) {
  return {
      &qzstd::PrinterInfo::managerId, managerId == nullptr ? std::nullopt : std::optional<std::wstring_view>(managerId), {}};
}

Call::Call(Function function, const Target& target) : m_target(target), m_call(begin(function, target)) {}

Call::~Call() {
  if (!m_ended) finish(std::nullopt);
}

void Call::finish(std::optional<int> result) {
  Simulation::instance().end(m_call, result);
  CallSight sight = sightOf(m_call.function, *m_call.session, m_call.printer);
  sight.ends = true;
  sight.result = result;
  sight.told = toldBy(m_target);
  sight.failed = m_call.effects.failure.has_value();
  sight.hung = m_call.effects.hang.has_value();
  showWatcher(sight);
}

std::optional<int> Call::failure() const {
  if (!m_call.printer) return m_target.job ? noJob : m_target.value ? unknownPrinter : badArgument;
  if (m_call.effects.failure) return m_call.effects.failure->code;
  const auto reachable = [](const PrinterState& state, milliseconds at) { return state.reachable(at); };
  if (m_target.value && !onState(reachable)) return unreachable;
  return std::nullopt;
}

std::optional<int> Call::refusal() const {
  const auto code = failure();
  return code && rowOf(m_call.function).answer == Answer::flag ? 0 : code;
}

void Call::startJob(JobKind kind, Job job) const {
  job.printer = *m_call.printer;
  Simulation::instance().visit(*m_call.session, [&](Session& session, milliseconds at) {
    job.start = at;
    session.jobs.start(kind, std::move(job));
  });
}

Call::JobNow Call::job() const {
  return Simulation::instance().visit(*m_call.session, [this](Session& session, milliseconds at) {
    const Job& job = *session.jobs.find(*m_target.job);
    return JobNow{job, at - job.start};
  });
}

Call::JobNow Call::endJob() const {
  JobNow last = job();
  Simulation::instance().visit(*m_call.session, [this](Session& session, milliseconds) { session.jobs.end(*m_target.job); });
  return last;
}

int Call::end(int result) {
  m_ended = true;
  finish(result);
  return result;
}

}  // namespace simulator
