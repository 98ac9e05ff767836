#pragma once

#include <cstddef>
#include <stdexcept>
#include <vector>

#include "model/Facts.h"
#include "model/State.h"

/// What the module does unseen: between two events any of these may have happened, in any order that they allow.
namespace soak {

/// What the model knows beside the state.
struct Knowledge {
  const Facts& facts;
  PrinterTraits printer;
  Moment now;     ///< the time of the event that is being explained
  int ticks = 0;  ///< seen so far
};

/// The model cannot follow: more ways than it is made for.
class TooManyWays : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Each state that is one unseen step away.
std::vector<State> stepsFrom(const State& state, const Knowledge& known);
/// Those that may have to come before the event: of the calls under way, and of the lists that it concerns.
std::vector<State> stepsBefore(const State& state, const Event& event, const Knowledge& known);

/// What the run at the front may show next.
Next nextOfRun(const List& list, const Knowledge& known);

/// The run looks at its task's NPA request, which a call under way is changing: it may find either until that call returns.
bool mayFindEither(const State& state, const List& list, const Knowledge& known);

/// The ways in which a tidied list may begin its next run: the entry that runs is at the front.
std::vector<State> runsFrom(const State& state, std::size_t list, const Knowledge& known);

/// Whether the tidy pass may have found the task deleted.
bool mayHaveLeft(const List& list, TaskId task, const Knowledge& known);
/// It has.
void takeDeleted(State& state, std::size_t list, const std::vector<TaskId>& tasks, const Knowledge& known);

}  // namespace soak
