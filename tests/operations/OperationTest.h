#pragma once

#include <gtest/gtest.h>

#include <any>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "AppWindow.h"
#include "Node.h"
#include "PrinterInfo.h"
#include "comm/CNode.h"
#include "fakes/MakerLibraries.h"
#include "operations/Journal.h"
#include "support/LoggingOn.h"
#include "support/PlainWindow.h"

inline constexpr const char* kAsksJobs = R"(AppMgr_GetPrintingJob("manager-id"))";

/// A window that does what the test says when it is told; it has no handle. Without an action it wants further results.
class NoticeWindow : public support::PlainWindow {
 public:
  using Action = std::function<bool(long code)>;

  explicit NoticeWindow(Action action = nullptr);

  bool Notice(long code) const override;

 private:
  const Action m_action;
};

/// The maker's libraries around one printer: they answer what the members hold, and note each call in the journal.
class ScriptedPrinter : public fakes::MakerLibraries {
 public:
  explicit ScriptedPrinter(Journal& journal) : m_journal(journal) {}

  int jobs = 0;
  int stateResult = 0;
  bool pushScan = false;
  std::optional<bool> addressChanged;                             ///< none: the call writes no answer
  std::function<void()> whileAskingJobs;                          ///< run within the call
  std::function<void(qzstd::PrinterInfo& printer)> whileReading;  ///< run within the call

  void record(const std::string& call) override;
  int AppMgr_GetPrintingJob(const wchar_t* managerId) override;
  int AppMgr_CheckIpChange(qzstd::PrinterInfo* printer, bool* changed) override;
  int AppPrinterSdk_GetState(qzstd::PrinterInfo* printer) override;
  bool AppPrinterSdk_IsSuppportPushScan(qzstd::PrinterInfo* printer) override;

 private:
  Journal& m_journal;
};

/// One operation, run on the test's thread with the real log: printer, windows and tasks for it, and a journal of all it does.
/// A sleep of the operation takes no time; the journal notes it as `sleep N us`.
class OperationFixture : public testing::Test {
 protected:
  using Type = AppComm::Type;

  explicit OperationFixture(std::string function);
  ~OperationFixture() override;

  static std::shared_ptr<qzstd::PrinterInfo> newPrinter(const std::wstring& uid);

  /// A window that notes `notice CODE` in the journal and answers `wanted`.
  std::shared_ptr<NoticeWindow> window(bool wanted = true);
  /// A task for `printer`, or for another one, with a window of its own.
  std::shared_ptr<AppComm::Node> task(long code, std::any resource, bool wanted = true);
  std::shared_ptr<AppComm::Node> taskFor(std::shared_ptr<qzstd::PrinterInfo> of, long code, std::any resource,
                                         bool wanted = true);

  support::LoggingOn logging;
  Journal journal;
  const std::shared_ptr<qzstd::PrinterInfo> printer = newPrinter(L"printer-1");
  Type type = Type::State;
  std::function<void()> whileSleeping;  ///< run within every sleep
  std::function<void()> whileLogging;   ///< run within every log line's write; the line is the journal's last entry
};

/// The same, with the maker's libraries: `ScriptedPrinter`, or one that knows more.
template <class Libraries>
class OperationTestWith : public OperationFixture {
 protected:
  using OperationFixture::OperationFixture;

  Libraries libraries{journal};

 private:
  const fakes::InstalledMaker m_installed{libraries};
};

using OperationTest = OperationTestWith<ScriptedPrinter>;

/// An entry with `tasks`: the first is the current one, the others are observers.
std::shared_ptr<comm::CNode> entryOf(const std::vector<std::shared_ptr<AppComm::Node>>& tasks);
