#pragma once

#include <optional>
#include <string_view>

#include "simulator/Simulation.h"

namespace simulator {

/// How a call names its printer.
struct Target {
  const std::wstring qzstd::PrinterInfo::*key = nullptr;
  std::optional<std::wstring_view> value;  ///< none: the caller's pointer was null
};

Target byUid(const qzstd::PrinterInfo* printer);
Target byManagerId(const qzstd::PrinterInfo* printer);
Target byManagerId(const wchar_t* managerId);

/// One call of a simulated function. Making it records the begin and waits as the scenario says; `end` records the result.
///
/// A function makes one, returns early on a `refusal`, and otherwise does what it does, or its worst under `garbage`:
///
///     Call call(Function::getState, byUid(printer));
///     if (const auto code = call.refusal()) return call.end(*code);
///     ...
///     return call.end(success);
class Call {
 public:
  /// With no scenario loaded, and a bad one in the environment: one line on stderr and exit code 2.
  Call(Function function, const Target& target);
  ~Call();  ///< without `end`, records an end without result
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  /// What to answer without doing anything: a null pointer, an unknown printer or a fault.
  std::optional<int> refusal() const;
  bool garbage() const { return m_call.effects.garbage; }

  const Printer& printer() const { return m_call.session->scenario.printers[*m_call.printer]; }
  Readings readings() const { return Simulation::instance().readings(m_call); }
  bool checkAddress() { return Simulation::instance().checkAddress(m_call); }

  /// Hands `result` on.
  int end(int result);

 private:
  const bool m_badArgument;
  const OpenCall m_call;
  bool m_ended = false;
};

}  // namespace simulator
