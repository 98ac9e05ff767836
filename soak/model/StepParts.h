#pragma once

#include <cstddef>
#include <vector>

#include "model/Steps.h"

/// Steps.h in three parts: the calls, a list's own cycle, its runs.
namespace soak {

void addCallSteps(const State& state, const Knowledge& known, std::vector<State>& found);
void addCycleSteps(const State& state, std::size_t list, const Knowledge& known, std::vector<State>& found);
void addRunSteps(const State& state, std::size_t list, const Knowledge& known, std::vector<State>& found);

/// Every way to choose some of so many: bit patterns. Throws `TooManyWays`.
std::size_t waysToChoose(std::size_t count);

}  // namespace soak
