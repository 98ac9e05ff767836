#include "model/State.h"

#include <algorithm>
#include <map>

#include "model/Pacing.h"

namespace soak {
namespace {

bool isEnding(const List& list) {
  return list.place == Place::leaving || list.place == Place::gone || (list.place == Place::waiting && !list.goesOn);
}

}  // namespace

bool List::holds(TaskId task) const {
  return std::ranges::any_of(queue,
                             [task](const Entry& entry) { return std::ranges::find(entry.tasks, task) != entry.tasks.end(); });
}

List* State::find(ListId id) {
  const auto found = std::ranges::find(lists, id, &List::id);
  return found == lists.end() ? nullptr : &*found;
}

List* State::registered() {
  const auto found = std::ranges::find_if(lists, &List::registered);
  return found == lists.end() ? nullptr : &*found;
}

Request State::requestOf(TaskId task) const {
  const auto found = std::ranges::find(requests, task, &std::pair<TaskId, Request>::first);
  return found == requests.end() ? Request::no : found->second;
}

void State::setRequest(TaskId task, Request request) {
  std::erase_if(requests, [task](const auto& one) { return one.first == task; });
  if (request == Request::no) return;
  requests.emplace_back(task, request);
  std::ranges::sort(requests);
}

std::optional<RecordFields> State::recordOf(TaskId task) const {
  const auto found = std::ranges::find(records, task, &std::pair<TaskId, RecordFields>::first);
  return found == records.end() ? std::nullopt : std::optional(found->second);
}

void State::setRecord(TaskId task, const RecordFields& record) {
  std::erase_if(records, [task](const auto& one) { return one.first == task; });
  records.emplace_back(task, record);
  std::ranges::sort(records);
}

void State::leave(TaskId task, ListId list, int ticks) {
  setRequest(task, Request::no);
  std::erase_if(records, [task](const auto& one) { return one.first == task; });
  std::erase(dropped, task);
  left.push_back({task, list, {ticks}});
  std::ranges::sort(left);
}

bool State::isHeld(Type type) const {
  return std::ranges::any_of(
      operations, [&](const Operation& operation) { return operation.what != What::stopBegin && operation.type == type; });
}

bool State::holds(TaskId task) const {
  return std::ranges::any_of(lists, [task](const List& list) { return list.holds(task); });
}

bool State::isRequesting() const {
  return std::ranges::any_of(operations, [](const Operation& one) {
    return one.type == Type::State && (one.what == What::startBegin || one.what == What::pauseBegin);
  });
}

bool State::isWaking() const {
  return std::ranges::any_of(operations, [](const Operation& one) { return one.what == What::startBegin && one.done; });
}

bool State::isAwaited(const List& list) const {
  return std::ranges::any_of(operations, [&](const Operation& operation) {
    if (operation.what != What::addBegin || operation.done) return false;
    return list.registered || std::ranges::find(operation.found, list.id) != operation.found.end();
  });
}

void State::unregister(List& list) {
  if (!list.registered) return;
  list.registered = false;
  for (Operation& operation : operations) {
    if (operation.what == What::addBegin && !operation.done) operation.found.push_back(list.id);
  }
}

void State::simplify(List& list) const {
  const bool turns = list.place == Place::turn || list.place == Place::tidied;
  if (turns && list.queue.empty() && !isAwaited(list)) {
    // Idle cycles of a list that was empty before need not be followed: the end of the last one is bounded, and the run of a
    // task that comes meanwhile is bounded by the first.
    if (!list.idleTurn) stampIdleCycle(list, list.turnLow);
    list.place = Place::waiting;
  }
  if (list.place != Place::running) {
    list.run = {};
    list.lastSeen = {};
  }
  if (list.place != Place::turn && list.place != Place::tidied) {
    list.turnLow = {};
    list.idleTurn = false;
  }
  if (list.place != Place::tidied) {
    list.chosen = false;
    for (Entry& entry : list.queue) entry.late = false;
  }
  if (isEnding(list)) {
    list.pace = {};
  } else if (list.interval <= 0) {
    list.pace = {.fresh = false, .checkLow = list.pace.checkLow};
  }
}

// Two ways to come to the same lists are one, however many lists there were in between.
void State::number() {
  std::map<ListId, ListId> numbers;
  for (List& list : lists) {
    const auto next = static_cast<ListId>(numbers.size() + 1);
    numbers[list.id] = next;
    list.id = next;
  }
  const auto renumber = [&numbers](ListId& id) {
    const auto found = numbers.find(id);
    id = found == numbers.end() ? 0 : found->second;
  };
  for (Operation& operation : operations) {
    if (operation.done) operation.found.clear();
    std::ranges::for_each(operation.found, renumber);
    std::ranges::sort(operation.found);
    operation.found.erase(std::ranges::unique(operation.found).begin(), operation.found.end());
  }
  for (Left& one : left) renumber(one.list);
  std::ranges::sort(left);
}

void State::simplify() {
  for (List& list : lists) simplify(list);
  number();
}

bool State::absorb(const State& equal) {
  bool more = false;
  for (std::size_t index = 0; index < lists.size(); ++index) {
    Pace& pace = lists[index].pace;
    const Pace& other = equal.lists[index].pace;
    more = more || other.posts.value > pace.posts.value || other.woken.value > pace.woken.value;
    pace.posts.value = std::max(pace.posts.value, other.posts.value);
    pace.woken.value = pace.woken.value || other.woken.value;
    pace.calmCycles.value = std::min(pace.calmCycles.value, other.calmCycles.value);
    pace.lastPost.value = std::max(pace.lastPost.value, other.lastPost.value);
    List& list = lists[index];
    const auto& wakes = equal.lists[index].wakes.value;
    if (list.wakes.value) list.wakes.value = wakes ? std::max(list.wakes.value, wakes) : std::nullopt;
    list.lastTouched.value = std::max(list.lastTouched.value, equal.lists[index].lastTouched.value);
  }
  for (std::size_t index = 0; index < left.size(); ++index) {
    left[index].since.value = std::max(left[index].since.value, equal.left[index].since.value);
  }
  return more;
}

bool StateSet::insert(State state) {
  state.simplify();
  const auto found = m_states.find(state);
  if (found == m_states.end()) {
    m_states.insert(std::move(state));
    return true;
  }
  auto node = m_states.extract(found);
  const bool more = node.value().absorb(state);
  m_states.insert(std::move(node));
  return more;
}

}  // namespace soak
