#include "simulator/Scenario.h"

namespace simulator {
namespace {

/// One step of the splitmix64 sequence, used as a hash: a generator that is shared would depend on the order of threads.
std::uint64_t mix(std::uint64_t value) {
  value += 0x9e3779b97f4a7c15u;
  value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9u;
  value = (value ^ (value >> 27)) * 0x94d049bb133111ebu;
  return value ^ (value >> 31);
}

milliseconds pick(const Latency& latency, std::uint64_t random) {
  const auto choices = static_cast<std::uint64_t>((latency.max - latency.min).count()) + 1;
  return latency.min + milliseconds(random % choices);
}

bool hits(const Fault& fault, std::uint32_t number, milliseconds at) {
  return number >= fault.fromCall && number - fault.fromCall < fault.calls && at >= fault.from && at < fault.until;
}

}  // namespace

Readings readingsAt(const Printer& printer, milliseconds at) {
  Readings readings = printer.initial;
  for (const Change& change : printer.timeline) {
    if (change.at > at) break;
    change.apply(readings);
  }
  return readings;
}

std::optional<milliseconds> waitOf(const Effects& effects) {
  if (!effects.hang) return effects.latency;
  if (!effects.hang->length) return std::nullopt;
  return effects.latency + *effects.hang->length;
}

Effects effectsOf(const Scenario& scenario, std::size_t printer, Function function, std::uint32_t number, milliseconds at) {
  const Behaviour& behaviour = scenario.printers[printer].behaviour[indexOf(function)];
  Effects effects;
  effects.latency = pick(behaviour.latency, mix(mix(mix(mix(scenario.seed) + printer) + indexOf(function)) + number));
  for (const Fault& fault : behaviour.faults) {
    if (!hits(fault, number, at)) continue;
    if (fault.kind == FaultKind::garbage) effects.garbage = true;
    if (fault.kind == FaultKind::hang && !effects.hang) effects.hang = fault;
    if (fault.kind == FaultKind::fail && !effects.failure) effects.failure = fault;
  }
  return effects;
}

}  // namespace simulator
