#pragma once

#include <array>
#include <memory>

#include "Node.h"
#include "comm/CNode.h"

namespace operations {

/// One row of the table from which a new list gets its handlers.
struct HandlerRow {
  AppComm::Type type;
  const char* name;  ///< of the handler
  int (*handler)(std::shared_ptr<comm::CNode>);
};

constexpr std::size_t kTaskTypes = 22;

extern const std::array<HandlerRow, kTaskTypes> kHandlerTable;

}  // namespace operations
