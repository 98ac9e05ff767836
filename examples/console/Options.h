#pragma once

#include <chrono>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace console {

/// What the command line asks for.
struct Options {
  std::optional<std::wstring> scenario = std::nullopt;  ///< file; none: the environment's or the built-in one
  std::chrono::seconds duration{12};
  bool log = false;
  bool help = false;
};

/// `what()` is one line: what is wrong and what would be right.
class OptionsError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// `arguments` without the program's name. Throws `OptionsError`.
Options parseOptions(const std::vector<std::wstring>& arguments);

/// The command line that asks for the same as `options`, but for the log.
std::vector<std::wstring> argumentsWithoutLog(const Options& options);

std::wstring helpText();

}  // namespace console
