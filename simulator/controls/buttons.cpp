#include "Controls.h"
#include "simulator/controls/ButtonLook.h"
#include "simulator/controls/ControlWindow.h"

namespace AppWnd {

using controls::Ground;
using controls::Icon;
using controls::Mark;
using controls::OnClick;

struct BtnBase::Look : controls::ButtonLook {};

struct BtnBase::State : controls::ButtonFace {
  std::optional<std::int32_t> top;
};

namespace {

// The key that presses a button is its own; the others, such as Tab, are the dialog's.
__int64 dialogCode(__int64 lParam) {
  const auto* message = reinterpret_cast<const MSG*>(lParam);
  const bool enter = message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
  return DLGC_BUTTON | (enter ? DLGC_WANTMESSAGE : 0);
}

bool onAfterClick(const controls::ButtonFace& face) {
  if (face.look.onClick == OnClick::kTurnOver) return !face.on;
  return face.on || face.look.onClick == OnClick::kSet;
}

}  // namespace

BtnBase::BtnBase(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text) : BtnBase(id, rect, text, Look{}) {}

BtnBase::BtnBase(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text, const Look& look)
    : CtrlWnd(rect), m_state(std::make_unique<State>()) {
  m_id = id;
  m_state->look = look;
  if (text != nullptr) m_state->text = text->text;
}

BtnBase::~BtnBase() = default;

bool BtnBase::Create(HWND parent) {
  if (IsWindow()) return true;
  m_flags &= controls::kDisabled;  // of what happened to a former window, no more
  qzstd::Rect place = rect();
  place.y = m_state->top.value_or(place.y);
  if (!controls::newWindow(*this, parent, place, m_id, m_state->text, true)) return false;
  ::EnableWindow(GetWnd(), GetEnable());
  return true;
}

__int64 BtnBase::RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  if (controls::follow(GetWnd(), m_flags, msg, wParam, lParam)) {
    SetClick(onAfterClick(*m_state));
    controls::tellParent(GetWnd(), BN_CLICKED);
    return 0;  // the parent may have destroyed this object
  }
  switch (msg) {
    case WM_PAINT:
    case WM_PRINTCLIENT:
      controls::paint(GetWnd(), msg, wParam,
                      [this](HDC dc, const RECT& area) { controls::drawButton(dc, area, *m_state, m_flags); });
      return 0;
    case WM_GETDLGCODE:
      return dialogCode(lParam);
    case WM_LBUTTONDOWN:
      ::SetFocus(GetWnd());
      return 0;
    case WM_SETTEXT:
      m_state->text = lParam == 0 ? L"" : reinterpret_cast<const wchar_t*>(lParam);
      controls::redraw(GetWnd());
      break;
    default:
      break;
  }
  return ::DefWindowProcW(GetWnd(), msg, wParam, lParam);
}

bool BtnBase::GetClick() const { return m_state->on; }

void BtnBase::SetClick(bool on) {
  m_state->on = on;
  controls::redraw(GetWnd());
}

bool BtnBase::GetEnable() const { return (m_flags & controls::kDisabled) == 0; }

void BtnBase::SetEnable(bool enable) {
  if (IsWindow()) {
    ::EnableWindow(GetWnd(), enable);
  } else {
    m_flags = enable ? 0 : std::uint32_t{controls::kDisabled};
  }
}

void BtnBase::SetBgColor(COLORREF color) {
  m_state->background = color;
  controls::redraw(GetWnd());
}

void BtnBase::SetText(const qzstd::Text& text) {
  m_state->text = text.text;
  if (IsWindow()) ::SetWindowTextW(GetWnd(), text.text.c_str());
}

void BtnBase::SetTop(std::int32_t top) {
  m_state->top = top;
  if (!IsWindow()) return;
  RECT place{};
  ::GetWindowRect(GetWnd(), &place);
  ::MapWindowPoints(nullptr, GetParentWnd(), reinterpret_cast<POINT*>(&place), 2);
  ::SetWindowPos(GetWnd(), nullptr, place.left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// The buttons differ by what stands in this table.
#define APPCOMM_BUTTON(Name, ...)                                               \
  Name::Name(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text) \
      : BtnBase(id, rect, text, Look{controls::ButtonLook{__VA_ARGS__}}) {}     \
  Name::~Name() = default

APPCOMM_BUTTON(BtnAddPrinter, .ground = Ground::kFrame, .icon = Icon::kPlus, .accented = true);
APPCOMM_BUTTON(BtnBorder, .ground = Ground::kFrame);
APPCOMM_BUTTON(BtnCfg, .ground = Ground::kQuiet, .icon = Icon::kGear);
APPCOMM_BUTTON(BtnCheck, .ground = Ground::kNone, .mark = Mark::kBox, .centered = false, .onClick = OnClick::kTurnOver);
APPCOMM_BUTTON(BtnCls, .ground = Ground::kQuiet, .icon = Icon::kCross, .warns = true);
APPCOMM_BUTTON(BtnExpand, .ground = Ground::kQuiet, .icon = Icon::kChevronRight, .iconWhenOn = Icon::kChevronDown,
               .centered = false, .bold = true);
APPCOMM_BUTTON(BtnGradual, .ground = Ground::kGradual);
APPCOMM_BUTTON(BtnLabel, .ground = Ground::kNone, .centered = false, .accented = true, .link = true);
APPCOMM_BUTTON(BtnMin, .ground = Ground::kQuiet, .icon = Icon::kDash);
APPCOMM_BUTTON(BtnNew, .ground = Ground::kFilled);
APPCOMM_BUTTON(BtnRadio, .ground = Ground::kNone, .mark = Mark::kRadio, .centered = false, .onClick = OnClick::kSet);
APPCOMM_BUTTON(BtnRadioRound, .round = true, .onClick = OnClick::kSet);
APPCOMM_BUTTON(BtnRefresh, .ground = Ground::kQuiet, .icon = Icon::kRefresh, .accented = true);
APPCOMM_BUTTON(BtnRefreshState, .ground = Ground::kQuiet, .icon = Icon::kRefresh, .accented = true);
APPCOMM_BUTTON(BtnReturn, .ground = Ground::kQuiet, .icon = Icon::kArrowLeft);
APPCOMM_BUTTON(BtnRoundArrow, .ground = Ground::kQuiet, .icon = Icon::kArrowRightRound, .accented = true, .round = true);
APPCOMM_BUTTON(BtnSet, .ground = Ground::kQuiet, .iconAtEnd = Icon::kChevronRight, .centered = false, .entry = true);
APPCOMM_BUTTON(BtnSetWifi, .ground = Ground::kQuiet, .icon = Icon::kWaves, .accented = true);

#undef APPCOMM_BUTTON

void BtnExpand::SetText(const qzstd::Text& text) { BtnBase::SetText(text); }

void BtnLabel::SetColor(COLORREF color) {
  state().ink = color;
  controls::redraw(GetWnd());
}

void BtnLabel::Settx(const qzstd::Text& text) { SetText(text); }

void BtnSet::SetColor(COLORREF color) {
  state().ink = color;
  controls::redraw(GetWnd());
}

bool BtnRefreshState::GetGray() const { return state().gray; }

void BtnRefreshState::SetGray(bool gray) {
  state().gray = gray;
  controls::redraw(GetWnd());
}

bool BtnSetWifi::GetGray() const { return state().gray; }

void BtnSetWifi::SetGray(bool gray) {
  state().gray = gray;
  controls::redraw(GetWnd());
}

}  // namespace AppWnd
