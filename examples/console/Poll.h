#pragma once

#include <chrono>

#include "console/Terminal.h"

namespace examples {

/// Polls every printer of the scenario and shows what it says, then a summary. True when Ctrl-C ended it.
bool pollPrinters(Terminal& terminal, std::chrono::seconds duration);

}  // namespace examples
