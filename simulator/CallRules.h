#pragma once

#include <array>
#include <optional>
#include <vector>

#include "simulator/Scenario.h"
#include "simulator/StrictXml.h"

/// The reader's part for <call>: how the calls of one printer, or of all, behave.
namespace simulator {

struct FunctionRules {
  int line = 0;
  std::optional<Latency> latency;
  std::vector<Fault> faults;
};

struct CallRules {
  std::optional<FunctionRules> everyFunction;  ///< from a <call> that names none
  std::array<std::optional<FunctionRules>, functionCount> byFunction;
};

/// Reads the <call> children of a <scenario> or <printer>.
CallRules readCallRules(const StrictElement& parent);

/// What holds for a printer: its own rules before the scenario's, a function's latency before that of every function.
std::array<Behaviour, functionCount> behaviourOf(const CallRules& printer, const CallRules& scenario);

}  // namespace simulator
