#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

/// Choosing from a list with the keyboard, without knowing where the list is drawn.
namespace controls {

constexpr std::int32_t kNoEntry = -1;

/// `current` moved by `steps`, but not beyond the ends; with none chosen, from before the first entry or from behind the last
/// one. `kNoEntry` when there are no entries.
std::int32_t entryAfter(std::int32_t current, std::int32_t steps, std::int32_t count);

/// The first entry to be seen of a list that shows `shown` of `count`, so that `entry` is one of them: `first` when that will
/// do.
std::int32_t firstShown(std::int32_t first, std::int32_t entry, std::int32_t shown, std::int32_t count);

/// Finds entries by the letters that they begin with. Letters typed in a row make one beginning; the same letter again and
/// again goes from one entry that begins with it to the next.
class LetterSearch {
 public:
  /// `lower` gives the small letter of a letter.
  explicit LetterSearch(wchar_t (*lower)(wchar_t)) : m_lower(lower) {}

  /// Whether a letter at `now` would continue what was typed. A pause of a second ends it.
  bool isUnderWay(std::chrono::milliseconds now) const;
  /// The entry that the letter leads to from `current`; `current` when none begins so.
  std::int32_t type(wchar_t letter, std::chrono::milliseconds now, const std::vector<std::wstring>& entries,
                    std::int32_t current);

 private:
  bool isOneLetterRepeated() const;
  bool begins(const std::wstring& entry, const std::wstring& letters) const;

  wchar_t (*const m_lower)(wchar_t);
  std::wstring m_letters;  // in small letters
  std::chrono::milliseconds m_last{};
};

}  // namespace controls
