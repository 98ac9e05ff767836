#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "Totals.h"
#include "model/Holdups.h"
#include "model/PrinterModel.h"

namespace soak {

/// Told of the first difference, or that too many printers cannot be followed: at once, on the checker's thread, and at the end
/// on the thread that calls `finish`. It ends the process: the module may be in any state, and nothing of it is waited for.
using OnDifference = std::function<void(const std::string& text, const Totals& totals)>;

/// Compares what is recorded with the model, while it is recorded.
class Checker {
 public:
  Checker(const std::vector<PrinterTraits>& printers, OnDifference onDifference);
  ~Checker();
  Checker(const Checker&) = delete;
  Checker& operator=(const Checker&) = delete;

  /// What the printer's lists have done lately can be explained in so many ways that it is better left alone, until they show
  /// more. Any thread.
  bool isUnclear(PrinterId printer) const { return m_unclear[printer].load(std::memory_order_relaxed); }

  /// Ends the watch.
  void stop();
  /// Ends the watch, after the last event. What is left over then is a difference.
  void finish();
  /// After the end of the watch.
  const Totals& totals() const { return m_totals; }

 private:
  void watch();
  bool takeAll();
  void see(const Event& event);
  void show(PrinterId printer, const Event& event);
  void count(const Event& event);
  void setAside(PrinterId printer);
  void fail(const std::string& text);

  std::vector<std::unique_ptr<PrinterModel>> m_models;
  Holdups m_holdups;
  std::vector<std::atomic<bool>> m_unclear;  // by printer; relaxed, as it must not order the module's threads
  Totals m_totals;
  const OnDifference m_onDifference;
  std::atomic<bool> m_ending{false};
  std::thread m_thread;
};

}  // namespace soak
