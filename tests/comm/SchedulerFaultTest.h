#pragma once

#include <gtest/gtest.h>

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "AppCommunication.h"
#include "comm/CList.h"
#include "comm/ScriptedHandlers.h"
#include "fakes/StepFault.h"
#include "support/PlainWindow.h"

/// The scheduler on the real clock, with scripted handlers that notify, and with the log off: the steps of a control function
/// are then the module's own.
///
/// Lists have no interval unless a test gives them one, and so end by themselves as soon as they are empty. At the end of a
/// test no list and no thread may be left.
class SchedulerFaultTest : public testing::Test {
 protected:
  using Type = AppComm::Type;
  using Task = std::shared_ptr<AppComm::Node>;

  SchedulerFaultTest();
  ~SchedulerFaultTest() override;

  /// A once task whose window counts what it is told.
  Task onceTask(Type type, const std::wstring& uid = L"P1", std::int32_t interval = 0);

  // The runs wait, each for a leave of its own, from `holdRuns` until `letAllRun`.
  void holdRuns();
  void letRun(std::size_t count);
  void letAllRun();

  /// Waits until the windows have been told `count` times in all.
  void awaitNotices(std::size_t count);
  std::size_t notices();

  /// Adds the task, which makes a new list, and waits until it has run, its window was told and the list has ended.
  void expectToRunInAListOfItsOwn(const Task& task);
  static std::vector<std::shared_ptr<comm::CList>> registeredLists();
  /// No lock of the module is held that the next caller needs.
  static void expectUnlocked(comm::CList& list);

  /// Makes the first, the second, ... such step of `operation` fail until it succeeds because it has no nth any more. A failure
  /// must leave it as the exception of this step; after each, `settle` is run. Returns how many have failed.
  static std::size_t failEach(fakes::Step step, const std::function<void()>& operation, const std::function<void()>& settle);

  fakes::ScriptedHandlers handlers;

 private:
  class Window;

  int run(comm::CNode& entry);

  std::mutex m_mutex;  // guards all below
  std::condition_variable m_changed;
  bool m_held = false;
  std::size_t m_leaves = 0;
  std::size_t m_notices = 0;
};
