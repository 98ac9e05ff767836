#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace soak {

/// What a soak saw.
struct Totals {
  std::uint64_t events = 0;
  std::uint64_t runs = 0;
  std::uint64_t notices = 0;
  std::uint64_t refusals = 0;  ///< notices that a window answered with no
  std::uint64_t failures = 0;  ///< library calls that the scenario had fail
  std::uint64_t hangs = 0;     ///< library calls that it had hang
  std::uint64_t setAside = 0;  ///< printers that the model could not follow to the end
  std::size_t mostStates = 0;
  int differences = 0;
};

/// The soak's last line, without its end.
std::string lastLine(int printers, const Totals& totals);

/// What there was none of, though so much time of all printers together brings some of it: without it, a soak that finds no
/// difference shows nothing. Empty when there was all.
std::optional<std::string> unseen(const Totals& totals, std::chrono::seconds ofPrinters);

}  // namespace soak
