/// What a worker does between two runs.

#include <algorithm>
#include <iterator>

#include "model/Pacing.h"
#include "model/StepParts.h"

namespace soak {
namespace {

// A look at `task`'s delete mark during the tidy pass.
bool mustGo(const State& state, const List& list, TaskId task, const Knowledge& known) {
  return known.facts.isDeletedSince(task, list.turnLow) || std::ranges::binary_search(state.dropped, task);
}

// The first of the remaining tasks is the current one, as the first observer takes over; an entry without any goes.
void removeTasks(State& state, List& list, const std::vector<TaskId>& gone, int ticks) {
  for (Entry& entry : list.queue) {
    std::erase_if(entry.tasks, [&](TaskId task) { return std::ranges::find(gone, task) != gone.end(); });
  }
  std::erase_if(list.queue, [](const Entry& entry) { return entry.tasks.empty(); });
  for (const TaskId task : gone) state.leave(task, list.id, ticks);
}

// What may have left and is not released by now has stayed, unless somebody else holds it.
std::vector<TaskId> heldInDoubt(const State& state, const List& list, const Knowledge& known) {
  std::vector<TaskId> held;
  for (const Entry& entry : list.queue) {
    if (!state.isHeld(entry.type)) continue;
    std::ranges::copy_if(entry.tasks, std::back_inserter(held), [&](TaskId task) { return mayHaveLeft(list, task, known); });
  }
  return held;
}

void beginAt(State state, std::size_t index, std::size_t chosen, const Knowledge& known, std::vector<State>& found) {
  List& list = state.lists[index];
  const auto place = list.queue.begin() + static_cast<std::ptrdiff_t>(chosen);
  std::rotate(list.queue.begin(), place, place + 1);
  const TaskTraits& traits = known.facts.traitsOf(list.queue.front().tasks.front());
  list.place = Place::running;
  list.wakes.value.reset();
  list.run = {};
  list.run.keepsNpa = traits.type != Type::State || traits.wrongRecord;
  found.push_back(std::move(state));
}

// The first entry whose current task is a once task, else the front.
void addSelections(const State& state, std::size_t index, const Knowledge& known, std::vector<State>& found) {
  const List& list = state.lists[index];
  if (list.queue.empty() || list.queue.front().late) return;
  for (std::size_t chosen = 0; chosen < list.queue.size() && !list.queue[chosen].late; ++chosen) {
    const TaskId current = list.queue[chosen].tasks.front();
    if (!known.facts.mayBeOnce(current, list.turnLow)) continue;
    beginAt(state, index, chosen, known, found);
    if (!known.facts.mayRepeat(current, list.turnLow)) return;
  }
  beginAt(state, index, 0, known, found);
}

void addTidied(State state, std::size_t index, const Knowledge& known, std::vector<State>& found) {
  List& list = state.lists[index];
  std::vector<TaskId> gone;
  for (const Entry& entry : list.queue) {
    std::ranges::copy_if(entry.tasks, std::back_inserter(gone), [&](TaskId task) { return mustGo(state, list, task, known); });
  }
  takeDeleted(state, index, gone, known);
  if (!gone.empty()) list.lastTouched.value = known.ticks;
  list.place = Place::tidied;
  found.push_back(std::move(state));
}

// Every task that is left was found deleted.
void addEmptied(State state, std::size_t index, const Knowledge& known, std::vector<State>& found) {
  List& list = state.lists[index];
  std::vector<TaskId> all;
  for (const Entry& entry : list.queue) all.insert(all.end(), entry.tasks.begin(), entry.tasks.end());
  if (!std::ranges::all_of(all, [&](TaskId task) { return mayHaveLeft(list, task, known); })) return;
  takeDeleted(state, index, all, known);
  found.push_back(std::move(state));
}

void addTidiedSteps(const State& state, std::size_t index, const Knowledge& known, std::vector<State>& found) {
  const List& list = state.lists[index];
  if (list.queue.empty()) {  // or a task still comes in time for it
    List& idle = found.emplace_back(state).lists[index];
    if (!idle.idleTurn) stampIdleCycle(idle, idle.turnLow);
    idle.place = Place::waiting;
    return;
  }
  if (list.chosen) return;
  if (state.isAwaited(list)) found.emplace_back(state).lists[index].chosen = true;
  addEmptied(state, index, known, found);
}

// Only a `Stop` that comes in between tells the turn from the pass that follows.
bool isStopping(const State& state) {
  return std::ranges::any_of(state.operations, [](const Operation& one) { return one.what == What::stopBegin; });
}

void addTurn(State state, std::size_t index, const Knowledge& known, std::vector<State>& found) {
  if (state.lists[index].queue.empty() && !state.isAwaited(state.lists[index])) return;
  if (!beginTurn(state.lists[index], known.now, state.isWaking())) return;
  if (isStopping(state)) {
    found.push_back(std::move(state));
  } else {
    addTidied(std::move(state), index, known, found);
  }
}

// Every registered list of the printer goes out of the registry, not only this one.
void addCleared(State state, std::size_t index, const Knowledge& known, std::vector<State>& found) {
  List& list = state.lists[index];
  std::vector<TaskId> gone;
  for (const Entry& entry : list.queue) gone.insert(gone.end(), entry.tasks.begin(), entry.tasks.end());
  removeTasks(state, list, gone, known.ticks);
  for (List& other : state.lists) state.unregister(other);
  list.place = Place::gone;
  list.lastTouched.value = known.ticks;
  // Of one that has shown no thread no end will be seen.
  if (list.thread == 0 && list.worker == 0) state.lists.erase(state.lists.begin() + static_cast<std::ptrdiff_t>(index));
  found.push_back(std::move(state));
}

// Nobody can find a list any more that is not registered.
void addLeaving(State state, std::size_t index, const Knowledge& known, std::vector<State>& found) {
  List& list = state.lists[index];
  list.goesOn = false;
  list.place = Place::leaving;
  if (!list.registered && !state.isAwaited(list)) return addCleared(std::move(state), index, known, found);
  found.push_back(std::move(state));
}

void addWaitingSteps(const State& state, std::size_t index, const Knowledge& known, std::vector<State>& found) {
  const List& list = state.lists[index];
  if (!list.goesOn) return addLeaving(state, index, known, found);
  addTurn(state, index, known, found);
  if (list.queue.empty() && !list.pace.fresh && known.now >= idleEnd(list)) addLeaving(state, index, known, found);
}

}  // namespace

std::vector<State> runsFrom(const State& state, std::size_t index, const Knowledge& known) {
  std::vector<State> found;
  const auto held = heldInDoubt(state, state.lists[index], known);
  for (const std::vector<TaskId>& gone : choicesOf(held)) {
    State resolved = state;
    removeTasks(resolved, resolved.lists[index], gone, known.ticks);
    addSelections(resolved, index, known, found);
  }
  return found;
}

// Marks are looked at one by one, so a mark that comes during the pass may count as well.
bool mayHaveLeft(const List& list, TaskId task, const Knowledge& known) {
  return list.place == Place::tidied && known.facts.mayBeDeleted(task);
}

// The pass that found them deleted was no earlier than their deletion was asked for.
void takeDeleted(State& state, std::size_t index, const std::vector<TaskId>& tasks, const Knowledge& known) {
  List& list = state.lists[index];
  for (const TaskId task : tasks) list.turnLow = std::max(list.turnLow, known.facts.deletedFrom(task));
  removeTasks(state, list, tasks, known.ticks);
}

void addCycleSteps(const State& state, std::size_t list, const Knowledge& known, std::vector<State>& found) {
  switch (state.lists[list].place) {
    case Place::waiting:
      return addWaitingSteps(state, list, known, found);
    case Place::turn:
      return addTidied(state, list, known, found);
    case Place::tidied:
      return addTidiedSteps(state, list, known, found);
    case Place::leaving:
      return addCleared(state, list, known, found);
    default:
      return;
  }
}

}  // namespace soak
