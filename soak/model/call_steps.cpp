/// The effects of the control functions.

#include <algorithm>

#include "model/Pacing.h"
#include "model/StepParts.h"

namespace soak {
namespace {

Entry* entryOf(List& list, Type type) {
  const auto found = std::ranges::find(list.queue, type, &Entry::type);
  return found == list.queue.end() ? nullptr : &*found;
}

// All tasks of the entry may have left in the tidy pass.
bool isDoubtful(const List& list, const Entry& entry, const Knowledge& known) {
  return std::ranges::all_of(entry.tasks, [&](TaskId task) { return mayHaveLeft(list, task, known); });
}

void noteAdded(State& state, List& list, const Operation& add, const Knowledge& known) {
  if (add.type == Type::State && known.facts.traitsOf(add.task).npaRequested) state.setRequest(add.task, Request::yes);
  list.pace.idleCycles = 0;
  list.idleTurn = false;
  if (list.queue.size() == 1 && list.queue.front().tasks.size() == 1) list.lastTouched.value = known.ticks;  // it was empty
}

void placeIn(State& state, List& list, const Operation& add, const Knowledge& known) {
  if (Entry* entry = entryOf(list, add.type)) {
    entry->tasks.push_back(add.task);
  } else {
    list.queue.push_back({add.type, {add.task}, list.place == Place::tidied && list.chosen});
  }
  noteAdded(state, list, add, known);
}

// Where an entry may be gone, the task makes a new one.
void addPlacedBehind(State state, std::size_t index, ListId id, const Knowledge& known, std::vector<State>& found) {
  Operation& add = state.operations[index];
  List* list = state.find(id);
  const Entry* entry = entryOf(*list, add.type);
  if (entry == nullptr || !isDoubtful(*list, *entry, known)) return;
  if (list->chosen && list->queue.size() == 1) return;  // it would have been chosen
  const auto former = entry->tasks;
  list->queue.push_back({add.type, {add.task}, list->chosen});
  takeDeleted(state, static_cast<std::size_t>(list - state.lists.data()), former, known);
  noteAdded(state, *list, add, known);
  add.done = true;
  found.push_back(std::move(state));
}

// A list that is gone drops what is placed in it, on the thread of whoever lets go of the list itself.
void addPlaced(State state, std::size_t index, ListId id, const Knowledge& known, std::vector<State>& found) {
  Operation& add = state.operations[index];
  List* list = state.find(id);
  if (list == nullptr || list->place == Place::gone) {
    state.leave(add.task, 0, known.ticks);
  } else {
    addPlacedBehind(state, index, id, known, found);
    placeIn(state, *list, add, known);
  }
  add.done = true;
  found.push_back(std::move(state));
}

void addMade(State state, std::size_t index, const Knowledge& known, std::vector<State>& found) {
  Operation& add = state.operations[index];
  List list;
  list.id = state.lists.empty() ? 1 : state.lists.back().id + 1;
  const TaskFacts& task = *known.facts.find(add.task);
  list.interval = task.traits.interval;
  list.pace.checkLow = task.addBegin;
  list.lastTouched.value = known.ticks;
  state.lists.push_back(std::move(list));
  placeIn(state, state.lists.back(), add, known);
  add.done = true;
  found.push_back(std::move(state));
}

// Into the registered list, which is made where there is none, or into one that it found before that went out of the registry.
void addAdded(const State& state, std::size_t index, const Knowledge& known, std::vector<State>& found) {
  const auto registered = std::ranges::find_if(state.lists, &List::registered);
  if (registered == state.lists.end()) {
    addMade(state, index, known, found);
  } else {
    addPlaced(state, index, registered->id, known, found);
  }
  for (const ListId former : state.operations[index].found) addPlaced(state, index, former, known, found);
}

void stop(State& state, Operation& operation, const Knowledge& known) {
  operation.done = true;
  for (List& list : state.lists) {
    if (!list.registered) continue;
    state.unregister(list);
    list.goesOn = false;
    ++list.pace.posts.value;
    if (list.place != Place::waiting || pacedByCheck(list))
      list.wakes.value = known.ticks;  // it looks whether it goes on before it waits
    list.lastTouched.value = known.ticks;
  }
}

// What a watch does over a task that is deleted shows nothing.
bool showsItsTurn(const List& list) {
  return std::ranges::find(list.queue, Type::FirmUpCheck, &Entry::type) == list.queue.end();
}

void request(State& state, Operation& operation, const Knowledge& known) {
  operation.done = true;
  List* list = state.registered();
  Entry* entry = list == nullptr ? nullptr : entryOf(*list, operation.type);
  if (entry == nullptr) return;
  const bool start = operation.what == What::startBegin;
  if (start) {
    ++list->pace.posts.value;
    list->pace.woken.value = true;
    const bool ends = showsItsTurn(*list) && (list->place != Place::waiting || pacedByCheck(*list));
    if (ends && !list->wakes.value) list->wakes.value = known.ticks;
  }
  if (operation.type != Type::State) return;  // nobody else looks at it
  operation.tasks = entry->tasks;
  for (const TaskId task : operation.tasks) state.setRequest(task, Request::either);  // until it has returned
}

}  // namespace

void addCallSteps(const State& state, const Knowledge& known, std::vector<State>& found) {
  for (std::size_t index = 0; index < state.operations.size(); ++index) {
    const Operation& operation = state.operations[index];
    if (operation.done) continue;
    if (operation.what == What::addBegin) {
      addAdded(state, index, known, found);
    } else if (State& next = found.emplace_back(state); operation.what == What::stopBegin) {
      stop(next, next.operations[index], known);
    } else {
      request(next, next.operations[index], known);
    }
  }
}

}  // namespace soak
