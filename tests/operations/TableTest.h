#pragma once

#include <gtest/gtest.h>

#include <any>
#include <memory>
#include <ostream>
#include <string>

#include "Records.h"
#include "operations/AnsweringPrinter.h"
#include "operations/HandlerTable.h"
#include "operations/OperationTest.h"

inline const operations::HandlerRow& handlerRowOf(AppComm::Type type) {
  return operations::kHandlerTable.at(static_cast<std::size_t>(type));
}

/// One of many operations, found by its type in the handler table. The journal takes the table's name for the operation's, so
/// that a handler which logs another one is seen. `Row` has members `type` and `name`: the name of the test.
template <class Row>
class TableTest : public OperationTestWith<AnsweringPrinter>, public testing::WithParamInterface<Row> {
 protected:
  TableTest() : OperationTestWith(handlerRowOf(row().type).name) { type = row().type; }

  static const Row& row() { return testing::WithParamInterface<Row>::GetParam(); }
  static int run(const std::shared_ptr<comm::CNode>& entry) { return handlerRowOf(row().type).handler(entry); }
};

struct RowName {
  template <class Row>
  std::string operator()(const testing::TestParamInfo<Row>& info) const {
    return info.param.name;
  }
};

/// A resource with a new record.
template <class Record>
std::any fresh() {
  return std::make_shared<Record>();
}
