#include "model/PrinterModel.h"

#include <algorithm>
#include <set>

#include "model/Describe.h"
#include "model/Occurrence.h"
#include "model/Overdue.h"

namespace soak {
namespace {

constexpr std::size_t kRemembered = 60;
constexpr std::size_t kFew = 3;
constexpr std::size_t kMostTold = 6;

// Of a task's flags the facts know all that there is.
bool isOfFlags(What what) {
  return what == What::deleteBegin || what == What::deleteEnd || what == What::onceBegin || what == What::onceEnd;
}

bool isCallBegin(What what) {
  return what == What::addBegin || what == What::stopBegin || what == What::startBegin || what == What::pauseBegin;
}

bool isCallEnd(What what) {
  return what == What::addEnd || what == What::stopEnd || what == What::startEnd || what == What::pauseEnd;
}

// Of a list whose thread is not yet known, or of the next task of the same type; or a watch that showed nothing; or a call
// that has marked a task only after a run looked at it.
bool mayBeAnother(const State& state, const Event& event, const Knowledge& known) {
  if (event.what == What::released) {
    const TaskFacts* task = known.facts.find(event.task);
    return task != nullptr && task->traits.type == Type::FirmUpCheck;
  }
  if (event.what == What::startEnd || event.what == What::pauseEnd) {
    return std::ranges::any_of(state.lists, [&](const List& list) { return mayFindEither(state, list, known); });
  }
  if (!isOfRun(event.what)) return false;
  const auto own = listOfThread(state, event.thread);
  if (!own) return true;
  const List& list = state.lists[*own - 1];
  return event.what == What::callBegin && list.place == Place::running && list.run.phase == Run::Phase::choice &&
         nextOfRun(list, known).done;
}

void tell(std::string& text, const std::string& heading, const std::set<std::string>& lines) {
  text += heading + "\n";
  std::size_t told = 0;
  for (const std::string& line : lines) {
    if (++told > kMostTold) break;
    text += "  - " + line + "\n";
  }
  if (lines.size() > kMostTold) text += "  - and " + std::to_string(lines.size() - kMostTold) + " more\n";
}

// A state that another of them comes to by an unseen step allows nothing that the other does not allow: what a step may find
// goes by the times of what was seen before it, so it may be taken later as well as now. Only a call that returns makes a
// request certain; `mayBeAnother` sees to the runs that looked at it before.
std::vector<State> withoutFollowers(StateSet& states, const Knowledge& known) {
  if (states.size() < kFew) return states.all();
  for (const State& state : states.all()) {
    if (!states.contains(state)) continue;  // two may follow each other: one of them stays
    for (State& next : stepsFrom(state, known)) {
      next.simplify();
      if (next != state) states.erase(next);
    }
  }
  return states.all();
}

}  // namespace

PrinterModel::PrinterModel(const PrinterTraits& printer, std::size_t mostWays) : m_printer(printer), m_mostWays(mostWays) {}

// From each state, unseen steps are taken until the event is explained, and none after that, unless they lead to another run
// that explains it as well.
std::vector<State> PrinterModel::explained(const Event& event, std::vector<std::string>* objections) const {
  const Knowledge known{m_facts, m_printer, event.time, m_ticks};
  StateSet found;
  StateSet visited;
  for (const State& state : m_states) visited.insert(state);
  std::vector<State> open = m_states;
  while (!open.empty()) {
    const State state = std::move(open.back());
    open.pop_back();
    auto here = explain(state, event, known);
    if (objections != nullptr) std::ranges::move(here.objections, std::back_inserter(*objections));
    const bool explains = !here.states.empty();
    for (State& one : here.states) found.insert(std::move(one));
    if (explains && !mayBeAnother(state, event, known)) continue;
    for (State& next : stepsBefore(state, event, known)) {
      next.simplify();
      if (visited.insert(next)) open.push_back(std::move(next));
    }
    if (visited.size() > m_mostWays) throw TooManyWays("more than " + std::to_string(m_mostWays) + " states");
  }
  return withoutFollowers(found, known);
}

std::optional<std::string> PrinterModel::see(const Event& event) {
  if (event.what == What::tick) return overdue(event);
  remember(event);
  m_facts.note(event);
  if (auto found = follow(event)) return found;
  if (event.what == What::released) m_facts.forget(event.task);
  return std::nullopt;
}

std::optional<std::string> PrinterModel::follow(const Event& event) {
  if (m_setAside) followCalls(event);
  if (m_setAside || isOfFlags(event.what)) return std::nullopt;
  try {
    auto next = explained(event, nullptr);
    if (next.empty()) return difference(event);
    m_states = std::move(next);
  } catch (const TooManyWays&) {
    m_setAside = true;
    State calls;
    calls.operations = std::move(m_states.front().operations);  // the same are under way in all
    m_states = {std::move(calls)};
    followCalls(event);
    return std::nullopt;
  }
  m_mostStates = std::max(m_mostStates, m_states.size());
  countRun(event);
  return std::nullopt;
}

void PrinterModel::followCalls(const Event& event) {
  auto& calls = m_states.front().operations;
  if (isCallEnd(event.what)) std::erase_if(calls, [&](const Operation& call) { return call.caller == event.thread; });
  if (isCallBegin(event.what)) calls.push_back({.caller = event.thread, .what = event.what, .began = {m_ticks}});
}

std::optional<std::string> PrinterModel::overdue(const Event& event) {
  ++m_ticks;
  const auto why = [&](const State& state) { return overdueIn(state, m_ticks); };
  std::set<std::string> reasons;
  for (const State& state : m_states) reasons.insert(why(state));
  if (reasons.empty() || reasons.contains("")) {
    std::erase_if(m_states, [&](const State& state) { return !why(state).empty(); });
    return std::nullopt;
  }
  std::string text;
  tell(text, "nothing has come that was long due at " + clockTime(event.time) + ":", reasons);
  return text + situation(event);
}

std::optional<std::string> PrinterModel::atRest(Moment now) {
  std::string unreleased;
  for (const TaskId task : m_facts.known()) unreleased += " " + std::to_string(task);
  if (!unreleased.empty()) return "the module has not let go of these tasks:" + unreleased + "\n";
  return follow({.what = What::tick, .time = now});
}

std::string PrinterModel::difference(const Event& event) const {
  std::string text = "the module did:\n  " + textOf(event) + "\n";
  std::vector<std::string> objections;
  try {
    explained(event, &objections);
  } catch (const TooManyWays& reason) {
    objections = {reason.what()};
  }
  tell(text, "it should have done, as far as can be told from outside:", {objections.begin(), objections.end()});
  return text + situation(event);
}

std::string PrinterModel::situation(const Event& event) const {
  const Knowledge known{m_facts, m_printer, event.time, m_ticks};
  std::string text = "what the module may have been doing before (" + std::to_string(m_states.size()) + " ways):\n";
  for (std::size_t way = 0; way < std::min(m_states.size(), kMostTold); ++way) {
    text += "  way " + std::to_string(way + 1) + ":\n" + textOf(m_states[way], known);
  }
  text += "the printer's last events:\n";
  for (const Event& one : m_recent) text += "  " + textOf(one) + "\n";
  return text;
}

void PrinterModel::remember(const Event& event) {
  m_recent.push_back(event);
  if (m_recent.size() > kRemembered) m_recent.pop_front();
}

void PrinterModel::countRun(const Event& event) {
  const bool began = std::ranges::any_of(
      m_states.front().lists, [&](const List& list) { return list.place == Place::running && list.run.begin == event.number; });
  if (began) ++m_runs;
}

}  // namespace soak
