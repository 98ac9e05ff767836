#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <vector>

#include "PrinterInfo.h"

namespace bench {

using Clock = std::chrono::steady_clock;

inline constexpr std::chrono::milliseconds kInterval{1000};
inline constexpr std::chrono::milliseconds kReadTime{1};

/// A printer that keeps a record of its reads. Its read function is called by one thread at a time; the rest is for the main
/// thread, while nobody reads.
class Printer : public qzstd::PrinterInfo {
 public:
  Printer(int number, int expectedReads);

  /// What the maker's library does: takes `kReadTime`, and in it no processor time to speak of.
  void read();

  /// From now on reads are counted and their lateness kept.
  static void beginMeasuring() { s_measuring.store(true); }
  static void endMeasuring() { s_measuring.store(false); }

  std::uint64_t reads() const { return m_reads.load(); }
  /// How much later than an interval after the end of the read before each read began, milliseconds.
  const std::vector<double>& lateness() const { return m_lateness; }

 private:
  static inline std::atomic<bool> s_measuring{false};

  std::atomic<std::uint64_t> m_reads{0};
  Clock::time_point m_lastEnd{};
  std::vector<double> m_lateness;
};

}  // namespace bench
