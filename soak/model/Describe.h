#pragma once

#include <string>
#include <string_view>

#include "model/Steps.h"

/// The model's things in words, for the report of a difference.
namespace soak {

std::string textOf(const Event& event);
/// An event that belongs to no printer, as a difference.
std::string strayText(const Event& event);
std::string textOf(const State& state, const Knowledge& known);

/// The control function whose call begins.
std::string_view nameOfCall(What begin);

/// Where the task is, for one who expected it to have left.
std::string whereIs(const State& state, TaskId task);
/// What a run may show next.
std::string mayShow(const List& list, const Knowledge& known);
/// Why nothing may run now, or what may.
std::string mayRun(const List& list, const Knowledge& known);
/// When the list may end.
std::string mayEnd(const List& list);

/// The time of day, UTC.
std::string clockTime(Moment at);

}  // namespace soak
