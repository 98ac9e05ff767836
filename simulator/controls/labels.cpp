#include "Controls.h"
#include "simulator/controls/ControlWindow.h"
#include "simulator/controls/LabelLook.h"

namespace AppWnd {

struct Label::State {
  controls::LabelFace face;
  controls::DrawLabel draw = controls::drawTextLabel;
};

Label::Label(const qzstd::Rect& rect, const qzstd::Text* text) : CtrlWnd(rect), m_state(std::make_unique<State>()) {
  if (text != nullptr) m_state->face.text = text->text;
}

Label::~Label() = default;

bool Label::Create(HWND parent) {
  if (IsWindow()) return true;
  if (!controls::newWindow(*this, parent, rect(), m_id, m_state->face.text, false)) return false;
  ::EnableWindow(GetWnd(), (m_flags & controls::kDisabled) == 0);
  return true;
}

__int64 Label::RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  auto& face = m_state->face;
  switch (msg) {
    case WM_PAINT:
    case WM_PRINTCLIENT:
      controls::paint(GetWnd(), msg, wParam,
                      [&](HDC dc, const RECT& area) { m_state->draw(dc, area, face, (m_flags & controls::kDisabled) != 0); });
      return 0;
    case WM_GETDLGCODE:
      return DLGC_STATIC;
    case WM_NCHITTEST:
      return HTTRANSPARENT;  // the mouse is the parent's
    case WM_ENABLE:
      controls::follow(GetWnd(), m_flags, msg, wParam, lParam);
      break;
    case WM_SETTEXT:
      face.text = lParam == 0 ? L"" : reinterpret_cast<const wchar_t*>(lParam);
      controls::redraw(GetWnd());
      break;
    case WM_SETFONT:
      face.font = reinterpret_cast<HFONT>(wParam);
      controls::redraw(GetWnd());
      return 0;
    case WM_GETFONT:
      return reinterpret_cast<__int64>(face.font);
    default:
      break;
  }
  return ::DefWindowProcW(GetWnd(), msg, wParam, lParam);
}

LabelNum::LabelNum(const qzstd::Rect& rect, const qzstd::Text* text) : Label(rect, text) {
  state().draw = controls::drawNumberLabel;
}

LabelNum::~LabelNum() = default;

void LabelNum::SetBgColor(COLORREF color) {
  state().face.background = color;
  controls::redraw(GetWnd());
}

void LabelNum::SetEnable(bool enable) {
  if (IsWindow()) {
    ::EnableWindow(GetWnd(), enable);
  } else {
    m_flags = enable ? 0 : std::uint32_t{controls::kDisabled};
  }
}

void LabelNum::SetNum(std::int32_t number) {
  state().face.text = std::to_wstring(number);
  if (IsWindow()) ::SetWindowTextW(GetWnd(), state().face.text.c_str());
}

LabelPath::LabelPath(const qzstd::Rect& rect, const qzstd::Text* text) : Label(rect, text) {
  state().draw = controls::drawPathLabel;
}

LabelPath::~LabelPath() = default;

std::wstring LabelPath::GetPath() const { return state().face.text; }

void LabelPath::SetPath(const std::wstring& path) {
  state().face.text = path;
  if (IsWindow()) ::SetWindowTextW(GetWnd(), path.c_str());
}

void LabelPath::SetBgColor(COLORREF color) {
  state().face.background = color;
  controls::redraw(GetWnd());
}

void LabelPath::SetBrdColor(COLORREF color) {
  state().face.border = color;
  controls::redraw(GetWnd());
}

}  // namespace AppWnd
