#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <system_error>

namespace support {

/// The folder of the module's log, `C:\log`, for a test that has it made. Somebody's own log, on a machine that is not for
/// tests, is not ours to remove: a folder that is there already fails the test, and stays.
class LogFolder {
 public:
  /// From now on until its destruction the folder is the test's. A fatal failure when there is one. In a fixture's `SetUp`.
  void take() {
    ASSERT_FALSE(std::filesystem::exists(path)) << "C:\\log exists; these tests make and remove it themselves";
    m_isOurs = true;
  }

  LogFolder() = default;
  ~LogFolder() {
    if (!m_isOurs) return;
    std::error_code error;  // a file that was left open cannot be removed
    std::filesystem::remove_all(path, error);
    EXPECT_FALSE(error) << error.message();
  }
  LogFolder(const LogFolder&) = delete;
  LogFolder& operator=(const LogFolder&) = delete;

  const std::filesystem::path path = L"C:\\log";

 private:
  bool m_isOurs = false;
};

}  // namespace support
