#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <iterator>
#include <mutex>
#include <string>
#include <thread>

#include "AppMgr.h"
#include "AppPrinterSdk.h"
#include "AppSdk.h"
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

/// A <call> with faults.
inline std::string callOf(const std::string& function, const std::string& faults) {
  return "<call function='" + function + "'>" + faults + "</call>";
}

/// The printer with one <call> of the function in it.
inline std::string withCall(const std::string& function, const std::string& faults) {
  return onePrinter("", callOf(function, faults));
}

/// Printers "a" and "b" with the same children.
inline std::string twoPrinters(const std::string& children) {
  return "<scenario><printer uid='a' manager-id='ma' connection='usb'>" + children +
         "</printer><printer uid='b' manager-id='mb' connection='usb'>" + children + "</printer></scenario>";
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

/// A thread that does one thing after the other. Jobs are bound to the thread that started them.
class OtherThread {
 public:
  OtherThread() : m_thread([this] { run(); }) {}
  ~OtherThread() {
    hand({});
    m_thread.join();
  }

  /// Returns when it is done.
  void does(std::function<void()> work) {
    std::unique_lock lock = hand(std::move(work));
    m_changed.wait(lock, [this] { return !m_work; });
  }

 private:
  std::unique_lock<std::mutex> hand(std::function<void()> work) {
    std::unique_lock lock(m_mutex);
    m_ended = !work;
    m_work = std::move(work);
    m_changed.notify_all();
    return lock;
  }

  void run() {
    std::unique_lock lock(m_mutex);
    while (true) {
      m_changed.wait(lock, [this] { return m_work || m_ended; });
      if (m_ended) return;
      m_work();
      m_work = nullptr;
      m_changed.notify_all();
    }
  }

  std::mutex m_mutex;
  std::condition_variable m_changed;
  std::function<void()> m_work;
  bool m_ended = false;
  std::thread m_thread;
};

}  // namespace simulator::test
