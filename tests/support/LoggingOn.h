#pragma once

#include <memory>

#include "fakes/InMemoryWindows.h"
#include "support/LogLines.h"

namespace support {

/// A platform with the log switched on: the folder and the ini file are there, the module's attach code has run. At the end of
/// the scope the module is detached, and a handle that is still open fails the test.
///
/// Every thread of the module has written its last line before the end of the scope; what it still does for that line is waited
/// for.
class LoggingOn {
 public:
  explicit LoggingOn(std::unique_ptr<fakes::InMemoryWindows> windows = std::make_unique<fakes::InMemoryWindows>());
  ~LoggingOn();
  LoggingOn(const LoggingOn&) = delete;
  LoggingOn& operator=(const LoggingOn&) = delete;

  fakes::InMemoryWindows& windows() { return *m_windows; }
  const LogLines& lines() const { return m_lines; }

 private:
  const std::unique_ptr<fakes::InMemoryWindows> m_windows;
  const fakes::Installed m_installed;
  const LogLines m_lines;
};

}  // namespace support
