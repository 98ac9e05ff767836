#include "panel/PrinterList.h"

#include <algorithm>
#include <utility>

#include "panel/Ids.h"
#include "panel/Paint.h"

namespace panel {
namespace {

constexpr int kScrollWidth = 10;
constexpr int kWheelStep = 60;  // pixels

}  // namespace

/// What the cards are in. Scrolling moves this window alone, however many printers there are.
class PrinterList::Strip : public AppWnd::CWnd {
 public:
  explicit Strip(const qzstd::Rect& rect) : CWnd(rect) {}

  bool Create(HWND parent) override {
    if (!CreateWnd(::GetModuleHandleW(nullptr), parent, IDD_CHILD)) return false;
    Move();
    Show();
    return true;
  }
  __int64 RunProc(unsigned msg, unsigned __int64 /*wParam*/, __int64 /*lParam*/) override {
    if (msg == WM_ERASEBKGND) return TRUE;
    if (msg != WM_PAINT) return FALSE;
    paintWindow(GetWnd(), [](HDC, const RECT&) {});
    return TRUE;
  }
};

PrinterList::PrinterList(const qzstd::Rect& rect, std::function<void(std::size_t index)> chosen)
    : CWnd(rect),
      m_scrollRect{rect.width - kScrollWidth, 0, kScrollWidth, rect.height},
      m_width(rect.width - kScrollWidth),
      m_height(rect.height),
      m_chosen(std::move(chosen)),
      m_stripRect{0, 0, m_width, m_height},
      m_strip(std::make_unique<Strip>(m_stripRect)),
      m_scroll(m_scrollRect) {}

PrinterList::~PrinterList() = default;

bool PrinterList::Create(HWND parent) {
  if (!CreateWnd(::GetModuleHandleW(nullptr), parent, IDD_CHILD)) return false;
  ::SetWindowLongPtrW(GetWnd(), GWLP_ID, ID_PRINTERS);
  Move();
  m_strip->Create(GetWnd());
  m_scroll.Create(GetWnd());
  m_scroll.SetBgColor(kSurface);
  m_scroll.Hide();
  Show();
  return true;
}

__int64 PrinterList::RunProc(unsigned msg, unsigned __int64 wParam, __int64 /*lParam*/) {
  switch (msg) {
    case WM_PAINT:
      paintWindow(GetWnd(), [](HDC, const RECT&) {});
      return TRUE;
    case WM_ERASEBKGND:
      return TRUE;
    case WM_VSCROLL:
      scrollTo(m_scroll.GetPos());
      return TRUE;
    case WM_MOUSEWHEEL:
      scrollTo(m_position - GET_WHEEL_DELTA_WPARAM(wParam) * kWheelStep / WHEEL_DELTA);
      return TRUE;
    default:
      return FALSE;
  }
}

void PrinterList::add(Card::Nameplate printer) {
  const auto index = m_entries.size();
  auto entry = std::make_unique<Entry>();
  entry->rect = {0, contentHeight(), m_width, Card::heightFor(0)};
  entry->card = std::make_unique<Card>(
      entry->rect, ID_CARD_FIRST + static_cast<int>(index), std::move(printer), [this, index] { m_chosen(index); },
      [this, index] { reveal(index); });
  entry->card->Create(m_strip->GetWnd());
  m_entries.push_back(std::move(entry));
  fit();
}

void PrinterList::show(std::size_t index, const Sight& sight) {
  auto& entry = *m_entries[index];
  entry.card->show(sight);
  const int height = Card::heightFor(sight.supplies.size());
  if (std::exchange(entry.rect.height, height) != height) arrangeFrom(index);
}

void PrinterList::choose(std::size_t index) {
  for (std::size_t i = 0; i < m_entries.size(); ++i) m_entries[i]->card->setChosen(i == index);
}

void PrinterList::focus() const {
  if (!m_entries.empty()) ::SetFocus(m_entries.front()->card->GetWnd());
}

void PrinterList::grow(Card::Clock::time_point now, const std::function<std::wstring(std::size_t index)>& occupation) {
  for (std::size_t i = 0; i < m_entries.size(); ++i) m_entries[i]->card->grow(now, occupation(i));
}

int PrinterList::contentHeight() const {
  return m_entries.empty() ? 0 : m_entries.back()->rect.y + m_entries.back()->rect.height;
}

void PrinterList::arrangeFrom(std::size_t index) {
  for (int top = m_entries[index]->rect.y; index < m_entries.size(); ++index) {
    auto& entry = *m_entries[index];
    entry.rect.y = top;
    entry.card->Move();
    top += entry.rect.height;
  }
  fit();
}

// To what the cards need by now.
void PrinterList::fit() {
  const int content = contentHeight();
  m_stripRect.height = std::max(content, m_height);
  SCROLLINFO info{sizeof info, SIF_RANGE | SIF_PAGE, 0, content - 1, static_cast<UINT>(m_height), 0, 0};
  ::SendMessageW(m_scroll.GetWnd(), SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info));
  m_scroll.Show(content > m_height ? SW_SHOW : SW_HIDE);
  scrollTo(m_position);
}

void PrinterList::scrollTo(int position) {
  m_position = std::clamp(position, 0, m_stripRect.height - m_height);
  m_stripRect.y = -m_position;
  m_strip->Move();
  if (m_scroll.GetPos() != m_position) {
    ::SendMessageW(m_scroll.GetWnd(), SBM_SETPOS, static_cast<WPARAM>(m_position), TRUE);
  }
}

// The keyboard may come to a card that is scrolled away.
void PrinterList::reveal(std::size_t index) {
  const auto& place = m_entries[index]->rect;
  if (place.y < m_position) scrollTo(place.y);
  if (place.y + place.height > m_position + m_height) scrollTo(place.y + place.height - m_height);
}

}  // namespace panel
