#include "BaseWindow.h"

namespace BaseWnd {

BaseDlgWnd::~BaseDlgWnd() {
  // In a destructor the table is this class's own: `IsWindow` is the one above, whatever a derived class made of it.
  if (!IsWindow()) return;
  const HWND window = GetWnd();
  // Cleared first: the window's last messages must find out that the derived class, which would handle them, is gone.
  SetWnd(nullptr);
  ::DestroyWindow(window);
}

void BaseDlgWnd::Destroy() {
  if (!IsWindow()) return;
  ::DestroyWindow(GetWnd());
  SetWnd(nullptr);
}

bool BaseDlgWnd::CreateWnd(HINSTANCE instance, HWND parent, unsigned short resourceId) {
  SetWnd(
      ::CreateDialogParamW(instance, MAKEINTRESOURCEW(resourceId), parent, &BaseDlgWnd::Proc, reinterpret_cast<LPARAM>(this)));
  return GetWnd() != nullptr;
}

}  // namespace BaseWnd
