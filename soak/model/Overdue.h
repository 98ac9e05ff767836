#pragma once

#include <string>

#include "model/State.h"

namespace soak {

/// What should have come long ago: a run, a notice, the end of a list or of a task. Empty when nothing is overdue. A library
/// call or a window that takes its time is not the module's doing.
std::string overdueIn(const State& state, Moment now);

}  // namespace soak
