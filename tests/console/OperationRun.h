#pragma once

#include <any>
#include <memory>
#include <string>
#include <vector>

#include "console/Operation.h"
#include "console/Options.h"

namespace consoletest {

/// The operation of a command line, with its record in the test's hands.
template <class Record>
class OperationRun {
 public:
  explicit OperationRun(const std::vector<std::wstring>& arguments)
      : OperationRun(makeOperation(console::parseOptions(arguments))) {}
  explicit OperationRun(std::shared_ptr<console::Operation> made)
      : operation(std::move(made)), record(std::any_cast<std::shared_ptr<Record>>(operation->resource(operation))) {}

  /// As the module does after a run.
  console::Report afterNotice() const {
    operation->noticed();
    return operation->report(printer);
  }

  qzstd::PrinterInfo printer;
  const std::shared_ptr<console::Operation> operation;
  const std::shared_ptr<Record> record;

 private:
  static std::shared_ptr<console::Operation> makeOperation(const console::Options& options) {
    return options.command->newOperation(options.request);
  }
};

/// What is told, in one line for each result and one for the outcome.
inline std::vector<std::wstring> linesOf(const console::Report& report) { return console::renderText(L"c", L"p", report); }

}  // namespace consoletest
