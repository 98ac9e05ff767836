#pragma once

#include <chrono>
#include <cstdint>

#include "Checker.h"

namespace soak {

/// One soak from its first call to its last thread. Nothing of it is left when it returns; a difference ends the process
/// before, by `onDifference`.
Totals runSoak(std::uint64_t seed, int printers, std::chrono::seconds length, const OnDifference& onDifference);

}  // namespace soak
