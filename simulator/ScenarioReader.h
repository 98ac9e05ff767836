#pragma once

#include <string>
#include <string_view>

#include "simulator/Scenario.h"

namespace simulator {

/// Reads a scenario (docs/scenario.md). `file` stands in error lines. Throws `ScenarioError` at the first mistake.
Scenario readScenario(std::string_view text, const std::string& file);

/// The scenario that is used without a file: the text of examples/scenarios/default.xml.
extern const std::string_view defaultScenario;

}  // namespace simulator
