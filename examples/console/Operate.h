#pragma once

#include "common/Report.h"
#include "console/Options.h"
#include "console/Terminal.h"

namespace examples {

/// Runs the operation that the options name, on the printer that they name, and shows how it goes and what came of it. Throws
/// `OptionsError` when the scenario has no such printer.
Outcome operate(Terminal& terminal, const Options& options);

}  // namespace examples
