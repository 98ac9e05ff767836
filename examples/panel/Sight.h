#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "common/Operation.h"

namespace panel {

/// What the last run of a printer's state task showed: copies, made inside the notice.
struct Sight {
  bool queried = false;     ///< the printer was asked in this run
  std::int32_t result = 0;  ///< of the last time it was asked
  std::int32_t jobs = 0;
  std::int32_t deviceStatus = 0;
  std::vector<qzstd::Supply> supplies = {};
  std::vector<std::int32_t> alerts = {};
  examples::Fields fields = {};  ///< all of it in words
};

/// From the notice to the window. Any thread.
class SightBoard {
 public:
  void put(Sight sight) {
    const std::lock_guard lock(m_mutex);
    m_sight = std::move(sight);
  }
  std::optional<Sight> get() const {
    const std::lock_guard lock(m_mutex);
    return m_sight;
  }

 private:
  mutable std::mutex m_mutex;
  std::optional<Sight> m_sight;  // guarded by m_mutex
};

/// Reads the state again and again, until its task is deleted, and puts what it sees on the board.
std::unique_ptr<examples::Operation> newWatch(std::shared_ptr<SightBoard> board);

/// The state of a printer in a few words.
std::wstring statusText(const std::optional<Sight>& sight);

}  // namespace panel
