#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "AppWindow.h"
#include "panel/Sight.h"

namespace panel {

/// One printer in the list: its name, how it is, its jobs and supplies. A click, the space bar or Enter chooses it.
class Card : public AppWnd::CWnd {
 public:
  using Clock = std::chrono::steady_clock;

  /// What is fixed about a printer.
  struct Nameplate {
    std::wstring name;
    std::wstring connection;
    std::chrono::milliseconds interval;  ///< between two readings of its state
  };

  /// `focused` runs when the card gets the keyboard.
  Card(const qzstd::Rect& rect, int id, Nameplate printer, std::function<void()> chosen, std::function<void()> focused);

  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

  void show(Sight sight);
  void setChosen(bool chosen);
  /// The window's text follows the state, also while nothing comes from the printer: that is its silence, or the operation
  /// that occupies it (empty: none).
  void grow(Clock::time_point now, const std::wstring& occupation);

  static int heightFor(std::size_t supplies);

 private:
  void draw(HDC dc, const RECT& area) const;
  void drawSupplies(HDC dc, const RECT& area) const;
  void setStatus(std::wstring status, COLORREF color);

  const int m_id;
  const Nameplate m_printer;
  const std::function<void()> m_chosen;
  const std::function<void()> m_focused;
  std::optional<Sight> m_sight;
  std::wstring m_status;
  COLORREF m_statusColor = 0;
  Clock::time_point m_last = Clock::now();  // the last notice
  bool m_isChosen = false;
  bool m_hasKeyboard = false;
};

}  // namespace panel
