#include "simulator/controls/EditText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace controls {
namespace {

bool isControl(wchar_t unit) {
  const bool ascii = unit < L' ' || unit == 0x7f;
  return ascii || unit == 0x85 || unit == 0x2028 || unit == 0x2029;  // line breaks, too
}

}  // namespace

void overwrite(wchar_t* units, std::size_t count) {
  volatile wchar_t* unit = units;
  for (std::size_t index = 0; index < count; ++index) unit[index] = 0;
}

bool isHighHalf(wchar_t unit) { return unit >= 0xd800 && unit <= 0xdbff; }
bool isLowHalf(wchar_t unit) { return unit >= 0xdc00 && unit <= 0xdfff; }

void EditText::set(std::wstring_view text) {
  overwrite(m_units.data(), m_units.size());
  m_units.assign(text.begin(), text.end());
  m_pendingHalf = 0;
  moveTo(m_units.size(), false);
}

void EditText::select(std::size_t anchor, std::size_t caret) {
  m_anchor = snapped(anchor);
  m_caret = snapped(caret);
}

void EditText::moveTo(std::size_t place, bool selecting) { select(selecting ? m_anchor : place, place); }

void EditText::moveLeft(bool selecting) {
  moveTo(hasSelection() && !selecting ? selectionBegin() : before(m_caret), selecting);
}

void EditText::moveRight(bool selecting) { moveTo(hasSelection() && !selecting ? selectionEnd() : after(m_caret), selecting); }

bool EditText::type(wchar_t unit) {
  const wchar_t pending = std::exchange(m_pendingHalf, isHighHalf(unit) ? unit : L'\0');
  if (isControl(unit) || isHighHalf(unit)) return false;
  if (!isLowHalf(unit)) return paste({&unit, 1});
  std::array both{pending, unit};
  const bool changed = pending != 0 && paste({both.data(), both.size()});
  overwrite(both.data(), both.size());
  return changed;
}

bool EditText::paste(std::wstring_view text) {
  const WipedText insertion = allowed(text);
  return !insertion.empty() && replaceSelection({insertion.data(), insertion.size()});
}

bool EditText::eraseLeft() { return hasSelection() ? eraseSelection() : erase(before(m_caret), m_caret); }

bool EditText::eraseRight() { return hasSelection() ? eraseSelection() : erase(m_caret, after(m_caret)); }

bool EditText::eraseSelection() { return erase(selectionBegin(), selectionEnd()); }

std::size_t EditText::snapped(std::size_t place) const {
  if (place >= m_units.size()) return m_units.size();
  return place > 0 && isLowHalf(m_units[place]) && isHighHalf(m_units[place - 1]) ? place - 1 : place;
}

std::size_t EditText::before(std::size_t place) const { return place == 0 ? 0 : snapped(place - 1); }

std::size_t EditText::after(std::size_t place) const {
  return snapped(place + 1) > place ? snapped(place + 1) : snapped(place + 2);
}

bool EditText::erase(std::size_t begin, std::size_t end) {
  if (begin == end) return false;
  const auto unit = [this](std::size_t place) { return m_units.begin() + static_cast<std::ptrdiff_t>(place); };
  const auto rest = std::move(unit(end), m_units.end(), unit(begin));
  overwrite(&*rest, end - begin);
  m_units.resize(m_units.size() - (end - begin));
  moveTo(begin, false);
  return true;
}

bool EditText::replaceSelection(std::wstring_view by) {
  erase(selectionBegin(), selectionEnd());
  m_units.insert(m_units.begin() + static_cast<std::ptrdiff_t>(m_caret), by.begin(), by.end());
  moveTo(m_caret + by.size(), false);
  return true;
}

WipedText EditText::allowed(std::wstring_view text) const {
  const std::size_t kept = m_units.size() - selection().size();
  const std::size_t room = kept < m_rules.limit ? m_rules.limit - kept : 0;
  WipedText result;
  result.reserve(std::min(room, text.size()));
  for (std::size_t index = 0; index < text.size() && result.size() < room; ++index) {
    if (text[index] == L'\n' && index > 0 && text[index - 1] == L'\r') continue;  // one line break, one blank
    const wchar_t unit = isControl(text[index]) ? L' ' : text[index];
    if (m_rules.takes == nullptr || m_rules.takes(unit)) result.push_back(unit);
  }
  // No half of a character where the room ends.
  if (result.size() == room && !result.empty() && isHighHalf(result.back())) result.pop_back();
  return result;
}

}  // namespace controls
