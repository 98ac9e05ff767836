#include "panel/Courier.h"

#include <system_error>
#include <utility>

#include "panel/Ids.h"

namespace panel {
namespace {

constexpr unsigned kTold = WM_APP + 1;
constexpr qzstd::Rect kNowhere;

}  // namespace

Courier::Courier(std::function<bool()> inNotice, std::function<void()> arrived)
    : CWnd(kNowhere), m_inNotice(std::move(inNotice)), m_arrived(std::move(arrived)) {}

bool Courier::Create(HWND parent) { return CreateWnd(::GetModuleHandleW(nullptr), parent, IDD_CHILD); }

__int64 Courier::RunProc(unsigned msg, unsigned __int64 /*wParam*/, __int64 /*lParam*/) {
  if (msg != kTold) return FALSE;
  m_arrived();
  return TRUE;
}

bool Courier::Notice(long code) const {
  const bool more = m_inNotice();
  passOn(code);
  return more;
}

void Courier::passOn(long code) const {
  ++m_senders;
  try {
    ThreadToSelf(kTold, static_cast<WPARAM>(code), 0);
  } catch (const std::system_error&) {
    --m_senders;
    poke(GetWnd());
  }
}

// On the sender's thread. The count is its last access to this object.
__int64 Courier::SendSelfMsg(unsigned msg, unsigned __int64 wParam, __int64 lParam) const {
  const auto answer = CWnd::SendSelfMsg(msg, wParam, lParam);
  --m_senders;
  return answer;
}

void Courier::poke(HWND courier) { ::PostMessageW(courier, kTold, 0, 0); }

}  // namespace panel
