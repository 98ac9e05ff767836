#include "BaseWindow.h"

namespace BaseWnd {

bool BaseCtrlStd::GetDlgItem(HWND dialog, int id) {
  m_id = id;
  SetWnd(::GetDlgItem(dialog, id));
  // User data first: the new procedure finds this object there with its first message.
  ::SetWindowLongPtrW(GetWnd(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  m_previousProc =
      reinterpret_cast<WNDPROC>(::SetWindowLongPtrW(GetWnd(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&BaseCtrlStd::Proc)));
  return GetWnd() != nullptr;
}

__int64 BaseCtrlStd::RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  return ::CallWindowProcW(m_previousProc, GetWnd(), msg, wParam, lParam);
}

}  // namespace BaseWnd
