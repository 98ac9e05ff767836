#pragma once

#include <string>

#include "common/Report.h"

namespace examples {

/// One line. Names are put into camel case. Characters that a terminal would act upon are escaped, and so is what is no
/// character: half of a pair becomes the replacement character, which every reader of JSON takes.
std::wstring toJson(const Value& value);

}  // namespace examples
