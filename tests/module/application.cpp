#include "module/Application.h"

#include <utility>

#include "simulator/SimulatedPrinters.h"
#include "support/PlainWindow.h"

namespace application {
namespace {

class Window : public support::PlainWindow {
 public:
  Window(std::shared_ptr<Notices> notices, StateTask::Answer answer, std::shared_ptr<AppComm::State> record,
         std::shared_ptr<qzstd::PrinterInfo> printer)
      : m_notices(std::move(notices)),
        m_answer(std::move(answer)),
        m_record(std::move(record)),
        m_printer(std::move(printer)) {}

  bool Notice(long code) const override {
    const auto number = m_notices->count() + 1;  // notices of one task come one after another
    m_notices->add({code, *m_record, *m_printer});
    return m_answer(number);
  }

 private:
  const std::shared_ptr<Notices> m_notices;
  const StateTask::Answer m_answer;
  const std::shared_ptr<AppComm::State> m_record;
  const std::shared_ptr<qzstd::PrinterInfo> m_printer;
};

}  // namespace

void Notices::add(Notice notice) {
  const std::lock_guard lock(m_mutex);
  m_notices.push_back(std::move(notice));
  m_changed.notify_all();
}

std::vector<Notice> Notices::all() const {
  const std::lock_guard lock(m_mutex);
  return m_notices;
}

bool Notices::waitFor(std::size_t count) const {
  std::unique_lock lock(m_mutex);
  return m_changed.wait_for(lock, kPatience, [&] { return m_notices.size() >= count; });
}

/// Whether the task's record still exists. It goes with the task.
class StateTask::Lifetime {
 public:
  static std::shared_ptr<AppComm::State> newRecord(const std::shared_ptr<Lifetime>& of) { return std::make_shared<Record>(of); }

  bool waitForEnd() {
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, kPatience, [this] { return m_over; });
  }

 private:
  struct Record : AppComm::State {
    explicit Record(std::shared_ptr<Lifetime> of) : lifetime(std::move(of)) {}
    ~Record() { lifetime->end(); }
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;

    const std::shared_ptr<Lifetime> lifetime;
  };

  void end() {
    const std::lock_guard lock(m_mutex);
    m_over = true;
    m_changed.notify_all();
  }

  std::mutex m_mutex;
  std::condition_variable m_changed;
  bool m_over = false;
};

StateTask::StateTask(const std::wstring& uid, long code, Answer answer) : m_lifetime(std::make_shared<Lifetime>()) {
  const auto record = Lifetime::newRecord(m_lifetime);
  const auto info = std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(uid));
  const auto window = std::make_shared<Window>(m_notices, std::move(answer), record, info);
  m_node = AppComm::Node::Instance(info, window, code, AppComm::Type::State);
  m_node->setResource(record);
}

StateTask& StateTask::repeating() {
  m_node->setRepeat();
  return *this;
}

bool StateTask::waitUntilReleased() {
  m_node.reset();
  return m_lifetime->waitForEnd();
}

std::string printer(const std::string& uid, const std::string& attributes, const std::string& children) {
  return "<printer uid='" + uid + "' manager-id='manager-of-" + uid + "' " + attributes + ">" + children + "</printer>";
}

void loadPrinters(const std::string& printers) { simulator::loadScenarioText("<scenario>" + printers + "</scenario>"); }

}  // namespace application
