#include "BaseWindow.h"

namespace BaseWnd {

namespace {
constexpr INT_PTR kAccepted = 1;  // how a dialog ends that was not cancelled
}

BaseDlgBox::BaseDlgBox(long first, long second) : m_first(first), m_second(second) {}

BaseDlgBox::~BaseDlgBox() {
  if (!IsWindow()) return;
  ::EndDialog(GetWnd(), kAccepted);
  SetWnd(nullptr);
}

void BaseDlgBox::Destroy() { EndDialog(kAccepted); }

bool BaseDlgBox::Create(HINSTANCE instance, HWND parent, unsigned short resourceId) {
  return ::DialogBoxParamW(instance, MAKEINTRESOURCEW(resourceId), parent, &BaseDlgBox::Proc, reinterpret_cast<LPARAM>(this)) ==
         kAccepted;
}

void BaseDlgBox::EndDialog(__int64 result) {
  if (!IsWindow()) return;
  ::EndDialog(GetWnd(), result);
  SetWnd(nullptr);
}

}  // namespace BaseWnd
