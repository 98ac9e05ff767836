#pragma once

#include "model/Occurrence.h"

/// Occurrence.h's part for what is seen on a list's own thread.
namespace soak {

Explained explainInRun(const State& state, const Event& event, const Knowledge& known);

/// What was seen of the list comes after the stamps of its last run.
void boundStampsOf(List& list, Moment seen);

}  // namespace soak
