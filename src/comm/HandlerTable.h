#pragma once

#include <unordered_map>

#include "comm/CList.h"

namespace comm {

/// Registers the handler of each of the 22 task types. The room is reserved first, so that filling never rehashes. A test links
/// another definition.
void registerHandlers(std::unordered_map<int, Handler>& handlers);

}  // namespace comm
