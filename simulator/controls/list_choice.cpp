#include "simulator/controls/ListChoice.h"

#include <algorithm>

namespace controls {
namespace {

using namespace std::chrono_literals;

constexpr auto kPause = 1s;

}  // namespace

std::int32_t entryAfter(std::int32_t current, std::int32_t steps, std::int32_t count) {
  if (count == 0) return kNoEntry;
  const std::int32_t from = current != kNoEntry ? current : steps > 0 ? -1 : count;
  return std::clamp(from + steps, 0, count - 1);
}

std::int32_t firstShown(std::int32_t first, std::int32_t entry, std::int32_t shown, std::int32_t count) {
  const std::int32_t last = std::max(0, count - shown);
  if (entry == kNoEntry) return std::clamp(first, 0, last);
  return std::clamp(std::clamp(first, entry - shown + 1, entry), 0, last);
}

bool LetterSearch::isUnderWay(std::chrono::milliseconds now) const { return !m_letters.empty() && now - m_last < kPause; }

std::int32_t LetterSearch::type(wchar_t letter, std::chrono::milliseconds now, const std::vector<std::wstring>& entries,
                                std::int32_t current) {
  if (!isUnderWay(now)) m_letters.clear();
  m_last = now;
  m_letters.push_back(m_lower(letter));
  const bool next = isOneLetterRepeated();
  const std::wstring wanted = next ? m_letters.substr(0, 1) : m_letters;
  const auto count = static_cast<std::int32_t>(entries.size());
  // A longer beginning may still be that of the current entry; a single letter leads on.
  const std::int32_t start = std::max(current, kNoEntry) + (next || current == kNoEntry ? 1 : 0);
  for (std::int32_t step = 0; step < count; ++step) {
    const std::int32_t entry = (start + step) % count;
    if (begins(entries[static_cast<std::size_t>(entry)], wanted)) return entry;
  }
  return current;
}

bool LetterSearch::isOneLetterRepeated() const { return m_letters.find_first_not_of(m_letters.front()) == m_letters.npos; }

bool LetterSearch::begins(const std::wstring& entry, const std::wstring& letters) const {
  return entry.size() >= letters.size() && std::equal(letters.begin(), letters.end(), entry.begin(),
                                                      [this](wchar_t wanted, wchar_t unit) { return m_lower(unit) == wanted; });
}

}  // namespace controls
