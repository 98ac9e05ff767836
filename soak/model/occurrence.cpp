#include "model/Occurrence.h"

#include <algorithm>

#include "model/Describe.h"
#include "model/RunOccurrence.h"

namespace soak {
namespace {

bool isThreadOf(const List& list, ThreadId thread) { return thread != 0 && (list.thread == thread || list.worker == thread); }

Explained objection(std::string text) { return {{}, {std::move(text)}}; }

What beginOf(What end) {
  switch (end) {
    case What::addEnd:
      return What::addBegin;
    case What::stopEnd:
      return What::stopBegin;
    case What::startEnd:
      return What::startBegin;
    default:
      return What::pauseBegin;
  }
}

bool isNpa(What what) { return what == What::startBegin || what == What::pauseBegin; }

// Start and pause at once may each have the last word for each task.
bool contest(State& state, const Event& event) {
  bool contested = false;
  for (Operation& other : state.operations) {
    if (!isNpa(event.what) || !isNpa(other.what) || other.what == event.what || other.type != event.traits.type) continue;
    other.contested = contested = true;
  }
  return contested;
}

// Now all of its tasks are marked.
void noteRequested(State& state, const Operation& operation) {
  if (operation.contested) return;
  for (const TaskId task : operation.tasks) {
    if (state.holds(task)) state.setRequest(task, operation.what == What::startBegin ? Request::yes : Request::no);
  }
}

// Only state tasks have a use for their NPA request, so of other types only `StartNPA` has an effect, its wake-up.
Explained callBegins(State state, const Event& event, const Knowledge& known) {
  const bool effect = event.what != What::pauseBegin || event.traits.type == Type::State;
  const bool contested = contest(state, event);
  state.operations.push_back({.caller = event.thread,
                              .what = event.what,
                              .task = event.task,
                              .type = event.traits.type,
                              .done = !effect,
                              .contested = contested,
                              .began = {known.ticks}});
  return {{std::move(state)}, {}};
}

Explained callReturns(State state, const Event& event) {
  const auto operation = std::ranges::find_if(
      state.operations, [&](const Operation& one) { return one.caller == event.thread && one.what == beginOf(event.what); });
  if (operation == state.operations.end()) return objection("it returns without having begun");
  if (!operation->done) return objection("it cannot have had its effect yet");
  if (event.value != 0) return objection("it should have returned 0, as it always does");
  noteRequested(state, *operation);
  if (operation->what == What::startBegin) {
    for (List& list : state.lists) list.pace.lastPost.value = event.time;
  }
  state.operations.erase(operation);
  return {{std::move(state)}, {}};
}

// The last reference goes in a call that held it as well, or where the task left: on the worker's thread, which is one list's.
std::optional<std::string> noteWorker(const State& state, List& list, ThreadId thread) {
  if (std::ranges::find(state.operations, thread, &Operation::caller) != state.operations.end()) return std::nullopt;
  const auto known = listOfThread(state, thread);
  if (list.worker == 0 ? known.has_value() : list.worker != thread) {
    return "it left list " + std::to_string(list.id) + ", which this is no thread of";
  }
  list.worker = thread;
  return std::nullopt;
}

Explained isReleased(State state, const Event& event, const Knowledge& known) {
  for (std::size_t index = 0; index < state.lists.size(); ++index) {
    const List& list = state.lists[index];
    if (list.holds(event.task) && mayHaveLeft(list, event.task, known)) takeDeleted(state, index, {event.task}, known);
  }
  const auto place = std::ranges::find(state.left, event.task, &Left::task);
  if (place == state.left.end()) return objection(whereIs(state, event.task));
  if (List* list = state.find(place->list)) {
    if (auto other = noteWorker(state, *list, event.thread)) return objection(std::move(*other));
    boundStampsOf(*list, event.time);
  }
  state.left.erase(place);
  return {{std::move(state)}, {}};
}

Explained threadEnds(State state, const Event& event) {
  const auto list = std::ranges::find_if(state.lists, [&](const List& one) { return isThreadOf(one, event.thread); });
  if (list == state.lists.end()) return {{std::move(state)}, {}};
  if (list->place != Place::gone) return objection("list " + std::to_string(list->id) + " may not end yet: " + mayEnd(*list));
  state.lists.erase(list);
  return {{std::move(state)}, {}};
}

// At the end of everything.
Explained rests(const State& state) {
  std::string over;
  for (const Left& left : state.left) over += " task " + std::to_string(left.task);
  for (const List& list : state.lists) over += " list " + std::to_string(list.id);
  if (over.empty()) return {{state}, {}};
  return objection("these should be gone:" + over);
}

}  // namespace

bool isOfRun(What what) {
  return what == What::callBegin || what == What::callEnd || what == What::noticeBegin || what == What::noticeEnd ||
         what == What::recordCopied;
}

std::optional<ListId> listOfThread(const State& state, ThreadId thread) {
  const auto list = std::ranges::find_if(state.lists, [thread](const List& one) { return isThreadOf(one, thread); });
  return list == state.lists.end() ? std::nullopt : std::optional(list->id);
}

Explained explain(const State& state, const Event& event, const Knowledge& known) {
  switch (event.what) {
    case What::addBegin:
    case What::stopBegin:
    case What::startBegin:
    case What::pauseBegin:
      return callBegins(state, event, known);
    case What::addEnd:
    case What::stopEnd:
    case What::startEnd:
    case What::pauseEnd:
      return callReturns(state, event);
    case What::released:
      return isReleased(state, event, known);
    case What::threadEnded:
      return threadEnds(state, event);
    case What::tick:
      return rests(state);
    case What::noticeBegin:
      if (!event.updated) return objection("it should have been marked as updated before its window is told");
      return explainInRun(state, event, known);
    default:
      return isOfRun(event.what) ? explainInRun(state, event, known) : Explained{{state}, {}};
  }
}

}  // namespace soak
