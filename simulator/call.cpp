#include "simulator/Call.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace simulator {
namespace {

std::shared_ptr<Session> sessionOrExit() {
  try {
    return Simulation::instance().session();
  } catch (const ScenarioError& error) {
    std::fprintf(stderr, "%s\n", error.what());
    std::fflush(stdout);
    std::_Exit(2);  // std::exit would destroy what other threads still use
  }
}

std::optional<std::size_t> find(const Scenario& scenario, const Target& target) {
  if (!target.value) return std::nullopt;
  const auto printer =
      std::ranges::find_if(scenario.printers, [&](const Printer& one) { return one.description.*target.key == *target.value; });
  if (printer == scenario.printers.end()) return std::nullopt;
  return static_cast<std::size_t>(printer - scenario.printers.begin());
}

OpenCall begin(Function function, const Target& target) {
  auto session = sessionOrExit();
  const auto printer = find(session->scenario, target);
  return Simulation::instance().begin(std::move(session), function, printer);
}

Target byMember(const qzstd::PrinterInfo* printer, const std::wstring qzstd::PrinterInfo::*key) {
  return {key, printer == nullptr ? std::nullopt : std::optional<std::wstring_view>(printer->*key)};
}

}  // namespace

Target byUid(const qzstd::PrinterInfo* printer) { return byMember(printer, &qzstd::PrinterInfo::uid); }

Target byManagerId(const qzstd::PrinterInfo* printer) { return byMember(printer, &qzstd::PrinterInfo::managerId); }

Target byManagerId(const wchar_t* managerId) {
  return {&qzstd::PrinterInfo::managerId, managerId == nullptr ? std::nullopt : std::optional<std::wstring_view>(managerId)};
}

Call::Call(Function function, const Target& target) : m_badArgument(!target.value), m_call(begin(function, target)) {}

Call::~Call() {
  if (!m_ended) Simulation::instance().end(m_call, std::nullopt);
}

std::optional<int> Call::refusal() const {
  const bool flag = rowOf(m_call.function).answer == Answer::flag;
  if (m_badArgument) return flag ? 0 : badArgument;
  if (!m_call.printer) return flag ? 0 : unknownPrinter;
  if (m_call.effects.failure) return m_call.effects.failure->code;
  return std::nullopt;
}

int Call::end(int result) {
  m_ended = true;
  Simulation::instance().end(m_call, result);
  return result;
}

}  // namespace simulator
