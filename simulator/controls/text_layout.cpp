#include "simulator/controls/TextLayout.h"

#include <algorithm>

namespace controls {
namespace {

constexpr const wchar_t* kSeparators = L"\\/";
constexpr const wchar_t* kBlanks = L" \t";

// Not between the two units of a character outside the first 65,536.
std::size_t wholeCharacters(const std::wstring& text, std::size_t count) {
  const bool splits = count > 0 && count < text.size() && text[count] >= 0xdc00 && text[count] <= 0xdfff;
  return splits ? count - 1 : count;
}

// How many units of the text fit from its beginning, `more` included. A longer piece never fits where a shorter one does not.
std::size_t fittingUnits(const std::wstring& text, const std::wstring& more, const Fits& fits) {
  std::size_t fitting = 0;
  std::size_t beyond = text.size() + 1;
  while (beyond - fitting > 1) {
    const std::size_t middle = fitting + (beyond - fitting) / 2;
    (fits(text.substr(0, middle) + more) ? fitting : beyond) = middle;
  }
  return wholeCharacters(text, fitting);
}

std::wstring withoutBlanksAtEnd(const std::wstring& text) { return text.substr(0, text.find_last_not_of(kBlanks) + 1); }

// Where the line that begins `rest` ends, and where the next one begins.
struct Break {
  std::size_t end;
  std::size_t next;
};

Break breakAtBlank(const std::wstring& rest, std::size_t blank) {
  const std::size_t next = std::min(rest.find_first_not_of(kBlanks, blank), rest.size());
  return {blank, next < rest.size() && rest[next] == L'\n' ? next + 1 : next};
}

Break breakOf(const std::wstring& rest, const Fits& fits) {
  const std::size_t said = std::min(rest.find(L'\n'), rest.size());
  const std::size_t fitting = fittingUnits(rest.substr(0, said), {}, fits);
  if (fitting == said) return {said, std::min(said + 1, rest.size())};
  const std::size_t blank = rest.find_last_of(kBlanks, fitting);
  if (blank != std::wstring::npos && blank > 0) return breakAtBlank(rest, blank);
  const std::size_t atLeastOne = std::max<std::size_t>(fitting, wholeCharacters(rest, 1) == 1 ? 1 : 2);
  return {atLeastOne, atLeastOne};
}

std::wstring withoutReturns(std::wstring text) {
  std::erase(text, L'\r');
  return text;
}

}  // namespace

std::wstring shortened(const std::wstring& text, const Fits& fits) {
  if (fits(text)) return text;
  return withoutBlanksAtEnd(text.substr(0, fittingUnits(text, kDots, fits))) + kDots;
}

std::vector<std::wstring> wrapped(const std::wstring& text, int count, const Fits& fits) {
  std::vector<std::wstring> lines;
  std::wstring rest = withoutReturns(text);
  while (!rest.empty()) {
    const auto [end, next] = breakOf(rest, fits);
    const std::wstring line = withoutBlanksAtEnd(rest.substr(0, end));
    rest.erase(0, next);
    if (std::ssize(lines) + 1 == count && !rest.empty()) {
      lines.push_back(withoutBlanksAtEnd(line.substr(0, fittingUnits(line, kDots, fits))) + kDots);
      break;
    }
    lines.push_back(line);
  }
  return lines;
}

std::wstring shortenedPath(const std::wstring& path, const Fits& fits) {
  if (fits(path)) return path;
  const std::size_t last = path.find_last_of(kSeparators);
  if (last == std::wstring::npos) return shortened(path, fits);
  const std::wstring end = kDots + path.substr(last);
  if (!fits(end)) return shortened(path.substr(last + 1), fits);
  const std::wstring folders = path.substr(0, last);
  return folders.substr(0, fittingUnits(folders, end, fits)) + end;
}

}  // namespace controls
