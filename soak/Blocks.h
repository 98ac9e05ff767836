#pragma once

#include <optional>

namespace soak {

/// How many blocks from `new` exist in the process; on Windows, where each library has a `new` of its own, the blocks of all
/// heaps, -1 when they cannot be walked. None where AddressSanitizer looks for leaks itself. For a process in which no other
/// thread is at work.
std::optional<long long> allocatedBlocks();

}  // namespace soak
