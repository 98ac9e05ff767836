#pragma once

#include <string_view>

namespace controls {

/// Whether the text is an IPv4 address: four numbers of 0 to 255 with dots between them and nothing else. A number has one to
/// three digits: zeros before it are taken as a person means them who types all numbers with three digits.
bool isIpv4(std::wstring_view text);

}  // namespace controls
