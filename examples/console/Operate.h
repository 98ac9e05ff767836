#pragma once

#include "console/Options.h"
#include "console/Report.h"
#include "console/Terminal.h"

namespace console {

/// Runs the operation that the options name, on the printer that they name, and shows how it goes and what came of it. Throws
/// `OptionsError` when the scenario has no such printer.
Outcome operate(Terminal& terminal, const Options& options);

}  // namespace console
