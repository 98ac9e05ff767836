#include "console/Runner.h"

#include <algorithm>
#include <string>
#include <utility>

#include "console/Mailbox.h"

namespace examples {
namespace {

using std::chrono::milliseconds;
using namespace std::chrono_literals;

constexpr long kNotice = 1;      // any number will do: each window has one task
constexpr qzstd::Rect kNowhere;  // a console's windows are never shown
constexpr milliseconds kRefresh = 1s;
constexpr milliseconds kPatience = 2s;  // for a printer that is in the middle of an answer

/// What the task and its window share. It goes with the last of them, and that says that the module has let the task go: no
/// notice is under way, the record is nobody else's.
struct Lease {
  Lease(std::unique_ptr<Operation> leased, std::shared_ptr<qzstd::PrinterInfo> of, std::shared_ptr<Mailbox> to)
      : operation(std::move(leased)), printer(std::move(of)), mailbox(std::move(to)) {}
  ~Lease() { mailbox->close(operation->report(*printer)); }
  Lease(const Lease&) = delete;
  Lease& operator=(const Lease&) = delete;

  const std::unique_ptr<Operation> operation;
  const std::shared_ptr<qzstd::PrinterInfo> printer;
  const std::shared_ptr<Mailbox> mailbox;
};

/// There is no system window behind it: a console has nothing to forward a notice to.
class OperationWindow : public AppWnd::CWnd {
 public:
  explicit OperationWindow(std::shared_ptr<Lease> lease) : CWnd(kNowhere), m_lease(std::move(lease)) {}

  bool Create(HWND /*parent*/) override { return false; }
  __int64 RunProc(unsigned /*msg*/, unsigned __int64 /*wParam*/, __int64 /*lParam*/) override { return 0; }

  // On a thread of the module: here, and only here, record and printer may be read. What leaves is a copy.
  bool Notice(long /*code*/) const override {
    const bool more = m_lease->operation->noticed();
    m_lease->mailbox->put(m_lease->operation->report(*m_lease->printer), !more);
    return more;
  }

 private:
  const std::shared_ptr<Lease> m_lease;
};

Report endedBefore(Outcome outcome, const Mailbox::State& state) {
  Report report;
  if (state.last) report.results = state.last->results;
  report.outcome = outcome;
  if (!state.closed) {  // nothing wakes a worker that waits for its printer's next turn
    report.reason = L"a library call has not come back, or the printer's next turn is far; the task ends with the process";
  } else if (outcome == Outcome::TimedOut) {
    report.reason = L"it was not over in time and was broken off";
  }
  return report;
}

}  // namespace

/// A task in the module, known here by weak pointers alone: whoever held it would never see it released.
class Runner::Task {
 public:
  Task(std::unique_ptr<Operation> operation, const std::shared_ptr<qzstd::PrinterInfo>& printer)
      : m_endsAtLimit(operation->endsAtLimit()) {
    const auto lease = std::make_shared<Lease>(std::move(operation), printer, m_mailbox);
    const std::shared_ptr<Operation> held(lease, lease->operation.get());
    auto task = AppComm::Node::Instance(printer, std::make_shared<OperationWindow>(lease), kNotice, held->type());
    task->setResource(held->resource(held));
    if (held->repeats()) task->setRepeat();
    task->setReqNPA();  // what StartNPA does: read the state also while the printer is idle
    m_operation = held;
    m_task = task;
    Add(std::move(task));
  }

  const Mailbox& mailbox() const { return *m_mailbox; }
  bool endsAtLimit() const { return m_endsAtLimit; }

  void end() const {
    if (const auto operation = m_operation.lock()) operation->end();
  }
  void remove() const {
    if (const auto task = m_task.lock()) task->setDelete();
  }

 private:
  const std::shared_ptr<Mailbox> m_mailbox = std::make_shared<Mailbox>();
  const bool m_endsAtLimit;
  std::weak_ptr<Operation> m_operation;
  std::weak_ptr<AppComm::Node> m_task;
};

std::optional<Outcome> Runner::waitForEnd(const Task& task, Clock::time_point start, Clock::time_point deadline) {
  for (;;) {
    const auto state = task.mailbox().state();
    if (state.isFinal) return std::nullopt;  // a repeating task is released in its printer's next cycle, which may be far
    const auto now = Clock::now();
    if (now >= deadline) return Outcome::TimedOut;
    m_showProgress(state.last ? state.last->percent : std::nullopt, std::chrono::duration_cast<milliseconds>(now - start));
    const auto wait = std::min(kRefresh, std::chrono::ceil<milliseconds>(deadline - now));
    if (m_terminal.waitForInterrupt(wait, task.mailbox().changed())) return Outcome::Interrupted;
  }
}

void Runner::waitForRelease(const Task& task) {
  const auto deadline = Clock::now() + kPatience;
  while (!task.mailbox().state().closed && Clock::now() < deadline) {
    const auto wait = std::chrono::ceil<milliseconds>(deadline - Clock::now());
    ::WaitForSingleObject(task.mailbox().changed(), static_cast<DWORD>(std::max(wait, milliseconds(0)).count()));
  }
}

Report Runner::runBy(std::unique_ptr<Operation> operation, const std::shared_ptr<qzstd::PrinterInfo>& printer,
                     Clock::time_point start, Clock::time_point deadline) {
  if (auto [first, required] = operation->preliminary(); first != nullptr) {
    auto report = runBy(std::move(first), printer, start, deadline);
    const bool gone = report.outcome == Outcome::TimedOut || report.outcome == Outcome::Interrupted;
    if (gone || (required && report.outcome != Outcome::Succeeded)) return report;
  }
  const Task task(std::move(operation), printer);
  const auto cutShort = waitForEnd(task, start, deadline);
  const bool isUsualEnd = cutShort == Outcome::TimedOut && task.endsAtLimit();
  if (cutShort) {
    isUsualEnd ? task.end() : task.remove();
    waitForRelease(task);
  }
  const auto state = task.mailbox().state();
  return state.isFinal && (!cutShort || isUsualEnd) ? *state.last : endedBefore(*cutShort, state);
}

Report Runner::run(std::unique_ptr<Operation> operation, const std::shared_ptr<qzstd::PrinterInfo>& printer,
                   std::chrono::seconds limit) {
  const auto start = Clock::now();
  return runBy(std::move(operation), printer, start, start + limit);
}

}  // namespace examples
