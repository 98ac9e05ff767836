#pragma once

#include <optional>

namespace soak {

/// How many blocks from `new` exist in the process. None where they are not counted: on Windows each library has a `new` of its
/// own, and AddressSanitizer counts them itself.
std::optional<long long> allocatedBlocks();

}  // namespace soak
