#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace soak {

struct Options {
  std::chrono::seconds length{60};
  int printers = 50;
  std::uint64_t seed = 0;
  bool help = false;
};

/// A mistake in the command line: what is wrong and what would be right, in one line.
class OptionsError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Without `--seed`, `clock` is the seed.
Options readOptions(std::span<const std::string_view> arguments, std::uint64_t clock);

inline constexpr std::string_view kHelp =
    "soak [--minutes N | --seconds N] [--printers N] [--seed S]\n"
    "\n"
    "Lets callers on eight threads, at most three of them at one printer, use the module with simulated printers, and\n"
    "compares what is seen of it from outside with a model of its contract. It ends at the first difference.\n"
    "\n"
    "  --minutes N    1 to 1440 (a day); 1 without it\n"
    "  --seconds N    1 to 86400\n"
    "  --printers N   1 to 256; 50 without it\n"
    "  --seed S       0 to 18446744073709551615; from the clock without it\n"
    "\n"
    "The same seed repeats the same decisions: printers, faults, and what each thread calls one after the other. How the\n"
    "threads meet differs from run to run, and with it which calls are left out and what the others find.\n"
    "\n"
    "Exit code: 0 without a difference; 2 for a mistake in the command line; 1 with a difference, when something is left\n"
    "over, when an exception ends it, when a soak that is long enough had no runs, notices or faults, or when it says too\n"
    "little: more than one printer of twenty, of fewer than twenty any, has done so much at once that the model cannot\n"
    "follow (not decided).\n";

}  // namespace soak
