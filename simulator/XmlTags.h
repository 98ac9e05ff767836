#pragma once

#include <string>
#include <string_view>

namespace simulator {

/// Takes a text that the parser has accepted, and throws `ScenarioError` at what the parser forgives: an end tag with
/// attributes; a blank behind a '<'; an end tag behind the root element, where the parser stops, so that all the rest would be
/// left out without a word.
void refuseForgivenTags(std::string_view text, const std::string& file);

}  // namespace simulator
