#pragma once

#include <any>

#include "Random.h"
#include "model/Event.h"

namespace soak {

/// What a `GetDevParam` is to read.
Selection drawSelection(Random& random);

/// A record for the task, or one that no operation takes, which tells when the module looks at it.
std::any drawRecord(Random& random, const TaskTraits& traits, PrinterId printer, TaskId code, bool slow);

}  // namespace soak
