#pragma once

#include <optional>
#include <string>

#include "AppWindow.h"

/// How the labels are drawn.
namespace controls {

/// What an application told a label.
struct LabelFace {
  std::wstring text;
  HFONT font = nullptr;  ///< null: the one that all controls have
  std::optional<COLORREF> background;
  std::optional<COLORREF> border;
};

/// Draws over the ground of the parent, which the area has; pale where the label is not enabled.
using DrawLabel = void (*)(HDC dc, const RECT& area, const LabelFace& face, bool pale);

void drawTextLabel(HDC dc, const RECT& area, const LabelFace& face, bool pale);
void drawNumberLabel(HDC dc, const RECT& area, const LabelFace& face, bool pale);
void drawPathLabel(HDC dc, const RECT& area, const LabelFace& face, bool pale);

}  // namespace controls
