#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace simulator {

/// `text` with each reference ("&amp;", "&#65;", "&#x41;") replaced by its character in UTF-8; nothing when an '&' begins no
/// reference to a character that a text can hold.
std::optional<std::string> withoutReferences(std::string_view text);

}  // namespace simulator
