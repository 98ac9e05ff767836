#include "simulator/XmlReferences.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace simulator {
namespace {

struct Entity {
  std::string_view name;
  std::uint32_t character;
};
constexpr std::array entities{Entity{"amp", '&'}, Entity{"lt", '<'}, Entity{"gt", '>'}, Entity{"quot", '"'},
                              Entity{"apos", '\''}};

constexpr std::size_t longestReference = 32;  // with many leading zeros

std::optional<std::uint32_t> numbered(std::string_view digits) {
  const bool isHexadecimal = digits.starts_with('x');
  if (isHexadecimal) digits.remove_prefix(1);
  const char* const end = digits.data() + digits.size();
  std::uint32_t code = 0;
  const auto parsed = std::from_chars(digits.data(), end, code, isHexadecimal ? 16 : 10);
  const bool surrogate = code >= 0xd800 && code <= 0xdfff;
  // Zero would end the text.
  if (parsed.ec != std::errc() || parsed.ptr != end || code == 0 || surrogate || code > 0x10ffff) return std::nullopt;
  return code;
}

/// What stands between the '&' and the ';'.
std::optional<std::uint32_t> characterOf(std::string_view reference) {
  if (reference.starts_with('#')) return numbered(reference.substr(1));
  const auto entity = std::ranges::find(entities, reference, &Entity::name);
  return entity == entities.end() ? std::nullopt : std::optional(entity->character);
}

void append(std::string& text, std::uint32_t character) {
  constexpr std::array<std::uint32_t, 3> firstLonger{0x80, 0x800, 0x10000};
  constexpr std::array<std::uint32_t, 4> leads{0x00, 0xc0, 0xe0, 0xf0};
  const auto more = static_cast<std::size_t>(std::ranges::upper_bound(firstLonger, character) - firstLonger.begin());
  text += static_cast<char>(leads[more] | (character >> (6 * more)));
  for (std::size_t left = more; left-- > 0;) text += static_cast<char>(0x80 | ((character >> (6 * left)) & 0x3f));
}

}  // namespace

std::optional<std::string> withoutReferences(std::string_view text) {
  std::string replaced;
  for (auto begin = text.find('&'); begin != std::string_view::npos; begin = text.find('&')) {
    const auto length = text.substr(begin + 1, longestReference).find(';');
    if (length == std::string_view::npos) return std::nullopt;
    const auto character = characterOf(text.substr(begin + 1, length));
    if (!character) return std::nullopt;
    replaced += text.substr(0, begin);
    append(replaced, *character);
    text.remove_prefix(begin + length + 2);
  }
  return replaced += text;
}

}  // namespace simulator
