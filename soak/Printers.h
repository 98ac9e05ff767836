#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "model/Event.h"

/// The simulated printers of a soak: how each is attached, paced, how slow it is and what goes wrong with it, and when.
namespace soak {

struct PrinterPlan {
  std::wstring uid;
  std::wstring managerId;
  PrinterTraits traits;
  std::int32_t interval = 0;  ///< milliseconds
};

struct PrinterPlans {
  std::vector<PrinterPlan> printers;
  std::string scenario;  ///< for the simulator
};

/// Faults come all through `length`.
PrinterPlans planPrinters(std::uint64_t seed, int count, std::chrono::seconds length);

/// The printer's place from its uid; `kEveryPrinter` for an empty one.
PrinterId printerOf(std::wstring_view uid);

}  // namespace soak
