#pragma once

#include <chrono>
#include <functional>
#include <iosfwd>
#include <list>
#include <string_view>
#include <vector>

#include "log/LogWindowsTest.h"
#include "log/LogWriter.h"
#include "log/WrittenLines.h"

/// What became of the lines of some time.
struct LineAccount {
  int whole = 0;
  int timedOut = 0;     ///< written, or not, without the semaphore
  int notOpened = 0;    ///< not written: the file could not be opened
  int shortWrites = 0;  ///< not written, or not all of it
  int inHand = 0;       ///< of killed writers: not completed, but there
  int cut = 0;          ///< beginnings of lines that were in hand, or that the platform has cut
  /// Only after a wait has timed out:
  int lost = 0;     ///< written and completed, but not there
  int damaged = 0;  ///< stretches that are no whole line and no cut one

  LineAccount& operator+=(const LineAccount& other);
};
std::ostream& operator<<(std::ostream& out, const LineAccount& account);

/// Several processes write into one log. Every line that they write is accounted for.
///
/// No writer may have waited for the semaphore more than once in a line, nor for longer than 2000 ms; at the end each one that
/// was not killed must end in order.
class LogWritersTest : public LogOnWindows {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Runs `round` until no wait for the semaphore times out in it that should not, three times at most. On a busy machine a
  /// wait may time out, and then little is promised: `round` tells so, and asserts only that. All writers rest before and after
  /// it, and before it there is no log file.
  void repeatWhileDisturbed(const std::function<void(bool& disturbed)>& round);

  /// Starts writers until `count` are alive. They rest.
  void startUpTo(std::size_t count);
  std::vector<LogWriter*> living();

  /// Waits for the writers; false when it takes too long. The condition is tested whenever one of them gets on.
  [[nodiscard]] bool waitUntil(const std::function<bool()>& condition);
  void letWrite();
  [[nodiscard]] bool waitUntilAllRest();
  /// Waits until each living writer has completed so many lines more.
  [[nodiscard]] bool waitForLines(std::uint32_t more);
  /// All write at least so many lines, then rest.
  [[nodiscard]] bool writeAndRest(std::uint32_t lines);

  /// Whether a wait for the semaphore has timed out since the last account.
  bool hasTimedOut() const;
  /// The lines that are completed by now have to be in the files at the next account, whatever happens: unless a wait has timed
  /// out already. Then it returns false.
  bool noteCompletedLines();

  /// Looks for each line since the last account in the bytes of the log's files. A completed line must be there once and whole
  /// when the platform gave what was asked for and no wait has timed out, whichever writer's. No line may be there twice, in
  /// the wrong order, or though it could not be written. Then the killed writers are forgotten. All others rest.
  LineAccount account(const std::vector<std::string_view>& files);
  /// The same for the log file alone, which then is removed.
  LineAccount accountForLogFile();
  /// The next account begins after the lines so far, without a look at these. The killed writers are forgotten. All others
  /// rest.
  void settle();

  bool semaphoreIsFree() const;

 private:
  void removeLogFiles() const;
  void accountForWriter(const LogWriter& writer, const WrittenLines& lines, LineAccount& account) const;
  bool isCut(std::string_view stretch) const;

  const support::Handle m_progress{::CreateEventW(nullptr, FALSE, FALSE, logwriter::kProgressEvent)};
  std::list<LogWriter> m_writers;
  int m_started = 0;
};
