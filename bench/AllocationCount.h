#pragma once

#include <cstdint>

namespace bench {

/// Calls of `operator new`, `malloc`, `calloc` and `realloc` by this program so far, on all threads. On the host also those of
/// the libraries it loads; on Windows those of the code that is linked into it, and not what a DLL allocates for itself.
std::uint64_t allocationCount();

}  // namespace bench
