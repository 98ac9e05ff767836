#pragma once

#include <optional>
#include <string>

namespace soak {

/// What a process holds of what the module could leave behind. A number that the system or the build does not tell is missing.
struct Resources {
  int threads = 0;
  std::optional<int> handles;       ///< Windows
  std::optional<long long> blocks;  ///< allocated by `new`; the host, where no sanitizer counts them itself

  static Resources now();
};

std::string textOf(const Resources& resources);

/// Waits, a limited time, until no more is held than `before`. What is left over, if something is.
std::optional<std::string> leftOver(const Resources& before);

}  // namespace soak
