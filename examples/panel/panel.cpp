#include "panel/Panel.h"

#include <windowsx.h>

#include <algorithm>
#include <array>
#include <utility>

#include "common/Text.h"
#include "panel/Ids.h"
#include "panel/Paint.h"

namespace panel {
namespace {

using namespace std::chrono_literals;

constexpr UINT_PTR kTimer = 1;
constexpr UINT kTick = 100;     // milliseconds: how long the end of a task may wait to be seen
constexpr auto kPatience = 3s;  // for printers that are in the middle of an answer, when the window has been closed
constexpr std::size_t kMostHistory = 100;
constexpr std::size_t kMostName = 60;  // characters: what is said of the printer has to be seen, too

// Pixels of the client area.
constexpr int kWidth = 980;
constexpr int kHeight = 668;
constexpr int kListWidth = 310;
constexpr int kTitle = 44;  // the window is moved by it
constexpr int kTabTop = 54;
constexpr int kTabGap = 4;
constexpr int kMessageTop = 610;
constexpr int kPageLeft = kListWidth + 24;
constexpr qzstd::Rect kFirstPlace{60, 60, kWidth, kHeight};
constexpr qzstd::Rect kListPlace{1, kTitle, kListWidth - 1, kHeight - kTitle - 1};
constexpr qzstd::Rect kMessagePlace{kPageLeft, kMessageTop + 8, kWidth - kPageLeft - 24, kHeight - kMessageTop - 12};
constexpr qzstd::Rect kMinimizePlace{kWidth - 84, 6, 36, 32};
constexpr qzstd::Rect kClosePlace{kWidth - 44, 6, 36, 32};
constexpr qzstd::Rect kPagePlace{kPageLeft, kTabTop + 52, kWidth - kPageLeft - 24, kMessageTop - kTabTop - 60};

struct PageRow {
  const wchar_t* caption;
  int width;
  std::unique_ptr<Page> (*make)(Host& host, const qzstd::Rect& rect);
};
constexpr std::array<PageRow, 7> kPages{{
    {L"State", 68, newStatePage},
    {L"Settings", 94, newSettingsPage},
    {L"Maintenance", 122, newMaintenancePage},
    {L"Network", 92, newNetworkPage},
    {L"Wi-Fi", 66, newWifiPage},
    {L"Firmware", 98, newFirmwarePage},
    {L"Log", 56, newLogPage},
}};

COLORREF colorOf(Tone tone) {
  switch (tone) {
    case Tone::Good:
      return kGood;
    case Tone::Bad:
      return kBad;
    default:
      return kInk;
  }
}

std::wstring timeOfDay() {
  SYSTEMTIME now{};
  ::GetLocalTime(&now);
  wchar_t text[16];
  ::wsprintfW(text, L"%02u:%02u:%02u  ", now.wHour, now.wMinute, now.wSecond);
  return text;
}

}  // namespace

Panel::Panel()
    : CWnd(kFirstPlace),
      m_list(kListPlace, [this](std::size_t index) { choosePrinter(index); }),
      m_messageView(kMessagePlace),
      m_minimize(ID_MINIMIZE, kMinimizePlace, nullptr),
      m_closeButton(ID_CLOSE, kClosePlace, nullptr),
      m_jobs([this](Tone tone, const std::wstring& text) { say(tone, text); }) {}

// With all that is in it, while the objects behind the windows are still there to be told.
Panel::~Panel() { Destroy(); }

void Panel::addPrinter(std::shared_ptr<qzstd::PrinterInfo> printer) {
  m_printers.push_back({.info = printer, .uid = printer->uid, .name = examples::shown(printer->name, kMostName)});
}

bool Panel::Create(HWND parent) {
  if (!CreateWnd(::GetModuleHandleW(nullptr), parent, IDD_PANEL)) return false;
  ::SetWindowTextW(GetWnd(), L"Printers");
  Move();
  build();
  ::SetTimer(GetWnd(), kTimer, kTick, nullptr);
  Show();
  m_list.focus();
  return true;
}

void Panel::build() {
  m_minimize.Create(GetWnd());
  m_closeButton.Create(GetWnd());
  m_list.Create(GetWnd());
  m_messageView.Create(GetWnd());
  ::SetWindowLongPtrW(m_messageView.GetWnd(), GWLP_ID, ID_MESSAGE);
  for (const auto& printer : m_printers) {
    const auto* connection = printer.info->connectionKind == 0 ? L"USB" : L"network";
    m_list.add({printer.name, connection, std::chrono::milliseconds(printer.info->interval)});
  }
  int left = kPageLeft;
  for (std::size_t i = 0; i < kPages.size(); ++i) {
    m_tabRects.push_back({left, kTabTop, kPages[i].width, 34});
    left += kPages[i].width + kTabGap;
    const qzstd::Text caption{kPages[i].caption};
    m_tabs.push_back(std::make_unique<AppWnd::BtnRadioRound>(ID_PAGE_FIRST + static_cast<int>(i), m_tabRects.back(), &caption));
    m_tabs.back()->Create(GetWnd());
  }
  for (const auto& row : kPages) {
    m_pages.push_back(row.make(*this, kPagePlace));
    m_pages.back()->Create(GetWnd());
  }
  for (std::size_t i = 0; i < m_printers.size(); ++i) watch(i);
  choosePage(0);
  if (!m_printers.empty()) choosePrinter(0);
  showMessage(Tone::Plain, m_printers.empty() ? L"There is no printer." : L"Choose a printer at the left and a page above.");
}

void Panel::watch(std::size_t index) {
  auto& printer = m_printers[index];
  printer.watch = std::make_shared<Task>(GetWnd(), newWatch(printer.board), printer.info,
                                         [this, index](const examples::Report& /*report*/, bool /*isOver*/) {
                                           const auto sight = m_printers[index].board->get();
                                           if (!sight) return;
                                           m_list.show(index, *sight);
                                           if (index == m_chosen) m_pages[m_page]->seen(&*sight);
                                         });
}

__int64 Panel::RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  switch (msg) {
    case WM_INITDIALOG:
      return TRUE;
    case WM_PAINT:
      paintWindow(GetWnd(), [this](HDC dc, const RECT& area) { draw(dc, area); });
      return TRUE;
    case WM_ERASEBKGND:
      ::SetWindowLongPtrW(GetWnd(), DWLP_MSGRESULT, TRUE);
      return TRUE;
    case WM_NCHITTEST:
      ::SetWindowLongPtrW(GetWnd(), DWLP_MSGRESULT, static_cast<LONG_PTR>(placeOf(lParam)));
      return TRUE;
    case WM_CTLCOLORSTATIC:
      return reinterpret_cast<__int64>(groundBrush());
    case WM_TIMER:
      tick();
      return TRUE;
    case WM_COMMAND: {
      const int id = LOWORD(wParam);
      if (id >= ID_PAGE_FIRST && id < ID_PAGE_FIRST + static_cast<int>(kPages.size())) {
        choosePage(static_cast<std::size_t>(id - ID_PAGE_FIRST));
      }
      if (id == ID_MINIMIZE) Show(SW_MINIMIZE);
      if (id == ID_CLOSE) close();
      return TRUE;  // Escape, which comes as a command too, closes nothing
    }
    case WM_CLOSE:
      close();
      return TRUE;
    default:
      return FALSE;
  }
}

std::wstring Panel::chosen() const { return m_printers.empty() ? std::wstring() : m_printers[m_chosen].uid; }

void Panel::choosePrinter(std::size_t index) {
  m_chosen = index;
  m_list.choose(index);
  for (const auto& page : m_pages) page->printerChanged();
  if (const auto sight = m_printers[index].board->get()) m_pages[m_page]->seen(&*sight);
  ReDraw(false);
}

void Panel::choosePage(std::size_t index) {
  m_page = index;
  for (std::size_t i = 0; i < m_pages.size(); ++i) {
    m_tabs[i]->SetClick(i == index);
    if (i != index) m_pages[i]->Hide();
  }
  m_pages[index]->entered();
  if (!m_printers.empty()) {
    if (const auto sight = m_printers[m_chosen].board->get()) m_pages[index]->seen(&*sight);
  }
  m_pages[index]->Show();
}

void Panel::start(const std::wstring& title, std::unique_ptr<examples::Operation> operation, Task::Told told) {
  if (m_printers.empty() || m_closing) return;
  const auto& printer = m_printers[m_chosen];
  m_jobs.start(GetWnd(), {title, printer.name, printer.info, std::move(operation), std::move(told)});
}

void Panel::cancel(std::initializer_list<AppComm::Type> types) {
  if (!m_jobs.cancel(chosen(), types)) say(Tone::Plain, L"There is nothing to cancel");
}

void Panel::readSoon() {
  if (m_printers.empty()) return;
  m_printers[m_chosen].watch->readSoon();
  say(Tone::Plain, L"Asked " + m_printers[m_chosen].name + L" for its state");
}

void Panel::say(Tone tone, const std::wstring& text) {
  showMessage(tone, text);
  m_history.push_back(timeOfDay() + text);
  if (m_history.size() > kMostHistory) m_history.pop_front();
}

void Panel::showMessage(Tone tone, const std::wstring& text) {
  m_message = text;
  m_messageView.show(text, colorOf(tone));
}

void Panel::tick() {
  const auto now = Clock::now();
  m_list.grow(now, [this](std::size_t index) { return m_jobs.underWay(m_printers[index].uid); });
  m_jobs.tidy();
  if (m_closing) {
    if (mayEnd() || now - *m_closing >= kPatience) {
      ::KillTimer(GetWnd(), kTimer);
      ::PostQuitMessage(0);
    }
    return;
  }
  // Only of what was said last: an operation that ended since has said so itself.
  if (const auto text = m_jobs.howLong(m_message, now); text && *text != m_message) showMessage(Tone::Plain, *text);
}

// The window is gone at once; what the printers still have to say is waited for a little, so that their workers end in order.
// One that hangs ends with the process.
void Panel::close() {
  if (m_closing) return;
  m_closing = Clock::now();
  Hide();
  for (const auto& printer : m_printers) printer.watch->cancel();
  m_jobs.cancelAll();
  Stop();
}

// There is no frame of the system's: the title moves the window.
__int64 Panel::placeOf(__int64 lParam) const {
  POINT place{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  ::ScreenToClient(GetWnd(), &place);
  return place.y < kTitle ? HTCAPTION : HTCLIENT;
}

bool Panel::mayEnd() const {
  return m_jobs.areOver() && std::ranges::all_of(m_printers, [](const auto& printer) { return printer.watch->mayGo(); });
}

void Panel::draw(HDC dc, const RECT& area) const {
  drawRect(dc, {kListWidth, 0, area.right, area.bottom}, kGround);
  drawRect(dc, {kListWidth, 0, kListWidth + 1, area.bottom}, kLine);
  drawText(dc, {14, 0, kListWidth - 14, kTitle}, L"Printers", kInk, Font::Title);
  drawRect(dc, {kListWidth, kMessageTop, area.right, kMessageTop + 1}, kLine);
  drawFrame(dc, area, kPaleInk);
}

}  // namespace panel
