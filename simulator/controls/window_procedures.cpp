/// The three window procedures of the control library: they find the object behind a window and give it the message. And the
/// `Destroy` that it supplies.

#include <typeinfo>

#include "AppWindow.h"
#include "BaseWindow.h"

namespace BaseWnd {
namespace {

// A dialog learns its object with its first message of interest; earlier ones have no one to go to.
template <class Dialog>
Dialog* dialogOf(HWND window, unsigned msg, __int64 lParam) {
  if (msg != WM_INITDIALOG) return reinterpret_cast<Dialog*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  ::SetWindowLongPtrW(window, GWLP_USERDATA, static_cast<LONG_PTR>(lParam));
  auto* dialog = reinterpret_cast<Dialog*>(lParam);
  dialog->SetWnd(window);
  return dialog;
}

}  // namespace

__int64 BaseDlgWnd::Proc(HWND window, unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  auto* dialog = dialogOf<BaseDlgWnd>(window, msg, lParam);
  // While the object's destructor destroys the window, it has let go of the handle and has no `RunProc` any more.
  return dialog == nullptr || dialog->GetWnd() != window ? FALSE : dialog->RunProc(msg, wParam, lParam);
}

__int64 BaseDlgBox::Proc(HWND window, unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  auto* dialog = dialogOf<BaseDlgBox>(window, msg, lParam);
  if (dialog == nullptr) return FALSE;
  // Told to end, a box has let go of its handle and still hears its last messages, so the handle says nothing here. Of this
  // very type an object is only while its destructor ends the dialog: it has no `RunProc` any more, and later messages meet no
  // object.
  if (typeid(*dialog) != typeid(BaseDlgBox)) return dialog->RunProc(msg, wParam, lParam);
  ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  return FALSE;
}

__int64 BaseCtrlStd::Proc(HWND window, unsigned msg, unsigned __int64 wParam, __int64 lParam) {
  auto* control = reinterpret_cast<BaseCtrlStd*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  return control == nullptr ? ::DefWindowProcW(window, msg, wParam, lParam) : control->RunProc(msg, wParam, lParam);
}

}  // namespace BaseWnd

namespace AppWnd {

void CDlgWnd::Destroy() { BaseDlgWnd::Destroy(); }

}  // namespace AppWnd
