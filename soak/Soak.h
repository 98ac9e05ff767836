#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "Checker.h"

namespace soak {

struct Outcome {
  Totals totals;
  std::optional<std::string> difference;
};

/// One soak from its first call to its last thread. Nothing of it is left when it returns without a difference.
Outcome runSoak(std::uint64_t seed, int printers, std::chrono::seconds length);

}  // namespace soak
