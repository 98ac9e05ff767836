#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <string>

namespace examples {

/// Whether a terminal shows this character and does nothing else: it is no control, not invisible and leaves the line's
/// direction alone.
bool isPrintable(wchar_t unit);

/// The text with a question mark for each character that is not printable. What comes from a printer goes through it before a
/// terminal sees it.
std::wstring printable(const std::wstring& text);

/// At most `width` characters (at least 1), the last of them a "~" when there were more.
std::wstring cut(const std::wstring& text, std::size_t width);

/// Both.
std::wstring shown(const std::wstring& text, std::size_t width);

/// As "12.3 s".
std::wstring secondsText(std::chrono::milliseconds time);

/// For an error line: what cannot be shown as a plain character becomes a question mark.
std::string plain(const std::wstring& text);

/// A record's text of fixed size, up to its first zero or to its end.
template <std::size_t size>
std::wstring textOf(const std::array<wchar_t, size>& text) {
  return {text.begin(), std::ranges::find(text, L'\0')};
}

}  // namespace examples
