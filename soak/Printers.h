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
  /// Its pauses last for minutes, but for wake-ups: it is for state tasks alone, which read nothing, as it always prints.
  bool pausesLong = false;
};

struct PrinterPlans {
  std::vector<PrinterPlan> printers;
  std::string scenario;  ///< for the simulator
};

/// Half of the soaks end with `Stop`, the others as their lists do by themselves when all tasks are deleted.
inline bool stopsAtEnd(std::uint64_t seed) { return seed % 2 == 0; }
/// In half of the soaks `Stop` comes seldom, so that lists live long, and lists are emptied often.
inline bool stopsSeldom(std::uint64_t seed) { return seed % 4 >= 2; }
/// In a quarter of them a few printers pause for minutes, and `Stop` comes at the end alone: beside it an old worker may take a
/// newer list out of the registry, which then waits where nothing wakes it, and would outlive the soak.
inline bool hasLongPauses(std::uint64_t seed) { return seed % 4 == 2; }

/// Faults come all through `length`.
PrinterPlans planPrinters(std::uint64_t seed, int count, std::chrono::seconds length);

/// The printer's place from its uid; `kNoPrinter` for an empty one.
PrinterId printerOf(std::wstring_view uid);

}  // namespace soak
