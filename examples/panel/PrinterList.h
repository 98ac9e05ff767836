#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "AppWindow.h"
#include "Controls.h"
#include "panel/Card.h"

namespace panel {

/// The cards of all printers below each other, with a scroll bar where they do not fit.
class PrinterList : public AppWnd::CWnd {
 public:
  PrinterList(const qzstd::Rect& rect, std::function<void(std::size_t index)> chosen);
  ~PrinterList() override;

  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

  /// After `Create`.
  void add(Card::Nameplate printer);
  void show(std::size_t index, const Sight& sight);
  void choose(std::size_t index);
  /// Gives the first printer the keyboard.
  void focus() const;
  /// `occupation` answers what occupies the printer at the index.
  void grow(Card::Clock::time_point now, const std::function<std::wstring(std::size_t index)>& occupation);

 private:
  class Strip;
  struct Entry {
    qzstd::Rect rect;  // in the strip
    std::unique_ptr<Card> card;
  };

  void arrangeFrom(std::size_t index);
  void fit();
  void scrollTo(int position);
  void reveal(std::size_t index);
  int contentHeight() const;

  const qzstd::Rect m_scrollRect;
  const int m_width;
  const int m_height;
  const std::function<void(std::size_t)> m_chosen;
  qzstd::Rect m_stripRect;
  const std::unique_ptr<Strip> m_strip;
  std::vector<std::unique_ptr<Entry>> m_entries;
  AppWnd::Scroll m_scroll;
  int m_position = 0;  // pixels of the content above the upper edge
};

}  // namespace panel
