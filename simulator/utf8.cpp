#include "simulator/Utf8.h"

#include <array>
#include <cstdint>

namespace simulator {
namespace {

struct Lead {
  std::uint8_t mask;         ///< the bits that tell the length
  std::uint8_t value;        ///< what they must be
  std::size_t continuation;  ///< bytes that follow
  char32_t smallest;         ///< what needs this length; anything below is an overlong form
};
constexpr std::array leads{Lead{0x80, 0x00, 0, 0}, Lead{0xe0, 0xc0, 1, 0x80}, Lead{0xf0, 0xe0, 2, 0x800},
                           Lead{0xf8, 0xf0, 3, 0x10000}};

/// Takes one character off the front of `utf8`.
std::optional<char32_t> takeCharacter(std::string_view& utf8) {
  const auto first = static_cast<std::uint8_t>(utf8.front());
  for (const Lead& lead : leads) {
    if ((first & lead.mask) != lead.value) continue;
    if (utf8.size() <= lead.continuation) return std::nullopt;
    char32_t character = first & static_cast<std::uint8_t>(~lead.mask);
    for (std::size_t i = 1; i <= lead.continuation; ++i) {
      const auto next = static_cast<std::uint8_t>(utf8[i]);
      if ((next & 0xc0) != 0x80) return std::nullopt;
      character = (character << 6) | (next & 0x3f);
    }
    const bool surrogate = character >= 0xd800 && character <= 0xdfff;
    if (character < lead.smallest || surrogate || character > 0x10ffff) return std::nullopt;
    utf8.remove_prefix(1 + lead.continuation);
    return character;
  }
  return std::nullopt;
}

void append(std::wstring& text, char32_t character) {
  if (sizeof(wchar_t) == 2 && character > 0xffff) {
    text += static_cast<wchar_t>(0xd800 + ((character - 0x10000) >> 10));
    text += static_cast<wchar_t>(0xdc00 + ((character - 0x10000) & 0x3ff));
  } else {
    text += static_cast<wchar_t>(character);
  }
}

}  // namespace

std::optional<std::wstring> wideFromUtf8(std::string_view utf8) {
  std::wstring text;
  text.reserve(utf8.size());
  while (!utf8.empty()) {
    const auto character = takeCharacter(utf8);
    if (!character) return std::nullopt;
    append(text, *character);
  }
  return text;
}

}  // namespace simulator
