#pragma once

#include <string>

#include "model/State.h"

namespace soak {

/// What should have come long ago: a run, a notice, the end of a list or of a task, the return of a call. Empty when nothing is
/// overdue. A library call or a window that takes its time is not the module's doing. `ticks` were seen so far, one a second at
/// most: a machine that stands still gives none.
std::string overdueIn(const State& state, int ticks);

}  // namespace soak
