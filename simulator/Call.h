#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "simulator/Simulation.h"

namespace simulator {

/// What a call is about: a printer that it names, or the job that its thread has started.
struct Target {
  const std::wstring qzstd::PrinterInfo::*key = nullptr;
  std::optional<std::wstring_view> value;
  std::optional<JobKind> job;
  /// What the call may fill to tell how far a job is, for who watches.
  std::array<const std::int32_t*, 2> counts{};
  const bool* flag = nullptr;
};

/// @name Targets
/// With a null pointer the call has no target.
/// @{
Target byUid(const qzstd::PrinterInfo* printer);
Target byManagerId(const qzstd::PrinterInfo* printer);
Target byManagerId(const wchar_t* managerId);
inline Target ofThread(JobKind kind) { return {nullptr, std::nullopt, kind}; }

/// The target, if none of the call's other pointers is null.
template <typename... Value>
Target with(Target target, const Value*... values) {
  return ((values != nullptr) && ...) ? target : Target{};
}

/// The target of a call that fills these.
inline Target telling(Target target, const std::int32_t* count, const std::int32_t* second = nullptr) {
  target.counts = {count, second};
  return target;
}
inline Target telling(Target target, const bool* flag) {
  target.flag = flag;
  return target;
}
/// @}

/// One call of a simulated function. Making it records the begin and waits as the scenario says; `end` records the result.
/// Functions use it through `answer`, `answerYesNo` or `answerNothing` below.
class Call {
 public:
  /// With no scenario loaded, and a bad one in the environment: one line on stderr and exit code 2.
  Call(Function function, const Target& target);
  ~Call();  ///< without `end`, records an end without result
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  /// What to answer without doing anything: a null pointer, an unknown printer, no job, a fault or a printer that restarts.
  std::optional<int> refusal() const;

  // For a call that was not refused.

  bool garbage() const { return m_call.effects.garbage; }
  /// Counts the printer's calls of the function from 1.
  std::uint32_t number() const { return m_call.number; }
  const Printer& printer() const { return m_call.session->scenario.printers[*m_call.printer]; }

  /// What `use(state, now)` returns; it must not wait.
  template <typename Use>
  auto onState(Use use) const {
    return Simulation::instance().visit(
        *m_call.session, [&](Session& session, milliseconds at) { return use(session.printers[*m_call.printer], at); });
  }

  /// Begins a job of the call's printer, `job.subject` and what follows it filled by the caller.
  void startJob(JobKind kind, Job job = {}) const;
  /// The job that the call is about.
  struct JobNow {
    Job job;
    milliseconds age{};
  };
  JobNow job() const;
  /// Ends it, and returns it as it was.
  JobNow endJob() const;

  /// Hands `result` on.
  int end(int result);

 private:
  std::optional<int> failure() const;
  void finish(std::optional<int> result);

  const Target m_target;  // its text is the caller's, who outlives the call
  const OpenCall m_call;
  bool m_ended = false;
};

/// @name Shapes of a function
/// Each makes the call and runs `work(call)`, which returns what the function answers, unless the call is refused.
/// @{
template <typename Work>
int answer(Function function, const Target& target, Work work) {
  Call call(function, target);
  if (const auto refused = call.refusal()) return call.end(*refused);
  return call.end(work(call));
}

template <typename Work>
bool answerYesNo(Function function, const Target& target, Work work) {
  return answer(function, target, [&](const Call& call) { return work(call) ? 1 : 0; }) != 0;
}

template <typename Work>
void answerNothing(Function function, const Target& target, Work work) {
  const Call call(function, target);
  if (!call.refusal()) work(call);
}
/// @}

}  // namespace simulator
