#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <future>
#include <iterator>
#include <string>

#include "AppMgr.h"
#include "AppPrinterSdk.h"
#include "simulator/SimulatedPrinters.h"

namespace simulator::test {

using namespace std::chrono_literals;

/// Far from anything that takes time here; a wait that runs into it has failed.
inline constexpr std::chrono::milliseconds limit = 20s;

/// Every test begins and ends without a scenario.
class SimulatorTest : public testing::Test {
 protected:
  SimulatorTest() { reset(); }
  ~SimulatorTest() override { reset(); }
};

/// A scenario of one printer, uid "a", manager id "ma".
inline std::string onePrinter(const std::string& attributes, const std::string& children = "") {
  return "<scenario><printer uid='a' manager-id='ma' connection='network' " + attributes + ">" + children +
         "</printer></scenario>";
}

/// The same, with one <call> of the function in it.
inline std::string withCall(const std::string& function, const std::string& faults) {
  return onePrinter("", "<call function='" + function + "'>" + faults + "</call>");
}

inline std::filesystem::path sourceFile(const wchar_t* name) { return std::filesystem::path(SOURCE_FOLDER) / name; }

inline std::string contentsOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path.string();
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline qzstd::PrinterInfo stateOf(std::wstring_view uid) {
  qzstd::PrinterInfo info = newPrinterInfo(uid);
  EXPECT_EQ(AppPrinterSdk_GetState(&info), success);
  return info;
}

/// A state read on a thread of its own; its result is ready when it has ended.
inline std::future<int> readStateElsewhere(std::wstring_view uid) {
  return std::async(std::launch::async, [info = newPrinterInfo(uid)]() mutable { return AppPrinterSdk_GetState(&info); });
}

}  // namespace simulator::test
