#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "AppCommunication.h"

/// What an application that polls printers keeps, in the tests and in the programs that they start.
namespace application {

inline constexpr std::chrono::milliseconds kPatience = std::chrono::seconds(20);  ///< no wait that succeeds takes so long

/// What one notice found: copies made inside it.
struct Notice {
  long code = 0;
  AppComm::State record;
  qzstd::PrinterInfo printer;
};

/// The notices of one task, as they come. Any thread may call.
class Notices {
 public:
  void add(Notice notice);
  std::vector<Notice> all() const;
  std::size_t count() const { return all().size(); }

  /// False when there are fewer than `count` after all the patience.
  [[nodiscard]] bool waitFor(std::size_t count) const;
  /// Waits for `count` notices more than there are now.
  [[nodiscard]] bool waitForMore(std::size_t count) const { return waitFor(this->count() + count); }

 private:
  mutable std::mutex m_mutex;
  mutable std::condition_variable m_changed;
  std::vector<Notice> m_notices;
};

/// A state task: its printer is one of the simulation's, its window notes what it is told.
class StateTask {
 public:
  /// Takes the number of the notice, from 1; false refuses all further ones.
  using Answer = std::function<bool(std::size_t)>;

  /// A once task with a printer description of its own.
  StateTask(
      const std::wstring& uid, long code, Answer answer = [](std::size_t) { return true; });
  StateTask(StateTask&&) = default;

  StateTask& repeating();

  const std::shared_ptr<AppComm::Node>& node() const { return m_node; }
  const Notices& notices() const { return *m_notices; }

  /// Lets go of the task and waits until the module has done so; false when it does not.
  [[nodiscard]] bool waitUntilReleased();

 private:
  class Lifetime;

  std::shared_ptr<Notices> m_notices = std::make_shared<Notices>();
  std::shared_ptr<Lifetime> m_lifetime;
  std::shared_ptr<AppComm::Node> m_node;
};

/// A scenario's text: `<printer>` with uid and manager id, these attributes and these children.
std::string printer(const std::string& uid, const std::string& attributes, const std::string& children = "");
void loadPrinters(const std::string& printers);

}  // namespace application
