#pragma once

#include "model/State.h"

/// When a list may do something next. All bounds are lower ones: a machine that is busy makes everything later, nothing
/// earlier.
namespace soak {

inline constexpr int kIdleCycles = 10;  // of an empty list, before it ends

struct Earliest {
  Moment at{};
  bool shortened = false;  ///< a wake-up brings it forward
};

/// When the list's wait may be over.
Earliest nextTurn(const List& list);

/// Whether its waits count from the last check, whatever the time of the last NPA run may be. A wake-up ends such a wait.
bool pacedByCheck(const List& list);

/// When a list that has been empty may end by itself.
Moment idleEnd(const List& list);

/// The list's turn has come at `now`. False: it cannot have. Uses up a wake-up where one is needed. `wakeUpUnderWay`: one that
/// counts already may still come.
bool beginTurn(List& list, Moment now, bool wakeUpUnderWay);

/// Nothing keeps it from its next turn, or from its end where it was stopped.
bool isWoken(List list);

/// The run at the front is over, and its stamps are taken.
void stampRun(List& list);

/// A tidied list was found empty, at `from` or later.
void stampIdleCycle(List& list, Moment from);

/// Something was seen that comes after the stamps of the last run.
void boundStamps(List& list, Moment seen);
/// The same of something that comes after the list's next turn.
void boundStampsByTurn(List& list, Moment seen);

}  // namespace soak
