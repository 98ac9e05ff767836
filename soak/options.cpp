#include "Options.h"

#include <charconv>
#include <system_error>

namespace soak {
namespace {

constexpr std::uint64_t kDay = 24 * 60;  // minutes: as far as the faults of a scenario reach

std::uint64_t numberOf(std::string_view option, std::string_view text, std::uint64_t from, std::uint64_t to) {
  std::uint64_t value = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || read.ec != std::errc() || read.ptr != text.data() + text.size() || value < from || value > to) {
    throw OptionsError(std::string(option) + " takes a whole number from " + std::to_string(from) + " to " +
                       std::to_string(to) + ", not '" + std::string(text) + "'");
  }
  return value;
}

}  // namespace

Options readOptions(std::span<const std::string_view> arguments, std::uint64_t clock) {
  Options options;
  options.seed = clock;
  std::string_view lengthBy;
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    const std::string_view option = arguments[index];
    if (option == "--help") {
      options.help = true;
      continue;
    }
    if (option != "--minutes" && option != "--seconds" && option != "--printers" && option != "--seed") {
      throw OptionsError("unknown option '" + std::string(option) +
                         "'; known are --minutes, --seconds, --printers, --seed, --help");
    }
    if (index + 1 == arguments.size()) throw OptionsError(std::string(option) + " takes a number");
    const auto number = [&](std::uint64_t from, std::uint64_t to) { return numberOf(option, arguments[index + 1], from, to); };
    if (option == "--minutes" || option == "--seconds") {
      if (!lengthBy.empty() && lengthBy != option) throw OptionsError("--minutes and --seconds exclude each other");
      lengthBy = option;
      options.length =
          option == "--minutes" ? std::chrono::seconds(60 * number(1, kDay)) : std::chrono::seconds(number(1, kDay * 60));
    } else if (option == "--printers") {
      options.printers = static_cast<int>(number(1, 256));
    } else {
      options.seed = number(0, UINT64_MAX);
    }
    ++index;
  }
  return options;
}

}  // namespace soak
