#pragma once

#include <cstddef>
#include <string_view>

#include "simulator/controls/WipedText.h"

namespace controls {

/// Whether the unit is the first half, or the second one, of a character of two UTF-16 units.
bool isHighHalf(wchar_t unit);
bool isLowHalf(wchar_t unit);

/// What a person may make of a text.
struct EditRules {
  bool (*takes)(wchar_t unit) = nullptr;  ///< null: every unit
  std::size_t limit = 32767;              ///< in units, as for the system's edits
};

/// A line of text that is being edited: its units, a caret between two of them, and what is selected.
///
/// Positions count UTF-16 units from 0. The caret never stands inside a character of two units. All memory that held a part of
/// the text is overwritten when it is given up.
class EditText {
 public:
  explicit EditText(const EditRules& rules) : m_rules(rules) {}

  std::wstring_view view() const { return {m_units.data(), m_units.size()}; }
  std::size_t caret() const { return m_caret; }
  std::size_t selectionBegin() const { return m_caret < m_anchor ? m_caret : m_anchor; }
  std::size_t selectionEnd() const { return m_caret < m_anchor ? m_anchor : m_caret; }
  bool hasSelection() const { return m_caret != m_anchor; }
  std::wstring_view selection() const { return view().substr(selectionBegin(), selectionEnd() - selectionBegin()); }

  /// A program's text: the rules do not hold for it. The caret goes to its end.
  void set(std::wstring_view text);

  /// Selects from `anchor` to the caret's new place.
  void select(std::size_t anchor, std::size_t caret);
  /// Moves the caret; what is selected grows or shrinks with it, or is none any more.
  void moveTo(std::size_t place, bool selecting);
  /// By one character. Out of a selection: to its end on that side.
  void moveLeft(bool selecting);
  void moveRight(bool selecting);

  // What a person does. True when the text changed.
  /// One unit from the keyboard; the two halves of a character come one after the other.
  bool type(wchar_t unit);
  /// What the rules leave of `text`, as far as there is room. A line break, as every other control character, becomes a blank.
  bool paste(std::wstring_view text);
  /// What is selected, or the character beside the caret.
  bool eraseLeft();
  bool eraseRight();
  bool eraseSelection();

 private:
  std::size_t snapped(std::size_t place) const;
  std::size_t before(std::size_t place) const;
  std::size_t after(std::size_t place) const;
  bool erase(std::size_t begin, std::size_t end);
  bool replaceSelection(std::wstring_view by);
  WipedText allowed(std::wstring_view text) const;

  const EditRules m_rules;
  WipedText m_units;
  std::size_t m_anchor = 0;
  std::size_t m_caret = 0;
  wchar_t m_pendingHalf = 0;  // typed, and waits for its other half
};

}  // namespace controls
