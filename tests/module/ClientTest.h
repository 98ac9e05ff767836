#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "support/LogFolder.h"
#include "support/LogLine.h"

/// Programs that use the module, and what its log says of them. The module reads its configuration when it is loaded, so each
/// run is a process of its own. Before and after a test there is no folder of the log.
class ClientTest : public testing::Test {
 protected:
  void SetUp() override { m_logFolder.take(); }

  /// `keys` are lines of the ini file.
  void configure(const std::string& keys) const {
    std::filesystem::create_directory(kFolder);
    std::ofstream(kFolder / L"orva_config.ini", std::ios::binary) << "[Corvane]\r\n" << keys;
  }

  /// Runs a program to its end and returns its output. What it says of its own failure fails the test.
  static std::string run(const std::wstring& program, const std::vector<std::wstring>& arguments) {
    const support::ChildProcess child(program, arguments);
    const auto code = child.wait();
    EXPECT_TRUE(code) << "has not ended";
    EXPECT_EQ(code.value_or(0), 0U) << child.errors();
    return child.output();
  }

  bool hasLog() const { return std::filesystem::exists(kLog); }
  std::vector<support::LogLine> log() const {
    std::ifstream file(kLog, std::ios::binary);
    EXPECT_TRUE(file.is_open());
    return support::parsedLog({std::istreambuf_iterator<char>(file), {}});
  }

  support::LogFolder m_logFolder;
  const std::filesystem::path& kFolder = m_logFolder.path;
  const std::filesystem::path kLog = kFolder / L"Corvane.log";
};
