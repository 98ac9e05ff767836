#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "support/LogFolder.h"

namespace consoletest {

using Arguments = std::vector<std::wstring>;

struct Ended {
  std::uint32_t code = 0;
  std::string output;
  std::string errors;
};

inline bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

/// Runs printer-console.exe as a person, or a script, does.
class ConsoleTest : public testing::Test {
 protected:
  ConsoleTest() {
    std::filesystem::remove_all(kFolder);
    std::filesystem::create_directories(kFolder);
  }
  ~ConsoleTest() override { std::filesystem::remove_all(kFolder); }
  void SetUp() override { m_logFolder.take(); }

  static Ended run(const Arguments& arguments) {
    const support::ChildProcess child(L"printer-console.exe", arguments);
    const auto code = child.wait();
    EXPECT_TRUE(code) << "has not ended";
    return {code.value_or(0), child.output(), child.errors()};
  }

  /// A mistake is told in one line on the standard error.
  static void expectMistake(const Arguments& arguments, const std::string& error) {
    const auto ended = run(arguments);
    EXPECT_EQ(ended.code, 2U);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors, "printer-console: " + error + "\r\n");
  }

  std::wstring scenario(const std::wstring& name, const std::string& text) const {
    const auto file = kFolder / name;
    std::ofstream(file, std::ios::binary) << text;
    return file.wstring();
  }

  const std::filesystem::path kFolder = L"C:\\console-test";

 private:
  support::LogFolder m_logFolder;
};

}  // namespace consoletest
