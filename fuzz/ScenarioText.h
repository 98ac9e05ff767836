#pragma once

#include <string>

#include "simulator/Scenario.h"

namespace fuzz {

/// A scenario as a file that says the same, with every attribute spelled out: reading it gives the same scenario again. What a
/// printer shows over time is told as the whole state at each change, and the rules of calls for each printer and function.
std::string scenarioText(const simulator::Scenario& scenario);

}  // namespace fuzz
