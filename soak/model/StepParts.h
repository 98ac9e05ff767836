#pragma once

#include <cstddef>
#include <vector>

#include "model/Steps.h"

/// Steps.h in three parts: the calls, a list's own cycle, its runs.
namespace soak {

void addCallSteps(const State& state, const Knowledge& known, std::vector<State>& found);
void addCycleSteps(const State& state, std::size_t list, const Knowledge& known, std::vector<State>& found);
void addRunSteps(const State& state, std::size_t list, const Knowledge& known, std::vector<State>& found);

/// Every way to choose some of them. Throws `TooManyWays`.
std::vector<std::vector<TaskId>> choicesOf(const std::vector<TaskId>& tasks);

}  // namespace soak
