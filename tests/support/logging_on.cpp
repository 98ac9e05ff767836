#include <gtest/gtest.h>

#include <utility>

#include "comm/EntryPoint.h"
#include "support/LoggingOn.h"

namespace support {

LoggingOn::LoggingOn(std::unique_ptr<fakes::InMemoryWindows> windows)
    : m_windows(std::move(windows)), m_installed(*m_windows), m_lines(*m_windows) {
  m_windows->makeFolder(L"C:\\log");
  m_windows->writeFile(L"C:\\log\\orva_config.ini", "[Corvane]\r\nError=1\r\nDebug=1\r\n");
  comm::attachProcess(nullptr);
}

LoggingOn::~LoggingOn() {
  EXPECT_TRUE(m_windows->waitUntilIdle(LogLines::Clock::now() + std::chrono::seconds(30))) << "a line is still being written";
  comm::detachProcess();
  EXPECT_EQ(m_windows->openFileHandles(), 0U);
  EXPECT_EQ(m_windows->openSemaphoreHandles(), 0U);
}

}  // namespace support
