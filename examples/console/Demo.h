#pragma once

#include <string>
#include <vector>

#include "common/Report.h"

namespace examples {

/// A command line of the demonstration, and what it is to come to. What a step changes the later ones find.
struct DemoStep {
  std::vector<std::wstring> arguments;
  Outcome outcome = Outcome::Succeeded;
};

/// The command line as it is typed, but for its password.
std::wstring shownCommand(const std::vector<std::wstring>& arguments);

/// The printers that the steps name.
std::vector<std::wstring> demoPrinters();

/// The poll first, then every operation, on the printers of the built-in scenario.
const std::vector<DemoStep>& demoSteps();

}  // namespace examples
