#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "model/PrinterModel.h"

namespace soak {

struct Totals {
  std::uint64_t events = 0;
  std::uint64_t runs = 0;
  std::uint64_t notices = 0;
  std::uint64_t refusals = 0;  ///< notices that a window answered with no
  std::uint64_t failures = 0;  ///< library calls that failed
  std::uint64_t hangs = 0;     ///< library calls that took a second and more
  std::size_t mostStates = 0;
};

/// Compares what is recorded with the model, while it is recorded.
class Checker {
 public:
  explicit Checker(const std::vector<PrinterTraits>& printers);
  ~Checker();
  Checker(const Checker&) = delete;
  Checker& operator=(const Checker&) = delete;

  /// The first difference, while the soak runs. Any thread.
  bool found() const { return m_found.load(); }

  /// What the printer's lists have done lately can be explained in so many ways that it is better left alone, until they show
  /// more. Any thread.
  bool isUnclear(PrinterId printer) const { return m_unclear[printer].load(); }

  /// Ends the watch, after the last event. The difference, if there is one: what is left over at the end counts.
  std::optional<std::string> finish();
  /// After `finish`.
  const Totals& totals() const { return m_totals; }

 private:
  void watch();
  bool takeAll();
  void see(const Event& event);
  void show(PrinterId printer, const Event& event);
  void count(const Event& event);
  void fail(PrinterId printer, const std::string& text);

  std::vector<std::unique_ptr<PrinterModel>> m_models;
  std::vector<std::atomic<bool>> m_unclear;        // by printer
  std::vector<std::optional<Moment>> m_callBegan;  // by thread
  Totals m_totals;
  std::optional<std::string> m_difference;
  std::atomic<bool> m_found{false};
  std::atomic<bool> m_ending{false};
  std::thread m_thread;
};

}  // namespace soak
