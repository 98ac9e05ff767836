#include "panel/Card.h"

#include <algorithm>
#include <array>
#include <utility>

#include "panel/Ids.h"
#include "panel/Paint.h"

namespace panel {
namespace {

constexpr int kMargin = 14;
constexpr int kHead = 58;  // name and status
constexpr int kSupply = 20;
constexpr std::size_t kMostSupplies = 4;
constexpr int kLow = 10;  // percent: a supply to think of
constexpr auto kSilence = std::chrono::seconds(5);

struct Color {
  const wchar_t* name;
  COLORREF color;
};
constexpr std::array<Color, 4> kColors{
    {{L"black", RGB(48, 52, 60)}, {L"cyan", RGB(0, 150, 190)}, {L"magenta", RGB(196, 40, 130)}, {L"yellow", RGB(214, 168, 0)}}};

COLORREF colorOf(const std::wstring& name) {
  const auto* found = std::ranges::find(kColors, name, &Color::name);
  return found == kColors.end() ? kAccent : found->color;
}

COLORREF statusColor(const std::optional<Sight>& sight) {
  if (!sight) return kPaleInk;
  if (sight->result != 0) return kBad;
  return sight->jobs == 0 && (sight->deviceStatus == 0 || sight->deviceStatus == 11) ? kGood : kWarning;
}

}  // namespace

Card::Card(const qzstd::Rect& rect, int id, Nameplate printer, std::function<void()> chosen, std::function<void()> focused)
    : CWnd(rect), m_id(id), m_printer(std::move(printer)), m_chosen(std::move(chosen)), m_focused(std::move(focused)) {}

bool Card::Create(HWND parent) {
  if (!CreateWnd(::GetModuleHandleW(nullptr), parent, IDD_CHILD)) return false;
  ::SetWindowLongPtrW(GetWnd(), GWLP_ID, m_id);
  ::SetWindowLongPtrW(GetWnd(), GWL_STYLE, ::GetWindowLongPtrW(GetWnd(), GWL_STYLE) | WS_TABSTOP);
  ::SetWindowLongPtrW(GetWnd(), GWL_EXSTYLE, ::GetWindowLongPtrW(GetWnd(), GWL_EXSTYLE) & ~WS_EX_CONTROLPARENT);
  setStatus(statusText(m_sight), statusColor(m_sight));
  Move();
  Show();
  return true;
}

__int64 Card::RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  switch (msg) {
    case WM_GETDLGCODE:  // Enter would go to the dialog's own button
      ::SetWindowLongPtrW(GetWnd(), DWLP_MSGRESULT, lParam != 0 && wParam == VK_RETURN ? DLGC_WANTMESSAGE : DLGC_BUTTON);
      return TRUE;
    case WM_PAINT:
      paintWindow(GetWnd(), [this](HDC dc, const RECT& area) { draw(dc, area); });
      return TRUE;
    case WM_ERASEBKGND:
      ::SetWindowLongPtrW(GetWnd(), DWLP_MSGRESULT, TRUE);
      return TRUE;
    case WM_LBUTTONDOWN:
      ::SetFocus(GetWnd());
      m_chosen();
      return TRUE;
    case WM_KEYDOWN:
      if (wParam == VK_SPACE || wParam == VK_RETURN) m_chosen();
      return TRUE;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      m_hasKeyboard = msg == WM_SETFOCUS;
      if (m_hasKeyboard) m_focused();
      ReDraw(false);
      return TRUE;
    default:
      return FALSE;
  }
}

void Card::show(Sight sight) {
  m_sight = std::move(sight);
  m_last = Clock::now();
  setStatus(statusText(m_sight), statusColor(m_sight));
  ReDraw(false);
}

void Card::setChosen(bool chosen) {
  m_isChosen = chosen;
  ReDraw(false);
}

// One operation runs at a time: while another does, the state is not read.
void Card::grow(Clock::time_point now, const std::wstring& occupation) {
  const auto silence = now - m_last;
  if (silence < m_printer.interval + kSilence) return;
  const auto seconds = std::to_wstring(std::chrono::duration_cast<std::chrono::seconds>(silence).count());
  if (occupation.empty()) {
    setStatus(L"no answer for " + seconds + L" s", kBad);
  } else {
    setStatus(L"no news for " + seconds + L" s: " + occupation, kWarning);
  }
}

void Card::setStatus(std::wstring status, COLORREF color) {
  if (status == m_status && color == m_statusColor) return;
  m_status = std::move(status);
  m_statusColor = color;
  ::SetWindowTextW(GetWnd(), (m_printer.name + L": " + m_status).c_str());
  ReDraw(false);
}

int Card::heightFor(std::size_t supplies) {
  return kHead + kSupply * static_cast<int>(std::clamp<std::size_t>(supplies, 1, kMostSupplies)) + 8;
}

void Card::draw(HDC dc, const RECT& area) const {
  if (m_isChosen) drawRect(dc, {0, 0, 4, area.bottom}, kAccent);
  drawRect(dc, {0, area.bottom - 1, area.right, area.bottom}, kLine);
  const bool hasJobs = m_sight && m_sight->jobs > 0;
  drawText(dc, {kMargin, 8, area.right - 90, 30}, m_printer.name, kInk, Font::Bold);
  drawText(dc, {area.right - 90, 8, area.right - kMargin, 30}, m_printer.connection, kPaleInk, Font::Small, DT_RIGHT);
  drawText(dc, {kMargin, 30, area.right - (hasJobs ? 90 : kMargin), 52}, m_status, m_statusColor);
  if (hasJobs) {
    const auto jobs = std::to_wstring(m_sight->jobs) + (m_sight->jobs == 1 ? L" job" : L" jobs");
    drawText(dc, {area.right - 90, 30, area.right - kMargin, 52}, jobs, kWarning, Font::Bold, DT_RIGHT);
  }
  drawSupplies(dc, area);
  if (m_hasKeyboard) {
    const RECT frame{6, 2, area.right - 2, area.bottom - 3};
    ::DrawFocusRect(dc, &frame);
  }
}

void Card::drawSupplies(HDC dc, const RECT& area) const {
  if (!m_sight) return;
  int top = kHead;
  for (const auto& supply : m_sight->supplies) {
    if (top > kHead + kSupply * (static_cast<int>(kMostSupplies) - 1)) break;
    drawText(dc, {kMargin, top, kMargin + 70, top + kSupply}, supply.color, kPaleInk, Font::Small);
    drawBar(dc, {kMargin + 72, top + 6, area.right - 62, top + kSupply - 6}, supply.percent, colorOf(supply.color));
    drawText(dc, {area.right - 58, top, area.right - kMargin, top + kSupply}, std::to_wstring(supply.percent) + L" %",
             supply.percent <= kLow ? kBad : kPaleInk, supply.percent <= kLow ? Font::Bold : Font::Small, DT_RIGHT);
    top += kSupply;
  }
}

}  // namespace panel
