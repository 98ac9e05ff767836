#include "panel/Page.h"

#include "Controls.h"
#include "common/Values.h"
#include "panel/Ids.h"
#include "panel/Paint.h"

namespace panel {

bool Page::Create(HWND parent) {
  if (!CreateWnd(::GetModuleHandleW(nullptr), parent, IDD_CHILD)) return false;
  Move();
  build();
  return true;
}

__int64 Page::RunProc(unsigned msg, unsigned __int64 wParam, __int64 /*lParam*/) {
  switch (msg) {
    case WM_COMMAND: {
      const auto command = m_commands.find(LOWORD(wParam));
      if (command != m_commands.end() && HIWORD(wParam) == BN_CLICKED) command->second();
      return TRUE;
    }
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSTATIC:
      return reinterpret_cast<__int64>(groundBrush());
    default:
      return FALSE;
  }
}

void Page::putLabel(const qzstd::Rect& rect, const std::wstring& text) {
  m_rects.push_back(rect);
  const qzstd::Text caption{text};
  take(-1, std::make_unique<AppWnd::Label>(m_rects.back(), &caption));
}

void Page::putHeading(int top, const std::wstring& text) {
  m_rects.push_back({0, top, 560, 26});
  const qzstd::Text caption{text};
  auto& label = take(-1, std::make_unique<AppWnd::Label>(m_rects.back(), &caption));
  ::SendMessageW(label.GetWnd(), WM_SETFONT, reinterpret_cast<WPARAM>(fontOf(Font::Bold)), TRUE);
}

void Page::run(const std::wstring& title, const Make& make, Shown shown) {
  try {
    const auto uid = m_host.chosen();
    m_host.start(title, make(), [this, uid, shown](const examples::Report& report, bool /*isOver*/) {
      if (shown && m_host.chosen() == uid) shown(report);
    });
  } catch (const examples::OptionsError& mistake) {
    const std::string text = mistake.what();  // plain characters
    m_host.say(Tone::Bad, title + L": " + std::wstring(text.begin(), text.end()));
  }
}

}  // namespace panel
