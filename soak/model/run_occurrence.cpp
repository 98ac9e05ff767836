#include "model/RunOccurrence.h"

#include <algorithm>
#include <chrono>
#include <optional>

#include "model/Describe.h"
#include "model/Pacing.h"

namespace soak {
namespace {

using namespace std::chrono_literals;

// On Windows a sleep may end up to a tick of the clock early.
constexpr auto kTick = 16ms;

// What was seen last was taken down on the run's own thread, before the pause began: whatever stops a thread makes it longer.
std::optional<Moment> pausesUntil(const List& list, const Event& event, const Knowledge& known) {
  if (event.what != What::callBegin || list.run.phase != Run::Phase::choice) return std::nullopt;
  const Next next = nextOfRun(list, known);
  const Moment end = list.lastSeen + next.pause;
  if (!next.calling(event.function) || next.pause == 0ms || event.time + kTick >= end) return std::nullopt;
  return end;
}

// True when the run goes on with this call.
bool beginCall(Run& run, const Event& event, const Next& next) {
  if (run.phase != Run::Phase::choice || !next.calling(event.function)) return false;
  run.at.function = event.function;
  run.at.afterRound = false;
  run.phase = Run::Phase::calling;
  return true;
}

bool endCall(Run& run, const Event& event, const Entry& entry) {
  if (run.phase != Run::Phase::calling || run.at.function != event.function) return false;
  run.phase = Run::Phase::choice;
  noteReturn(run.at, entry.type, event);
  if (entry.type != Type::State) return true;
  run.copied = static_cast<std::uint32_t>(entry.tasks.size());
  if (event.function == "AppPrinterSdk_GetState") run.keepsNpa = true;
  return true;
}

// Who joined after the records were filled has missed it.
bool isFilled(const Run& run, const Event& event) {
  return event.value < 0 || run.told >= run.copied || (event.value != 0) == run.keepsNpa;
}

bool beginNotice(Run& run, const Event& event, const Next& next, const Entry& entry) {
  if (run.noticing) return false;
  if (run.phase == Run::Phase::choice && (next.round || next.ownNotice) && event.task == entry.tasks.front()) {
    run.phase = Run::Phase::walking;
    run.told = 0;
    run.ownOnly = next.ownNotice;
    run.noticing = true;
    return isFilled(run, event);
  }
  if (run.phase != Run::Phase::walking || run.ownOnly || run.told >= entry.tasks.size()) return false;
  run.noticing = true;
  return event.task == entry.tasks[run.told] && isFilled(run, event);
}

bool endNotice(Run& run, const Event& event, const Entry& entry) {
  if (!run.noticing || event.task != entry.tasks[run.told]) return false;
  run.noticing = false;
  ++run.told;
  return true;
}

// The own record of another type is looked at once and ends the run; an observer's is looked at in passing.
bool copyRecord(Run& run, const Event& event, const Next& next, const Entry& entry) {
  if (run.phase == Run::Phase::choice && next.ownRecord && event.task == entry.tasks.front()) {
    run.at.refused = true;
    return true;
  }
  const bool observes = std::find(entry.tasks.begin() + 1, entry.tasks.end(), event.task) != entry.tasks.end();
  return observes && sharesRecords(entry.type) && !run.at.refused;
}

bool goOn(List& list, const Event& event, const Knowledge& known) {
  const Entry& entry = list.queue.front();
  switch (event.what) {
    case What::callBegin:
      return beginCall(list.run, event, nextOfRun(list, known));
    case What::callEnd:
      return endCall(list.run, event, entry);
    case What::noticeBegin:
      return beginNotice(list.run, event, nextOfRun(list, known), entry);
    case What::noticeEnd:
      return endNotice(list.run, event, entry);
    default:
      return copyRecord(list.run, event, nextOfRun(list, known), entry);
  }
}

// What has left is let go of before the list's next run, unless a call of its type holds it as well.
std::string unreleased(const State& state, const List& list, const Knowledge& known) {
  for (const Left& left : state.left) {
    const TaskFacts* facts = known.facts.find(left.task);
    if (left.list != list.id || facts == nullptr || state.isHeld(facts->traits.type)) continue;
    return "task " + std::to_string(left.task) + " has left list " + std::to_string(list.id) +
           ", and the module should have let go of it before the next run";
  }
  return {};
}

Explained continueRun(State state, std::size_t index, const Event& event, const Knowledge& known) {
  List& list = state.lists[index];
  const bool first = list.run.begin == event.number;
  if (const auto end = pausesUntil(list, event, known)) {
    return {{}, {"list " + std::to_string(list.id) + " pauses in its run until " + clockTime(*end)}};
  }
  const List before = list;
  if (!goOn(list, event, known)) return {{}, {(first ? "next is another run: " : "") + mayShow(before, known)}};
  list.lastSeen = event.time;
  list.lastTouched.value = known.ticks;
  return {{std::move(state)}, {}};
}

void append(Explained& all, Explained more) {
  std::ranges::move(more.states, std::back_inserter(all.states));
  std::ranges::move(more.objections, std::back_inserter(all.objections));
}

Explained beginRun(State state, std::size_t index, const Event& event, const Knowledge& known) {
  List& list = state.lists[index];
  if (auto held = unreleased(state, list, known); !held.empty()) return {{}, {std::move(held)}};
  boundStampsByTurn(list, event.time);
  list.thread = event.thread;
  list.run.begin = event.number;
  const TaskId current = list.queue.front().tasks.front();
  list.run.at.record = state.recordOf(current).value_or(newRecord(known.facts.traitsOf(current)));
  return continueRun(std::move(state), index, event, known);
}

Explained beginRuns(const State& state, std::size_t index, const Event& event, const Knowledge& known) {
  Explained all;
  for (State& begun : runsFrom(state, index, known)) append(all, beginRun(std::move(begun), index, event, known));
  return all;
}

Explained explainInList(const State& state, std::size_t index, const Event& event, const Knowledge& known) {
  const List& list = state.lists[index];
  if (list.place == Place::running) {
    return list.thread == event.thread ? continueRun(state, index, event, known) : Explained{};
  }
  if (list.place == Place::tidied) return beginRuns(state, index, event, known);
  return {{}, {"list " + std::to_string(list.id) + " may not run anything: " + mayRun(list, known)}};
}

}  // namespace

void boundStampsOf(List& list, Moment seen) { boundStamps(list, seen); }

Explained explainInRun(const State& state, const Event& event, const Knowledge& known) {
  const auto own = listOfThread(state, event.thread);
  Explained all;
  for (std::size_t index = 0; index < state.lists.size(); ++index) {
    const List& list = state.lists[index];
    if (own ? list.id != *own : list.thread != 0) continue;
    append(all, explainInList(state, index, event, known));
  }
  if (all.states.empty() && all.objections.empty()) all.objections.push_back("the printer has no list that could run anything");
  return all;
}

}  // namespace soak
