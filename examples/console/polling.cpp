#include "console/Polling.h"

#include <condition_variable>
#include <mutex>
#include <utility>

namespace examples {
namespace {

constexpr long kStateNotice = 1;  // any number will do: each window has one task
constexpr qzstd::Rect kNowhere;   // a console's windows are never shown

/// What a task tells. There is no system window behind it: a console has nothing to forward a notice to.
class StateWindow : public AppWnd::CWnd {
 public:
  StateWindow(std::shared_ptr<Board> board, std::size_t row, std::shared_ptr<qzstd::PrinterInfo> printer,
              std::shared_ptr<AppComm::State> record)
      : CWnd(kNowhere), m_board(std::move(board)), m_row(row), m_printer(std::move(printer)), m_record(std::move(record)) {}

  bool Create(HWND /*parent*/) override { return false; }
  __int64 RunProc(unsigned /*msg*/, unsigned __int64 /*wParam*/, __int64 /*lParam*/) override { return 0; }

  // On a thread of the module: here, and only here, record and printer may be read. What leaves is a copy.
  bool Notice(long /*code*/) const override {
    m_board->update(m_row, {*m_record, m_printer->deviceStatus, m_printer->address, m_printer->supplies});
    return true;
  }

 private:
  const std::shared_ptr<Board> m_board;
  const std::size_t m_row;
  const std::shared_ptr<qzstd::PrinterInfo> m_printer;
  const std::shared_ptr<AppComm::State> m_record;
};

}  // namespace

/// Counts the records that are still in use. A record goes with the last task that holds it, and that says that the printer's
/// worker has let go.
class Polling::Released {
 public:
  static std::shared_ptr<AppComm::State> newRecord(const std::shared_ptr<Released>& counted) {
    return std::make_shared<Record>(counted);
  }

  bool waitForAll(std::chrono::milliseconds limit) {
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, limit, [this] { return m_inUse == 0; });
  }

 private:
  struct Record : AppComm::State {
    explicit Record(std::shared_ptr<Released> in) : counted(std::move(in)) { counted->change(1); }
    ~Record() { counted->change(-1); }
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;

    const std::shared_ptr<Released> counted;
  };

  void change(int by) {
    const std::lock_guard lock(m_mutex);
    m_inUse += by;
    m_changed.notify_all();
  }

  std::mutex m_mutex;
  std::condition_variable m_changed;
  int m_inUse = 0;
};

Polling::Polling(std::shared_ptr<Board> board) : m_board(std::move(board)), m_released(std::make_shared<Released>()) {}
Polling::~Polling() = default;

void Polling::addPrinter(std::shared_ptr<qzstd::PrinterInfo> printer) {
  const auto record = Released::newRecord(m_released);
  const auto row = m_board->addPrinter(*printer);
  const auto window = std::make_shared<StateWindow>(m_board, row, printer, record);
  auto task = AppComm::Node::Instance(std::move(printer), window, kStateNotice, AppComm::Type::State);
  task->setResource(record);
  task->setRepeat();
  Add(task);
  StartNPA(task);  // read the state also while the printer is idle
  m_tasks.push_back(std::move(task));
}

bool Polling::stop(std::chrono::milliseconds limit) {
  for (const auto& task : m_tasks) task->setDelete();
  Stop();
  m_tasks.clear();
  return m_released->waitForAll(limit);
}

}  // namespace examples
