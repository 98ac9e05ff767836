#pragma once

#include <functional>
#include <string>
#include <vector>

/// How a text is made to fit, whatever it is drawn with: `fits` says of a piece of it whether it does in one line.
namespace controls {

using Fits = std::function<bool(const std::wstring& piece)>;

/// What a text ends with, or has in its middle, where something is left out.
inline constexpr const wchar_t* kDots = L"...";

/// As it is, or its beginning with dots.
std::wstring shortened(const std::wstring& text, const Fits& fits);

/// In at most `count` lines, at least 1: broken at blanks and where the text says so, within a word only where that is longer
/// than a line; the last line with dots when there is more.
std::vector<std::wstring> wrapped(const std::wstring& text, int count, const Fits& fits);

/// As it is, or its beginning, dots and the file's name. Of a name that is too long by itself, the beginning.
std::wstring shortenedPath(const std::wstring& path, const Fits& fits);

}  // namespace controls
