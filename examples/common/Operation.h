#pragma once

#include <any>
#include <functional>
#include <memory>
#include <utility>

#include "Node.h"
#include "PrinterInfo.h"
#include "Records.h"
#include "common/Report.h"

namespace examples {

class Operation;

/// What is to be run before an operation, on the same printer.
struct Preliminary {
  std::unique_ptr<Operation> operation = nullptr;  ///< null: nothing
  bool required = false;                           ///< its failure is the whole command's
};

/// One operation and its record. Whoever runs it makes a task of `type` and `resource`, calls `noticed` in each notice, and
/// takes the last report once the task has been released: only then is the operation over.
///
/// Made on one thread, then left to the module's: `noticed` and `report` are called inside a notice, or when nobody else holds
/// the operation any more.
class Operation {
 public:
  enum class Notifies { Always, Not, OnSuccess };

  explicit Operation(AppComm::Type type, Notifies notifies = Notifies::Always) : m_type(type), m_notifies(notifies) {}
  virtual ~Operation() = default;
  Operation(const Operation&) = delete;
  Operation& operator=(const Operation&) = delete;

  AppComm::Type type() const { return m_type; }
  /// The task runs again and again, until a notice was the last.
  virtual bool repeats() const { return false; }
  virtual Preliminary preliminary() { return {}; }

  /// For the task. Keeps `self`, which is this object.
  virtual std::any resource(std::shared_ptr<Operation> self) = 0;

  /// In a notice. False: no more are wanted.
  bool noticed();

  /// Inside a notice how it goes, after the release what came of it.
  Report report(const qzstd::PrinterInfo& printer) const;

  /// Whether the time limit is how it usually ends, and no failure.
  virtual bool endsAtLimit() const { return false; }
  /// Ends an operation with `endsAtLimit`. On any thread, while the task is under way.
  virtual void end() {}

 protected:
  virtual bool onNotice() { return true; }
  virtual Report reportRecord(const qzstd::PrinterInfo& printer) const = 0;

 private:
  const AppComm::Type m_type;
  const Notifies m_notifies;
  bool m_noticed = false;
};

/// An operation whose record is a `Record`, told by a function.
template <class Record>
class RecordOperation : public Operation {
 public:
  using Look = std::function<Report(const Record&, const qzstd::PrinterInfo&)>;

  RecordOperation(AppComm::Type type, Record record, Look look, Notifies notifies = Notifies::Always)
      : Operation(type, notifies), m_record(std::move(record)), m_look(std::move(look)) {}

  std::any resource(std::shared_ptr<Operation> self) override { return std::shared_ptr<Record>(std::move(self), &m_record); }

 protected:
  Report reportRecord(const qzstd::PrinterInfo& printer) const override { return m_look(m_record, printer); }
  Record& record() { return m_record; }
  const Record& record() const { return m_record; }

 private:
  Record m_record;
  const Look m_look;
};

Report failure(std::wstring reason);
/// The library's code for it was not 0.
Report failure(std::int32_t code);
Report refusal(const qzstd::PrinterInfo& printer, bool statusOne);

/// Reads the printer's state, and tells it.
std::unique_ptr<Operation> newStateOperation();

/// Notes in the state record whether it succeeded, and tells no window.
std::unique_ptr<Operation> newRegistration(AppComm::Type type, bool AppComm::State::*registered);

/// An operation that changes the printer. The module goes by the printer's last known state, so that is read first.
template <class Record>
class ChangeOperation : public RecordOperation<Record> {
 public:
  using RecordOperation<Record>::RecordOperation;

  Preliminary preliminary() override { return {newStateOperation()}; }

 protected:
  Report reportRecord(const qzstd::PrinterInfo& printer) const override {
    const auto& record = this->record();
    if (record.busy || record.statusOne) return refusal(printer, record.statusOne);
    return RecordOperation<Record>::reportRecord(printer);
  }
};

}  // namespace examples
