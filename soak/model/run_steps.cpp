/// What a worker and its handler do unseen during a run, and at its end.

#include <algorithm>

#include "model/Concern.h"
#include "model/Pacing.h"
#include "model/StepParts.h"

namespace soak {
namespace {

void keepRecord(State& state, const List& list, const Knowledge& known) {
  const TaskId current = list.queue.front().tasks.front();
  if (list.run.begin == 0 || list.run.at.record == newRecord(known.facts.traitsOf(current))) return;
  state.setRecord(current, list.run.at.record);
}

// Once observers leave, notified or not. A once task leaves as well, and the first of the others takes its place.
void requeue(State state, std::size_t index, const std::vector<TaskId>& once, const Knowledge& known,
             std::vector<State>& found) {
  List& list = state.lists[index];
  const auto isOnce = [&](TaskId task) { return std::ranges::find(once, task) != once.end(); };
  stampRun(list);
  keepRecord(state, list, known);
  Entry entry = std::move(list.queue.front());
  list.queue.erase(list.queue.begin());
  std::vector<TaskId> stay;
  for (const TaskId task : entry.tasks) {
    if (isOnce(task)) {
      state.leave(task, list.id, known.ticks);
    } else {
      stay.push_back(task);
    }
  }
  entry.tasks = std::move(stay);
  if (!entry.tasks.empty()) list.queue.push_back(std::move(entry));
  list.pace.idled = list.queue.empty();
  if (list.wakes.value) list.wakes.value = std::max(*list.wakes.value, list.lastTouched.value);  // when the run was last seen
  if (list.queue.empty()) list.wakes.value.reset();
  list.run = {};
  list.place = Place::waiting;
  list.lastTouched.value = known.ticks;
  found.push_back(std::move(state));
}

void addRequeued(const State& state, std::size_t index, const Knowledge& known, std::vector<State>& found) {
  const List& list = state.lists[index];
  std::vector<TaskId> certain;
  std::vector<TaskId> unsure;
  for (const TaskId task : list.queue.front().tasks) {
    if (!known.facts.mayBeOnce(task, list.lastSeen)) continue;
    (known.facts.mayRepeat(task, list.lastSeen) ? unsure : certain).push_back(task);
  }
  for (std::vector<TaskId>& once : choicesOf(unsure)) {
    once.insert(once.end(), certain.begin(), certain.end());
    requeue(state, index, once, known, found);
  }
}

void addReading(const State& state, std::size_t index, std::vector<State>& found) {
  const TaskId task = state.lists[index].queue.front().tasks.front();
  const Request request = state.requestOf(task);
  const auto read = [&](Progress::Npa npa, Request then) {
    State& next = found.emplace_back(state);
    next.lists[index].run.at.npa = npa;
    if (!state.isRequesting()) next.setRequest(task, then);  // it stays as it was found
  };
  if (request != Request::yes) read(Progress::Npa::no, Request::no);
  if (request != Request::no) read(Progress::Npa::yes, Request::yes);
}

// All windows have been told, or the one: who joins from here on is not.
void addRoundEnd(State state, std::size_t index, std::vector<State>& found) {
  List& list = state.lists[index];
  const auto& tasks = list.queue.front().tasks;
  if (list.run.noticing || list.run.told != (list.run.ownOnly ? 1U : tasks.size())) return;
  if (list.run.ownOnly) {
    state.dropped.insert(state.dropped.end(), tasks.begin() + 1, tasks.end());
    std::ranges::sort(state.dropped);
    state.dropped.erase(std::ranges::unique(state.dropped).begin(), state.dropped.end());
  }
  list.run.phase = Run::Phase::choice;
  list.run.at.afterRound = true;
  found.push_back(std::move(state));
}

// A watch over a task that is deleted by then shows nothing. It ends no earlier than the deletion was asked for.
void addSilentRuns(const State& state, std::size_t index, const Knowledge& known, std::vector<State>& found) {
  for (State& begun : runsFrom(state, index, known)) {
    List& list = begun.lists[index];
    list.lastSeen = std::max(list.turnLow, known.facts.deletedFrom(list.queue.front().tasks.front()));
    if (nextOfRun(list, known).done) found.push_back(std::move(begun));
  }
}

void addListSteps(const State& state, std::size_t index, const Knowledge& known, std::vector<State>& found) {
  addCycleSteps(state, index, known, found);
  addRunSteps(state, index, known, found);
}

}  // namespace

Next nextOfRun(const List& list, const Knowledge& known) {
  const TaskId current = list.queue.front().tasks.front();
  return nextOf(list.run.at, {.printer = known.printer,
                              .task = known.facts.traitsOf(current),
                              .mayBeDeleted = known.facts.mayBeDeleted(current),
                              .isDeleted = known.facts.isDeletedSince(current, list.lastSeen)});
}

bool mayFindEither(const State& state, const List& list, const Knowledge& known) {
  return list.place == Place::running && list.run.phase == Run::Phase::choice && nextOfRun(list, known).readsNpa &&
         state.requestOf(list.queue.front().tasks.front()) == Request::either;
}

void addRunSteps(const State& state, std::size_t index, const Knowledge& known, std::vector<State>& found) {
  const List& list = state.lists[index];
  if (list.place == Place::tidied) return addSilentRuns(state, index, known, found);
  if (list.place != Place::running || list.run.phase == Run::Phase::calling) return;
  if (list.run.phase == Run::Phase::walking) return addRoundEnd(state, index, found);
  const Next next = nextOfRun(list, known);
  if (next.readsNpa) addReading(state, index, found);
  if (next.done) addRequeued(state, index, known, found);
}

std::vector<std::vector<TaskId>> choicesOf(const std::vector<TaskId>& tasks) {
  constexpr std::size_t most = 10;
  if (tasks.size() > most) throw TooManyWays(std::to_string(tasks.size()) + " tasks of one list whose flags are in flux");
  std::vector<std::vector<TaskId>> choices{{}};
  for (const TaskId task : tasks) {
    const std::size_t without = choices.size();
    for (std::size_t one = 0; one < without; ++one) {
      choices.push_back(choices[one]);
      choices.back().push_back(task);
    }
  }
  return choices;
}

std::vector<State> stepsFrom(const State& state, const Knowledge& known) {
  std::vector<State> found;
  addCallSteps(state, known, found);
  for (std::size_t index = 0; index < state.lists.size(); ++index) addListSteps(state, index, known, found);
  return found;
}

std::vector<State> stepsBefore(const State& state, const Event& event, const Knowledge& known) {
  std::vector<State> found;
  addCallSteps(state, known, found);
  for (std::size_t index = 0; index < state.lists.size(); ++index) {
    if (concerns(state, state.lists[index], event, known)) addListSteps(state, index, known, found);
  }
  return found;
}

}  // namespace soak
