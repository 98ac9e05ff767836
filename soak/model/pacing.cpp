#include "model/Pacing.h"

#include <algorithm>

namespace soak {
namespace {

using namespace std::chrono_literals;

// A new list takes its last check to be so long ago, and its last NPA run twice as long: no list of the soak pauses for that.
constexpr std::chrono::milliseconds kFirstCheck = 10min;
// Durations are compared in whole milliseconds, so the last NPA run counts as recent up to one more than the interval.
constexpr auto kTruncated = 1ms;
// A wait uses up a wake-up, if there is one, and is over at once. So one that lasted shows that there was none. Where the
// machine is busy, a worker may come to its wait when that would be over; but seldom just then, and not so often in a row.
constexpr int kCalmCycles = 8;
constexpr int kPunctual = 4;  // late by so small a part of the interval at most
// The timer goes on from period to period until the worker, once awake, has stopped it. Its period is what is left of the
// interval when the wait begins: all of it, but for what the machine takes away in between. No machine takes a thread away for
// longer than this. After idle cycles nobody knows how late a turn is, but no later than so.
constexpr std::chrono::milliseconds kLongStall = 200ms;

std::chrono::milliseconds intervalOf(const List& list) { return std::chrono::milliseconds(std::max(list.interval, 0)); }

// Of a timer whose wait began as late as a machine makes it.
std::chrono::milliseconds shortestPeriod(std::chrono::milliseconds wait) { return std::max(wait - kLongStall, 1ms); }

// What its next wait takes if it counts from the last check.
std::chrono::milliseconds waitOf(const List& list) {
  return list.pace.fresh ? std::max(0ms, intervalOf(list) - kFirstCheck) : intervalOf(list);
}

// For all that can be seen, its turn came by the time and not by a wake-up.
bool hasWaited(const List& list, Moment now) {
  const auto late = now - (list.pace.checkLow + waitOf(list));
  return late >= 0ms && late * kPunctual <= waitOf(list);
}

// Wake-ups by a timer that the worker came to stop so late. After another wake-up the wait begins anew with what is left.
int postsOfTimer(const List& list, std::chrono::nanoseconds late) {
  if (waitOf(list) <= 0ms || list.queue.empty()) return 0;
  if (list.pace.idled) late = std::min<std::chrono::nanoseconds>(late, std::max(intervalOf(list), kLongStall));
  const std::chrono::nanoseconds shortest = shortestPeriod(list.pace.woken.value ? 0ms : waitOf(list));
  return static_cast<int>(std::min<std::int64_t>(late / shortest, 1'000));
}

// A wait that lasts an interval from the last NPA run takes every wake-up that finds it, and goes on.
bool hasTakenWakeUps(const List& list) {
  return list.pace.keptLast && list.pace.lastPost.value < list.pace.npaLow + intervalOf(list) - kLongStall;
}

}  // namespace

bool pacedByCheck(const List& list) {
  const Pace& pace = list.pace;
  if (pace.keptLast) return false;
  return !pace.npaEver || (pace.npaBounded && pace.checkLow >= pace.npaHigh + intervalOf(list) + kTruncated);
}

Earliest nextTurn(const List& list) {
  const Pace& pace = list.pace;
  if (pace.fresh) return {pace.checkLow + waitOf(list), waitOf(list) > 0ms};
  if (pace.keptLast) return {pace.npaLow + intervalOf(list), false};
  if (pacedByCheck(list)) return {pace.checkLow + intervalOf(list), true};
  return {std::max(pace.checkLow, pace.npaLow + intervalOf(list)), false};
}

// While the last NPA run counts as recent, cycles follow each other at once. Each of those after it takes an interval, or a
// period of a timer that went on while its worker was late.
Moment idleEnd(const List& list) {
  const Earliest first = nextTurn(list);
  if (list.pace.fresh || !pacedByCheck(list)) return first.at;
  const int more = std::max(0, kIdleCycles - list.pace.idleCycles - 1 - list.pace.posts.value);
  const Moment begin = list.pace.posts.value > 0 ? list.pace.checkLow : first.at;
  return begin + more * std::min(intervalOf(list), shortestPeriod(intervalOf(list)));
}

bool beginTurn(List& list, Moment now, bool wakeUpUnderWay) {
  Pace& pace = list.pace;
  const Earliest turn = nextTurn(list);
  const bool early = now < turn.at;
  if (early && (!turn.shortened || pace.posts.value == 0)) return false;
  list.place = Place::turn;
  list.idleTurn = list.queue.empty();
  if (early) {
    list.turnLow = pace.checkLow;
    --pace.posts.value;
    pace.calmCycles.value = 0;
    return true;
  }
  const bool calm = hasWaited(list, now) && ++pace.calmCycles.value >= kCalmCycles;
  const bool used = (calm && pace.lastPost.value < turn.at) || hasTakenWakeUps(list);  // a later one is for the next wait
  if (used && !wakeUpUnderWay) pace.posts.value = 0;
  // What shows the turn may come long after it.
  list.turnLow = turn.shortened && pace.posts.value > 0 ? pace.checkLow : turn.at;
  if (const int more = postsOfTimer(list, now - turn.at); more > 0) {
    pace.posts.value += more;
    pace.calmCycles.value = 0;
  }
  return true;
}

bool isWoken(List list) {
  if (list.goesOn && list.place == Place::running) stampRun(list);
  return list.wakes.value.has_value();
}

void stampRun(List& list) {
  Pace& pace = list.pace;
  pace.fresh = false;
  pace.idleCycles = 0;
  pace.idled = false;
  pace.woken.value = false;
  pace.checkLow = list.lastSeen;
  pace.keptLast = list.run.keepsNpa;
  if (pace.keptLast) {
    pace.npaEver = true;
    pace.npaBounded = false;
    pace.npaLow = list.lastSeen;
  }
  if (!pacedByCheck(list)) list.wakes.value.reset();
}

void stampIdleCycle(List& list, Moment from) {
  Pace& pace = list.pace;
  pace.fresh = false;
  pace.keptLast = false;
  pace.checkLow = std::max(pace.checkLow, from);
  pace.idleCycles = 1;
  list.wakes.value.reset();  // used up by a cycle that shows nothing
  pace.idled = true;
}

void boundStamps(List& list, Moment seen) {
  if (!list.pace.npaEver) return;
  list.pace.npaHigh = list.pace.npaBounded ? std::min(list.pace.npaHigh, seen) : seen;
  list.pace.npaBounded = true;
}

// However the wait for it ended, the last NPA run was an interval ago.
void boundStampsByTurn(List& list, Moment seen) { boundStamps(list, seen - intervalOf(list)); }

}  // namespace soak
