#pragma once

#include <cstdint>

namespace bench {

/// Calls of `operator new`, in all its forms, `malloc`, `calloc` and `realloc` by this program so far, on all threads. On the
/// host also those of the libraries it loads; on Windows those of the code that is linked into it, and not what a DLL, the C++
/// runtime's for one, allocates for itself.
std::uint64_t allocationCount();

/// Makes one allocation of each kind and ends the process, with its name, when it does not show in the count. To be called
/// before a count is trusted, while no other thread allocates.
void requireThatAllocationsAreCounted();

}  // namespace bench
