#pragma once

namespace support {

/// The number of all threads of the process, as the system tells; -1 when it does not.
int countAllThreads();

}  // namespace support
