#include "model/Overdue.h"

#include <algorithm>

#include "model/Describe.h"
#include "model/Pacing.h"

namespace soak {
namespace {

constexpr int kPatience = 30;  // seconds: far beyond what a busy machine does to a thread

bool isOutside(const List& list) {
  return list.place == Place::running && (list.run.phase == Run::Phase::calling || list.run.noticing);
}

// Whatever of a cycle or of the idle cycles may have passed unseen, but where a wake-up has ended the wait.
bool isLate(const List& list, int ticks) {
  const bool woken = isWoken(list);
  int since = list.lastTouched.value;
  if (woken) since = list.place == Place::waiting ? *list.wakes.value : std::max(since, *list.wakes.value);
  const std::int64_t cycles = woken ? 0 : std::int64_t{kIdleCycles + 1} * std::max(list.interval, 0) / 1'000;
  return ticks - since > cycles + kPatience;
}

// Of a list that has shown no thread, and holds nothing, nothing will be seen.
bool isUnseen(const List& list) { return list.thread == 0 && list.worker == 0 && list.queue.empty(); }

std::string overdueIn(const List& list, int ticks) {
  if (isOutside(list) || isUnseen(list) || !isLate(list, ticks)) return {};
  const std::string name = "list " + std::to_string(list.id);
  if (list.goesOn && isWoken(list)) return name + " was woken and does not run its next entry";
  if (list.place == Place::running) return name + " does not go on with its run, nor with anything after it";
  if (!list.goesOn) return name + " was stopped and has not ended";
  return list.queue.empty() ? name + " is empty and has not ended after its idle cycles"
                            : name + " does not run its next entry";
}

std::string overdueIn(const Operation& operation, int ticks) {
  if (ticks - operation.began.value <= kPatience) return {};
  return std::string(nameOfCall(operation.what)) + " has not returned";
}

// A call may hold it as well.
std::string overdueIn(const Left& left, const State& state, int ticks) {
  if (!state.operations.empty() || ticks - left.since.value <= kPatience) return {};
  return "task " + std::to_string(left.task) + " has left its list, and the module has not let go of it";
}

}  // namespace

std::string overdueIn(const State& state, int ticks) {
  for (const Operation& operation : state.operations) {
    if (auto late = overdueIn(operation, ticks); !late.empty()) return late;
  }
  for (const Left& left : state.left) {
    if (auto late = overdueIn(left, state, ticks); !late.empty()) return late;
  }
  for (const List& list : state.lists) {
    if (auto late = overdueIn(list, ticks); !late.empty()) return late;
  }
  return {};
}

}  // namespace soak
