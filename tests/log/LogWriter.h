#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "log/WriterLedger.h"
#include "support/ChildProcess.h"

/// A process that writes numbered lines into the log when it is told to. It rests at first, and does not outlive this object.
class LogWriter {
 public:
  /// `name` has no blank and is no other writer's. Throws `std::system_error`.
  explicit LogWriter(const std::wstring& name);

  const std::wstring& name() const { return m_name; }
  logwriter::WriterLedger& ledger() const { return *m_ledger; }
  /// Not killed and not ended.
  bool isAlive() const { return m_alive; }

  void write();
  /// It rests after the line in hand: `ledger().resting` tells when.
  void rest();
  /// Ends it where it stands.
  void kill();
  /// Tells it to end, and returns its exit code; none when it does not end.
  std::optional<std::uint32_t> end();

  /// Lines up to this number have been accounted for.
  std::uint32_t settled = 0;
  /// Of the others, lines up to this number need not be there.
  std::uint32_t excused = 0;
  /// Lines up to this number were completed before anything went wrong.
  std::uint32_t certain = 0;

 private:
  struct Unmap {
    void operator()(logwriter::WriterLedger* ledger) const { ::UnmapViewOfFile(ledger); }
  };

  void give(logwriter::Order order);

  const std::wstring m_name;
  const support::Handle m_memory;
  const std::unique_ptr<logwriter::WriterLedger, Unmap> m_ledger;
  const support::Handle m_orders;
  const support::ChildProcess m_process;
  bool m_alive = true;
};
