#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

#include "module/Application.h"
#include "support/PlainWindow.h"

/// One operation, added as an application does it, up to the moment when the module lets go of its task: that is the only end
/// that an operation without notices has.
namespace application {

template <class Record>
struct Outcome {
  Record record;  ///< as it was in the end
  int notices = 0;
};

/// Called in each notice, with the record; false refuses all further ones.
template <class Record>
using Answer = std::function<bool(Record&)>;

template <class Record>
class OperationRun {
 public:
  OperationRun(std::shared_ptr<qzstd::PrinterInfo> printer, AppComm::Type type, Record request, Answer<Record> answer)
      : m_end(std::make_shared<End>()) {
    const std::shared_ptr<Record> record = std::make_shared<Kept>(std::move(request), m_end);
    const auto window = std::make_shared<Window>(record, m_end, std::move(answer));
    m_node = AppComm::Node::Instance(std::move(printer), window, 1, type);
    m_node->setResource(record);
  }

  /// Without it: once.
  OperationRun& repeating() {
    m_node->setRepeat();
    return *this;
  }

  void start() { Add(std::exchange(m_node, nullptr)); }

  bool isOver() const {
    const std::lock_guard lock(m_end->mutex);
    return m_end->record.has_value();
  }

  /// Nothing when the module still keeps the task after all the patience.
  std::optional<Outcome<Record>> waitForEnd() {
    std::unique_lock lock(m_end->mutex);
    m_end->reached.wait_for(lock, kPatience, [this] { return m_end->record.has_value(); });
    if (!m_end->record) return std::nullopt;
    return Outcome<Record>{*m_end->record, m_end->notices};
  }

 private:
  struct End {
    std::mutex mutex;
    std::condition_variable reached;
    std::optional<Record> record;
    int notices = 0;
  };

  /// The record that the module sees. It goes with the task.
  struct Kept : Record {
    Kept(Record request, std::shared_ptr<End> of) : Record(std::move(request)), end(std::move(of)) {}
    ~Kept() {
      const std::lock_guard lock(end->mutex);
      end->record = static_cast<Record&>(*this);
      end->reached.notify_all();
    }
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;

    const std::shared_ptr<End> end;
  };

  class Window : public support::PlainWindow {
   public:
    Window(std::shared_ptr<Record> record, std::shared_ptr<End> end, Answer<Record> answer)
        : m_record(std::move(record)), m_end(std::move(end)), m_answer(std::move(answer)) {}

    bool Notice(long /*code*/) const override {
      {
        const std::lock_guard lock(m_end->mutex);
        ++m_end->notices;
      }
      return m_answer(*m_record);
    }

   private:
    const std::shared_ptr<Record> m_record;
    const std::shared_ptr<End> m_end;
    const Answer<Record> m_answer;
  };

  const std::shared_ptr<End> m_end;
  std::shared_ptr<AppComm::Node> m_node;
};

}  // namespace application
