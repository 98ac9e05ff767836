#pragma once

#include <any>
#include <memory>
#include <string>
#include <vector>

#include "common/Operation.h"
#include "console/Options.h"

namespace consoletest {

/// The operation of a command line, with its record in the test's hands.
template <class Record>
class OperationRun {
 public:
  explicit OperationRun(const std::vector<std::wstring>& arguments)
      : OperationRun(makeOperation(examples::parseOptions(arguments))) {}
  explicit OperationRun(std::shared_ptr<examples::Operation> made)
      : operation(std::move(made)), record(std::any_cast<std::shared_ptr<Record>>(operation->resource(operation))) {}

  /// As the module does after a run.
  examples::Report afterNotice() const {
    operation->noticed();
    return operation->report(printer);
  }

  qzstd::PrinterInfo printer;
  const std::shared_ptr<examples::Operation> operation;
  const std::shared_ptr<Record> record;

 private:
  static std::shared_ptr<examples::Operation> makeOperation(const examples::Options& options) {
    return options.command->newOperation(options.request);
  }
};

/// What is told, in one line for each result and one for the outcome.
inline std::vector<std::wstring> linesOf(const examples::Report& report) { return examples::renderText(L"c", L"p", report); }

}  // namespace consoletest
