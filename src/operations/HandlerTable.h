#pragma once

#include <array>
#include <memory>

#include "Node.h"
#include "comm/CNode.h"

namespace operations {

/// One row of the table from which a new list gets its handlers.
struct HandlerRow {
  AppComm::Type type;
  const char* name;                              ///< of the handler, as it stands in the log
  int (*handler)(std::shared_ptr<comm::CNode>);  ///< null: this operation is not there yet; running it ends the process
};

constexpr std::size_t kTaskTypes = 22;

extern const std::array<HandlerRow, kTaskTypes> kHandlerTable;

}  // namespace operations
