#pragma once

#include "simulator/Scenario.h"

namespace fuzz {

/// Fails the running case unless all that the scenario holds keeps the limits of docs/scenario.md.
void expectWithinLimits(const simulator::Scenario& scenario);

}  // namespace fuzz
