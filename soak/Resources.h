#pragma once

#include <optional>
#include <string>

namespace soak {

/// What a process holds of what the module could leave behind. A number that there is none of here is missing; one that the
/// system does not tell is below 0.
struct Resources {
  int threads = 0;
  std::optional<int> handles;       ///< Windows
  std::optional<long long> blocks;  ///< allocated; where no sanitizer counts them itself

  static Resources now();
};

std::string textOf(const Resources& resources);

/// Waits, a limited time, until no more is held than `before`, but for what the platform keeps: a few handles and blocks on
/// Windows. What is left over, if something is.
std::optional<std::string> leftOver(const Resources& before);

}  // namespace soak
