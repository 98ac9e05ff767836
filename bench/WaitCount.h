#pragma once

#include <cstdint>

namespace bench {

/// Timed waits that this program has begun so far: those of the module, which come through `platform::waitUntil`, and what
/// others have added with `countWait`. On all threads. Who waits on a condition counts while it still holds the mutex: whoever
/// ends the wait needs that too, and so comes later.
std::uint64_t waitCount();
void countWait();
/// Returns when the count is another than `count`. Costs nothing to speak of when it is already. For one thread at a time.
void awaitCountOtherThan(std::uint64_t count);

}  // namespace bench
