#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "log/Log.h"
#include "support/LogFolder.h"

/// The fixture of the log's tests on the real platform: the folder `C:\log` is there and empty, the log is off.
class LogOnWindows : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(m_logFolder.take());
    std::filesystem::create_directory(kFolder);
  }

  ~LogOnWindows() override {
    if (g_logSemaphore != nullptr) ::CloseHandle(g_logSemaphore);
    g_logSemaphore = nullptr;
    g_logMask = 0;
    std::wmemset(g_logPath, L'\0', LOG_PATH_UNITS);
  }

  void writeIni(const std::string& keys) { writeBytes(L"orva_config.ini", "[Corvane]\r\n" + keys); }
  void switchOn() {
    writeIni("Debug=1\r\n");
    LogInit((kFolder / L"Corvane.log").c_str(), 0, L"Corvane");
    ASSERT_EQ(g_logMask, LOG_DEBUG);
  }

  void writeBytes(const std::wstring& name, const std::string& bytes) const {
    std::ofstream(kFolder / name, std::ios::binary) << bytes;
  }
  std::string bytes(const std::wstring& name = L"Corvane.log") const {
    std::ifstream file(kFolder / name, std::ios::binary);
    return file ? std::string(std::istreambuf_iterator<char>(file), {}) : std::string();
  }
  /// The file as UTF-16, without the fixed length of time that each line begins with.
  std::wstring text(const std::wstring& name = L"Corvane.log") const {
    const std::string raw = bytes(name);
    EXPECT_EQ(raw.size() % 2, 0U);
    std::wstring units(raw.size() / 2, L'\0');
    std::memcpy(units.data(), raw.data(), units.size() * 2);
    return units;
  }
  /// The text behind the time of the file's only line.
  std::wstring line() const {
    const std::wstring units = text();
    return units.size() < kTimeUnits ? units : units.substr(kTimeUnits);
  }
  bool exists(const std::wstring& name) const { return std::filesystem::exists(kFolder / name); }

  static constexpr std::size_t kTimeUnits = 24;
  support::LogFolder m_logFolder;
  const std::filesystem::path& kFolder = m_logFolder.path;
};
