#include "panel/Task.h"

#include <atomic>
#include <mutex>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "panel/Courier.h"

namespace panel {
namespace {

constexpr long kNotice = 1;  // any number will do: each courier has one task

// A library call that hangs may go on to use them. No destructor: the process's end must not run one beside a worker.
void leaveToTheEnd(std::shared_ptr<Courier> courier) {
  static auto* const left = new std::vector<std::shared_ptr<Courier>>;
  left->push_back(std::move(courier));
}

}  // namespace

/// The way from the module's threads to the window's. Any thread. What is not taken yet gives way to what is newer.
class Task::Mail {
 public:
  struct News {
    examples::Report report;
    bool isOver = false;
  };

  void put(News news) {
    const std::lock_guard lock(m_mutex);
    m_news = std::move(news);
  }
  std::optional<News> take() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_news, std::nullopt);
  }
  void setWindow(HWND window) { m_window = window; }
  HWND window() const { return m_window; }
  void cancel() { m_isCancelled = true; }
  bool isCancelled() const { return m_isCancelled; }

 private:
  std::mutex m_mutex;
  std::optional<News> m_news;  // guarded by m_mutex
  HWND m_window = nullptr;     // fixed before the task is added
  std::atomic<bool> m_isCancelled{false};
};

/// What the module holds of the operation, as the task's record. It goes when the module lets go of the task: then the
/// operation is over, and its record is nobody else's.
class Task::Lease {
 public:
  Lease(std::unique_ptr<examples::Operation> leased, std::shared_ptr<qzstd::PrinterInfo> printer, std::shared_ptr<Mail> mail)
      : operation(std::move(leased)), m_printer(std::move(printer)), m_mail(std::move(mail)) {}
  // On a thread of the list, which alone may read the printer's state; or on the window's thread, when it cancelled just now.
  ~Lease() {
    m_mail->put(
        {m_mail->isCancelled() ? examples::Report{.outcome = examples::Outcome::Interrupted} : operation->report(*m_printer),
         true});
    Courier::poke(m_mail->window());
  }
  Lease(const Lease&) = delete;
  Lease& operator=(const Lease&) = delete;

  bool noticed() {
    const bool more = operation->noticed();
    m_mail->put({operation->report(*m_printer), false});
    return more;
  }

  const std::unique_ptr<examples::Operation> operation;

 private:
  const std::shared_ptr<qzstd::PrinterInfo> m_printer;
  const std::shared_ptr<Mail> m_mail;
};

Task::Task(HWND parent, std::unique_ptr<examples::Operation> operation, std::shared_ptr<qzstd::PrinterInfo> printer, Told told)
    : m_type(operation->type()), m_uid(printer->uid), m_told(std::move(told)), m_mail(std::make_shared<Mail>()) {
  const auto lease = std::make_shared<Lease>(std::move(operation), printer, m_mail);
  // The courier must not keep the lease: it outlives the task.
  m_courier = std::make_shared<Courier>(
      [weak = std::weak_ptr<Lease>(lease)] {
        const auto held = weak.lock();
        return held != nullptr && held->noticed();
      },
      [this] { arrived(); });
  if (!m_courier->Create(parent)) {
    throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), "no window");
  }
  m_mail->setWindow(m_courier->GetWnd());

  const std::shared_ptr<examples::Operation> held(lease, lease->operation.get());
  auto node = AppComm::Node::Instance(printer, m_courier, kNotice, m_type);
  node->setResource(held->resource(held));
  if (held->repeats()) node->setRepeat();
  node->setReqNPA();  // what StartNPA does: read the state also while the printer is idle
  m_node = node;
  try {
    Add(std::move(node));
  } catch (...) {
    m_courier->Destroy();  // the module may keep the task: nothing may arrive at an object that was never made
    throw;
  }
}

Task::~Task() {
  if (mayGo()) return;
  cancel();
  m_courier->Destroy();
  leaveToTheEnd(std::move(m_courier));
}

void Task::cancel() {
  m_mail->cancel();
  if (const auto node = m_node.lock()) node->setDelete();
}

void Task::readSoon() {
  if (const auto node = m_node.lock()) StartNPA(node);
}

bool Task::mayGo() const { return m_over && m_courier.use_count() == 1 && m_courier->isResting(); }

void Task::arrived() {
  const auto news = m_mail->take();
  if (!news || m_over) return;
  m_over = news->isOver;
  m_told(news->report, news->isOver);
}

}  // namespace panel
