#include "model/Concern.h"

#include <algorithm>

#include "model/Occurrence.h"

namespace soak {
namespace {

bool isUnderWay(const Operation& operation) { return operation.what == What::addBegin && !operation.done; }

// Before it has shown anything else. What the entry at the front of a run does is left open.
bool mayEndUnseen(const State& state, const List& list, const Knowledge& known) {
  if (!list.goesOn) return true;
  const std::ptrdiff_t running = list.place == Place::running ? 1 : 0;
  return std::all_of(list.queue.begin() + running, list.queue.end(), [&](const Entry& entry) {
    return std::ranges::all_of(entry.tasks, [&](TaskId task) {
      return known.facts.mayBeDeleted(task) || std::ranges::binary_search(state.dropped, task);
    });
  });
}

// As it ends, it takes the registered list out of the registry: one that is there, or that an `Add` makes before.
bool mayUnregister(const State& state, const List& list, const Knowledge& known) {
  const bool there = std::ranges::any_of(state.lists, &List::registered);
  return (there || std::ranges::any_of(state.operations, isUnderWay)) && mayEndUnseen(state, list, known);
}

// Calls act on the registered list; an `Add` may also have found a former one, and a start or pause may have marked its tasks.
bool concernsReturn(const State& state, const List& list, const Event& event, const Knowledge& known) {
  if (list.registered || mayUnregister(state, list, known) || mayFindEither(state, list, known)) return true;
  return std::ranges::any_of(state.operations, [&](const Operation& one) {
    return one.caller == event.thread && isUnderWay(one) && std::ranges::find(one.found, list.id) != one.found.end();
  });
}

bool concernsRun(const State& state, const List& list, const Event& event, const Knowledge& known) {
  if (const auto own = listOfThread(state, event.thread)) return list.id == *own;
  if (list.thread == 0) return true;
  // A list that is still to be made.
  return std::ranges::any_of(state.operations, isUnderWay) && mayUnregister(state, list, known);
}

bool concernsRelease(const State& state, const List& list, const Event& event) {
  if (list.holds(event.task)) return true;
  return std::ranges::any_of(state.operations, [&](const Operation& one) { return isUnderWay(one) && one.task == event.task; });
}

}  // namespace

bool concerns(const State& state, const List& list, const Event& event, const Knowledge& known) {
  switch (event.what) {
    case What::released:
      return concernsRelease(state, list, event);
    case What::threadEnded:
      return listOfThread(state, event.thread) == list.id;
    case What::tick:
      return list.id == state.lists.front().id;  // at the end of everything: one list after the other
    default:
      return isOfRun(event.what) ? concernsRun(state, list, event, known) : concernsReturn(state, list, event, known);
  }
}

}  // namespace soak
