#pragma once

#include "model/Steps.h"

namespace soak {

/// Whether unseen steps of the list's worker may have to come before the event. Those of all other lists can as well come
/// later, and need not be followed in every order.
bool concerns(const State& state, const List& list, const Event& event, const Knowledge& known);

}  // namespace soak
