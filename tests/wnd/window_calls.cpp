#include "wnd/WindowCalls.h"

#include <type_traits>

namespace {

template <class Value>
std::string shown(Value value) {
  if constexpr (std::is_pointer_v<Value>) {
    return value == nullptr ? "null" : std::to_string(reinterpret_cast<std::uintptr_t>(value));
  } else {
    return std::to_string(value);
  }
}

}  // namespace

void WindowCalls::answer(const std::string& name, LONG_PTR value) {
  const std::lock_guard lock(m_mutex);
  m_answers[name] = value;
}

std::vector<std::string> WindowCalls::calls() const {
  const std::lock_guard lock(m_mutex);
  return m_calls;
}

template <class... Arguments>
LONG_PTR WindowCalls::noted(const char* name, Arguments... arguments) {
  std::string list;
  ((list += (list.empty() ? "" : ", ") + shown(arguments)), ...);
  const std::lock_guard lock(m_mutex);
  m_calls.push_back(std::string(name) + '(' + list + ')');
  const auto found = m_answers.find(name);
  return found == m_answers.end() ? 0 : found->second;
}

LRESULT WindowCalls::SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return noted("SendMessageW", window, message, wParam, lParam);
}

HWND WindowCalls::GetParent(HWND window) { return reinterpret_cast<HWND>(noted("GetParent", window)); }

BOOL WindowCalls::ShowWindow(HWND window, int command) { return static_cast<BOOL>(noted("ShowWindow", window, command)); }

BOOL WindowCalls::IsWindowVisible(HWND window) { return static_cast<BOOL>(noted("IsWindowVisible", window)); }

BOOL WindowCalls::EnableWindow(HWND window, BOOL enable) { return static_cast<BOOL>(noted("EnableWindow", window, enable)); }

BOOL WindowCalls::IsWindowEnabled(HWND window) { return static_cast<BOOL>(noted("IsWindowEnabled", window)); }

BOOL WindowCalls::IsWindow(HWND window) { return static_cast<BOOL>(noted("IsWindow", window)); }

BOOL WindowCalls::MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint) {
  return static_cast<BOOL>(noted("MoveWindow", window, x, y, width, height, repaint));
}

BOOL WindowCalls::InvalidateRect(HWND window, const RECT* rect, BOOL erase) {
  return static_cast<BOOL>(noted("InvalidateRect", window, rect, erase));
}

BOOL WindowCalls::GetClientRect(HWND window, RECT* rect) {
  const auto result = noted("GetClientRect", window);
  if (result != 0) *rect = clientRect;  // a failed call leaves the rectangle as it is
  return static_cast<BOOL>(result);
}

INT_PTR WindowCalls::DialogBoxParamW(HINSTANCE instance, LPCWSTR resource, HWND parent, DLGPROC procedure, LPARAM parameter) {
  dialogProcedure = procedure;
  dialogParameter = parameter;
  return noted("DialogBoxParamW", instance, resource, parent);
}

BOOL WindowCalls::EndDialog(HWND window, INT_PTR result) { return static_cast<BOOL>(noted("EndDialog", window, result)); }

HWND WindowCalls::CreateDialogParamW(HINSTANCE instance, LPCWSTR resource, HWND parent, DLGPROC procedure, LPARAM parameter) {
  dialogProcedure = procedure;
  dialogParameter = parameter;
  return reinterpret_cast<HWND>(noted("CreateDialogParamW", instance, resource, parent));
}

BOOL WindowCalls::DestroyWindow(HWND window) { return static_cast<BOOL>(noted("DestroyWindow", window)); }

HWND WindowCalls::GetDlgItem(HWND dialog, int id) { return reinterpret_cast<HWND>(noted("GetDlgItem", dialog, id)); }

LONG_PTR WindowCalls::SetWindowLongPtrW(HWND window, int index, LONG_PTR value) {
  return noted("SetWindowLongPtrW", window, index, value);
}

LRESULT WindowCalls::CallWindowProcW(WNDPROC previous, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return noted("CallWindowProcW", reinterpret_cast<void*>(previous), window, message, wParam, lParam);
}
