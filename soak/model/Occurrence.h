#pragma once

#include <string>
#include <vector>

#include "model/Steps.h"

/// Whether a state explains an event as it is, and what follows.
namespace soak {

struct Explained {
  std::vector<State> states;
  std::vector<std::string> objections;  ///< when there are none: what speaks against it, one for each thing that it could be
};

Explained explain(const State& state, const Event& event, const Knowledge& known);

/// The one list whose worker or whose runs are on `thread`, if the state knows it.
std::optional<ListId> listOfThread(const State& state, ThreadId thread);

/// Events of a run, which only a list's worker and handler can explain.
bool isOfRun(What what);

}  // namespace soak
