#pragma once

#include <string>
#include <vector>

#include "simulator/PrinterContents.h"
#include "simulator/Scenario.h"

namespace simulator {

/// What one printer became since its scenario was loaded. Guarded by the simulation's mutex. `at` is the time of the call.
class PrinterState {
 public:
  /// The session's scenario holds `printer` and outlives this.
  explicit PrinterState(const Printer& printer);

  PrinterContents contents;

  /// What it shows: the scenario's timeline, and what it is doing by itself.
  Readings readings(milliseconds at) const;
  /// Whether its address is another than at the last check; this is a check.
  bool checkAddress(milliseconds at);
  /// False while it restarts.
  bool reachable(milliseconds at) const { return at >= m_restartEnd; }

  void printAlignmentPage(milliseconds at);
  void printImage(const std::wstring& image, milliseconds at);
  void clean(milliseconds at);
  /// Restarts with another firmware.
  void restart(const std::wstring& firmwareVersion, milliseconds at);

 private:
  void addJob(milliseconds at);

  const Printer* m_printer;
  std::wstring m_askedAddress;
  std::vector<milliseconds> m_jobEnds;
  milliseconds m_cleaningEnd{};
  milliseconds m_restartEnd{};
};

}  // namespace simulator
