#include "model/Overdue.h"

#include <algorithm>

namespace soak {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 30s;  // far beyond what a busy machine does to a thread
constexpr int kIdleCycles = 10;

bool isOutside(const List& list) {
  return list.place == Place::running && (list.run.phase == Run::Phase::calling || list.run.noticing);
}

// Whatever of a cycle or of the idle cycles may have passed unseen.
bool isLate(const List& list, Moment now) {
  const std::chrono::milliseconds interval(std::max(list.interval, 0));
  return now > list.lastTouched.value + (kIdleCycles + 1) * interval + kPatience;
}

// Of a list that has shown no thread, and holds nothing, nothing will be seen.
bool isUnseen(const List& list) { return list.thread == 0 && list.worker == 0 && list.queue.empty(); }

std::string overdueIn(const List& list, Moment now) {
  if (isOutside(list) || isUnseen(list) || !isLate(list, now)) return {};
  const std::string name = "list " + std::to_string(list.id);
  if (list.place == Place::running) return name + " does not go on with its run, nor with anything after it";
  if (!list.goesOn) return name + " was stopped and has not ended";
  return list.queue.empty() ? name + " is empty and has not ended after its idle cycles"
                            : name + " does not run its next entry";
}

}  // namespace

std::string overdueIn(const State& state, Moment now) {
  for (const List& list : state.lists) {
    if (auto late = overdueIn(list, now); !late.empty()) return late;
  }
  return {};
}

}  // namespace soak
