#pragma once

#include <functional>
#include <memory>
#include <string>

#include "AppCommunication.h"
#include "common/Operation.h"

namespace panel {

class Courier;

/// One operation, given to the module as a task. Its own thread is that of `parent`, and nothing here waits.
class Task {
 public:
  /// How it goes, after notices, and once, at the end, what came of it.
  using Told = std::function<void(const examples::Report& report, bool isOver)>;

  /// Adds the task. `told` runs on the thread of `parent`, never within this constructor. Throws `std::system_error` when the
  /// system gives no window or no thread.
  Task(HWND parent, std::unique_ptr<examples::Operation> operation, std::shared_ptr<qzstd::PrinterInfo> printer, Told told);
  /// A task that may not go yet leaves its window to the process's end.
  ~Task();
  Task(const Task&) = delete;
  Task& operator=(const Task&) = delete;

  AppComm::Type type() const { return m_type; }
  const std::wstring& uid() const { return m_uid; }

  /// Marks the task deleted: a long operation ends at its next step, without a last notice. What came of it is then told as
  /// `Outcome::Interrupted`, without results.
  void cancel();
  /// Asks for a state read soon, for a task that repeats.
  void readSoon();

  /// Told of the end.
  bool isOver() const { return m_over; }
  /// Over, and nobody but this object holds its window.
  bool mayGo() const;

 private:
  class Lease;
  class Mail;

  void arrived();

  const AppComm::Type m_type;
  const std::wstring m_uid;
  const Told m_told;
  const std::shared_ptr<Mail> m_mail;
  std::shared_ptr<Courier> m_courier;
  std::weak_ptr<AppComm::Node> m_node;
  bool m_over = false;
};

}  // namespace panel
