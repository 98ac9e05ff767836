#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "simulator/Scenario.h"

namespace simulator {

enum class JobKind { transfer, wifiList, wifiJoin, upgradeCheck };

/// Something that a start function began and that later functions, which name no printer, ask about.
struct Job {
  std::size_t printer = 0;    ///< its place in the scenario
  milliseconds start{};       ///< since the scenario was loaded
  std::wstring subject{};     ///< transfer: the firmware; join: the network's name
  std::int32_t segments = 0;  ///< join
  bool willSucceed = true;    ///< join
};

/// The jobs of one session, bound to the threads that started them, since two printers' workers may each have one. A thread has
/// one of each kind at most.
class Jobs {
 public:
  void start(JobKind kind, Job job);  ///< replaces the calling thread's
  const Job* find(JobKind kind) const;
  void end(JobKind kind);

 private:
  std::map<std::pair<std::uint64_t, JobKind>, Job> m_jobs;
};

}  // namespace simulator
