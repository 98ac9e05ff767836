#pragma once

namespace support {

/// The number of handles that this process has open; -1 when the system does not tell. Windows only. Any thread.
///
/// `GetProcessHandleCount` answers 0 on some systems. This one reads the system's own table.
int handleCount();

}  // namespace support
