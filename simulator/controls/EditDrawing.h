#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "AppWindow.h"
#include "simulator/controls/EditView.h"

/// How an edit looks.
namespace controls {

struct EditPicture {
  std::wstring_view text;
  bool asDots = false;  ///< one for each character, all alike
  std::size_t selectionBegin = 0;
  std::size_t selectionEnd = 0;
  int shift = 0;  ///< how far the text is moved to the left
  COLORREF color = 0;
  bool isWrong = false;     ///< framed red while the keyboard is elsewhere
  std::uint32_t flags = 0;  ///< bits of `Flag`
};

/// The part of an edit that shows text, and the caret's place in it; `place` in pixels from the line's beginning.
RECT textArea(const RECT& area);
RECT caretArea(const RECT& area, int place);

/// Where each unit of the text begins when it is drawn.
Edges edgesOf(std::wstring_view text, bool asDots);

void drawEdit(HDC dc, const RECT& area, const EditPicture& picture);

/// The frame and the ground of a control that holds a value: edits and boxes.
void drawField(HDC dc, const RECT& area, std::uint32_t flags, bool isWrong);

}  // namespace controls
