#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Controls.h"
#include "simulator/controls/Drawing.h"
#include "simulator/controls/ListChoice.h"

namespace controls {

/// What a box offers, and how it looks in its list.
struct ListContent {
  std::vector<std::wstring> entries;
  std::int32_t choice = kNoEntry;
  COLORREF color = theme::kText;
  int itemHeight = 30;
  qzstd::Rect scrollRect;  ///< in the list; all zero: at its right edge

  std::int32_t count() const { return static_cast<std::int32_t>(entries.size()); }
};

/// The list of a box while it is dropped down: a window of its own above all of its thread's, which has the mouse and never the
/// keyboard.
///
/// It tells the box by `WM_COMMAND` with its own window: `LBN_SELCHANGE` when an entry was clicked, `LBN_SELCANCEL` when it is
/// to go because the mouse was pressed elsewhere or taken away. The box destroys it then.
class DropList final : public BaseWnd::BaseDlgWnd {
 public:
  /// The content outlives the list, and is the box's to change while no list is shown; the choice always.
  explicit DropList(const ListContent& content) : m_content(content) {}
  ~DropList() override;

  /// At `place` on the screen, with the choice in sight.
  bool drop(HWND box, const RECT& place);
  bool isDropped() const { return GetWnd() != nullptr; }
  /// After the choice changed.
  void showChoice();
  /// The entry that was clicked.
  std::int32_t clicked() const { return m_hovered; }

  bool Create(HWND) override { return false; }  // it is dropped instead
  void Destroy() override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

 private:
  int height() const;
  std::int32_t shown() const;
  std::int32_t entryAt(POINT place) const;
  bool isOnScroll(POINT place) const;
  void makeScroll();
  void showFrom(std::int32_t first);
  void hover(POINT place);
  void moveMouse(POINT place, __int64 lParam);
  void press(unsigned msg, unsigned __int64 wParam, __int64 lParam);
  void tellBox(unsigned what) const;
  void toScroll(unsigned msg, unsigned __int64 wParam, __int64 lParam);
  void draw(HDC dc, const RECT& area) const;
  void drawEntry(HDC dc, const RECT& place, std::int32_t entry) const;

  const ListContent& m_content;
  HWND m_box = nullptr;
  std::int32_t m_first = 0;  // the uppermost entry that is seen
  std::int32_t m_hovered = kNoEntry;
  qzstd::Rect m_scrollRect;
  AppWnd::Scroll m_scroll{m_scrollRect};
};

}  // namespace controls
