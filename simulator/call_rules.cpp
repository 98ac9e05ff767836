#include "simulator/CallRules.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>
#include <string>

#include "simulator/Limits.h"

namespace simulator {
namespace {

constexpr auto functionNames = namesOf(functionTable);

/// How many characters must be put in, taken out or replaced to turn one text into the other.
std::size_t distance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (const char character : from) {
    std::size_t diagonal = row[0]++;
    for (std::size_t i = 1; i < row.size(); ++i) {
      const std::size_t replaced = diagonal + (character == to[i - 1] ? 0 : 1);
      diagonal = row[i];
      row[i] = std::min({replaced, row[i] + 1, row[i - 1] + 1});
    }
  }
  return row.back();
}

/// Null when the call names no function.
const FunctionRow* functionOf(const StrictElement& call) {
  if (!call.has("function")) return nullptr;
  const std::string name = call.raw("function");
  if (const FunctionRow* row = findFunction(name)) return row;
  const std::string start = name.substr(0, 64);  // longer than any; the work grows with its length
  const auto nearest = std::ranges::min(functionNames, {}, [&](std::string_view one) { return distance(start, one); });
  call.wrong("function", "the name of one of the maker's functions; the nearest is " + std::string(nearest));
}

milliseconds latencyAttribute(const StrictElement& call, std::string_view attribute, milliseconds min = {}) {
  return milliseconds(call.number(attribute, min.count(), longestLatency.count()));
}

std::optional<Latency> readLatency(const StrictElement& call) {
  const bool span = call.has("latency-min") || call.has("latency-max");
  if (call.has("latency")) {
    if (span) call.fail("<call> has latency and latency-min or latency-max; right is latency alone or both of the others");
    const milliseconds fixed = latencyAttribute(call, "latency");
    return Latency{fixed, fixed};
  }
  if (!span) return std::nullopt;
  const milliseconds min = latencyAttribute(call, "latency-min");
  return Latency{min, latencyAttribute(call, "latency-max", min)};
}

struct FaultRow {
  std::string_view name;
  FaultKind kind;
};
constexpr std::array faultTable{FaultRow{"fail", FaultKind::fail}, FaultRow{"hang", FaultKind::hang},
                                FaultRow{"garbage", FaultKind::garbage}};
constexpr auto faultNames = namesOf(faultTable);

void allowFaultAttributes(const StrictElement& fault, FaultKind kind, Answer answer) {
  std::vector<std::string_view> known{"call", "from-call", "calls", "from-ms", "until-ms"};
  if (kind == FaultKind::fail && answer != Answer::flag) known.insert(known.begin(), "code");
  if (kind == FaultKind::hang) known.insert(known.begin(), "ms");
  fault.allow(known);
}

std::int32_t readCode(const StrictElement& fail, Answer answer) {
  using Int = std::numeric_limits<std::int32_t>;
  if (answer == Answer::flag) return 0;
  const auto code = static_cast<std::int32_t>(fail.number("code", Int::min(), answer == Answer::count ? -1 : Int::max()));
  if (code == 0) fail.wrong("code", "a whole number other than 0, which means success");
  return code;
}

void readCallNumbers(const StrictElement& element, Fault& fault) {
  if (element.has("call")) {
    if (element.has("from-call") || element.has("calls")) {
      element.fail("<" + std::string(element.name()) + "> has call and from-call or calls; right is call alone, for one call");
    }
    fault.fromCall = static_cast<std::uint32_t>(element.number("call", 1, mostCalls));
    fault.calls = 1;
    return;
  }
  fault.fromCall = static_cast<std::uint32_t>(element.number("from-call", 1, mostCalls, fault.fromCall));
  fault.calls = static_cast<std::uint32_t>(element.number("calls", 1, mostCalls, fault.calls));
}

Fault readFault(const StrictElement& element, Answer answer) {
  const auto row = std::ranges::find(faultTable, element.name(), &FaultRow::name);
  Fault fault;
  fault.kind = row->kind;
  allowFaultAttributes(element, fault.kind, answer);
  if (fault.kind == FaultKind::fail) fault.code = readCode(element, answer);
  if (element.has("ms")) fault.length = milliseconds(element.number("ms", 1, longestHang.count()));
  readCallNumbers(element, fault);
  fault.from = milliseconds(element.number("from-ms", 0, latestTime.count(), 0));
  if (element.has("until-ms")) {
    fault.until = milliseconds(element.number("until-ms", fault.from.count() + 1, latestTime.count()));
  }
  return fault;
}

void refuseImpossible(const StrictElement& fault, const FunctionRow* function) {
  const std::string tag = "<" + std::string(fault.name()) + ">";
  if (function == nullptr) fault.fail(tag + " in a <call> without function; right is a <call> with function");
  if (function->answer == Answer::nothing && fault.name() != "hang") {
    fault.fail(tag + " for " + std::string(function->name) + ", which answers nothing; right is <hang>");
  }
}

FunctionRules readRules(const StrictElement& call, const FunctionRow* function) {
  call.allow(std::array<std::string_view, 4>{"function", "latency", "latency-min", "latency-max"}, faultNames);
  FunctionRules rules{.line = call.line(), .latency = readLatency(call), .faults = {}};
  for (const StrictElement& fault : call.children()) {
    refuseImpossible(fault, function);
    rules.faults.push_back(readFault(fault, function->answer));
  }
  return rules;
}

}  // namespace

CallRules readCallRules(const StrictElement& parent) {
  CallRules rules;
  for (const StrictElement& call : parent.children("call")) {
    const FunctionRow* function = functionOf(call);
    auto& place = function == nullptr ? rules.everyFunction : rules.byFunction[indexOf(function->function)];
    if (place) {
      call.fail("second <call> for " + std::string(function == nullptr ? "every function" : function->name) + " in <" +
                std::string(parent.name()) + ">; right is one, as in line " + std::to_string(place->line));
    }
    place = readRules(call, function);
  }
  return rules;
}

std::array<Behaviour, functionCount> behaviourOf(const CallRules& printer, const CallRules& scenario) {
  std::array<Behaviour, functionCount> all;
  for (std::size_t i = 0; i < functionCount; ++i) {
    bool hasLatency = false;
    for (const CallRules* rules : {&printer, &scenario}) {
      for (const auto* place : {&rules->byFunction[i], &rules->everyFunction}) {
        if (!*place) continue;
        if (!hasLatency && (*place)->latency) {
          all[i].latency = *(*place)->latency;
          hasLatency = true;
        }
        all[i].faults.insert(all[i].faults.end(), (*place)->faults.begin(), (*place)->faults.end());
      }
    }
  }
  return all;
}

}  // namespace simulator
