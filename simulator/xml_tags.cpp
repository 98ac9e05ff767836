#include "simulator/XmlTags.h"

#include <algorithm>

#include "simulator/StrictXml.h"

namespace simulator {
namespace {

/// The place behind `end`, which is looked for from `place` on; the end of the text when it is not there.
std::size_t behind(std::string_view text, std::string_view end, std::size_t place) {
  const auto found = text.find(end, place);
  return found == std::string_view::npos ? text.size() : found + end.size();
}

/// The place of the '>' of the begin tag at `place`; one in a value does not end it.
std::size_t endOfBeginTag(std::string_view text, std::size_t place) {
  while ((place = text.find_first_of("'\">", place)) < text.size() && text[place] != '>') {
    place = behind(text, text.substr(place, 1), place + 1);
  }
  return std::min(place, text.size());
}

constexpr std::string_view blanks = " \t\r\n\v\f";

/// The text between "</" and '>' is a name, and blanks behind it.
bool isPlain(std::string_view endTag) {
  const auto behindName = endTag.find_first_of(blanks);
  return behindName == std::string_view::npos || endTag.find_first_not_of(blanks, behindName) == std::string_view::npos;
}

[[noreturn]] void refuse(std::string_view text, std::size_t place, const std::string& file, const std::string& what) {
  failAt(file, 1 + static_cast<int>(std::ranges::count(text.substr(0, place), '\n')), what);
}

}  // namespace

void refuseForgivenTags(std::string_view text, const std::string& file) {
  std::size_t open = 0;  // elements
  for (auto place = text.find('<'); place < text.size(); place = text.find('<', place)) {
    const std::string_view rest = text.substr(place);
    if (rest.substr(0, 2).find_first_of(blanks) != std::string_view::npos) {
      refuse(text, place, file, "blank behind a '<'; right is none");
    }
    if (rest.starts_with("<!--")) {
      place = behind(text, "-->", place + 4);
    } else if (rest.starts_with("<?")) {
      place = behind(text, "?>", place);
    } else if (!rest.starts_with("</")) {
      place = endOfBeginTag(text, place);
      if (text[place - 1] != '/') ++open;
    } else {
      const std::string_view endTag = rest.substr(2, rest.find('>') - 2);
      if (!isPlain(endTag)) refuse(text, place, file, "more than a name in an end tag; right is </name>");
      if (open == 0) refuse(text, place, file, "end tag of no element; close every element once");
      --open;
      place += 2;
    }
  }
}

}  // namespace simulator
