#pragma once

#include <mutex>
#include <optional>

#include "common/Handle.h"
#include "common/Report.h"

namespace examples {

/// The way from the module's threads to the one that waits for an operation. Any thread.
class Mailbox {
 public:
  /// Throws `std::system_error`.
  Mailbox();

  /// A notice: how the operation goes. `isLast`: it has refused further ones, so that nothing can change any more.
  void put(Report report, bool isLast);
  /// The operation is over: its task has been released.
  void close(Report report);

  struct State {
    std::optional<Report> last = std::nullopt;
    bool isFinal = false;  ///< `last` is what came of it
    bool closed = false;
  };
  State state() const;

  /// Set by `put` and `close`, cleared by the wait that it ends.
  HANDLE changed() const { return m_changed.get(); }

 private:
  const Handle m_changed;  // synchronises itself

  mutable std::mutex m_mutex;
  State m_state;  // guarded by m_mutex
};

}  // namespace examples
