#include "controls/ControlTest.h"

#include <algorithm>
#include <array>

namespace {
constexpr const wchar_t* kClass = L"AppCommunicationControlTest";
}

std::uint32_t asPixel(COLORREF color) {
  return (std::uint32_t{GetRValue(color)} << 16) | (std::uint32_t{GetGValue(color)} << 8) | std::uint32_t{GetBValue(color)};
}

std::wstring textOf(HWND window) {
  std::array<wchar_t, 128> units{};
  const int length = ::GetWindowTextW(window, units.data(), static_cast<int>(units.size()));
  return {units.data(), static_cast<std::size_t>(length)};
}

RECT placeOf(HWND window) {
  RECT place{};
  ::GetWindowRect(window, &place);
  ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&place), 2);
  return place;
}

ControlTest::ControlTest() {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = ::GetModuleHandleW(nullptr);
  windowClass.lpszClassName = kClass;
  ::RegisterClassW(&windowClass);
  m_parent = ::CreateWindowExW(0, kClass, L"", WS_POPUP | WS_VISIBLE, 0, 0, 600, 400, nullptr, nullptr, windowClass.hInstance,
                               nullptr);
  ::SetWindowLongPtrW(m_parent, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  EXPECT_NE(m_parent, nullptr) << "is there a display? error " << ::GetLastError();
}

ControlTest::~ControlTest() {
  ::DestroyWindow(m_parent);
  ::UnregisterClassW(kClass, ::GetModuleHandleW(nullptr));
}

LRESULT CALLBACK ControlTest::procedure(HWND window, UINT msg, WPARAM wParam, LPARAM lParam) {
  auto* test = reinterpret_cast<ControlTest*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  if (test != nullptr && msg == WM_COMMAND) {
    test->m_commands.push_back({LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam)});
    return 0;
  }
  if (test != nullptr && (msg == WM_VSCROLL || msg == WM_HSCROLL)) {
    test->m_scrolls.emplace_back(msg, wParam);
    return 0;
  }
  return ::DefWindowProcW(window, msg, wParam, lParam);
}

void ControlTest::moveMouse(HWND window, int x, int y) { ::SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(x, y)); }

void ControlTest::press(HWND window, int x, int y) { ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y)); }

void ControlTest::release(HWND window, int x, int y) { ::SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y)); }

void ControlTest::click(HWND window, int x, int y) {
  press(window, x, y);
  release(window, x, y);
}

void ControlTest::key(HWND window, unsigned virtualKey) {
  ::SendMessageW(window, WM_KEYDOWN, virtualKey, 1);
  ::SendMessageW(window, WM_KEYUP, virtualKey, 1);
}

void ControlTest::type(HWND window, const std::wstring& text) {
  for (const wchar_t unit : text) ::SendMessageW(window, WM_CHAR, unit, 1);
}

Pixels ControlTest::picture(HWND window, int margin) {
  RECT area{};
  ::GetClientRect(window, &area);
  const int width = area.right + 2 * margin;
  const int height = area.bottom + 2 * margin;
  BITMAPINFO description{};
  description.bmiHeader.biSize = sizeof description.bmiHeader;
  description.bmiHeader.biWidth = width;
  description.bmiHeader.biHeight = -height;  // the first row is the upper one
  description.bmiHeader.biPlanes = 1;
  description.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  const HDC dc = ::CreateCompatibleDC(nullptr);
  const HBITMAP bitmap = ::CreateDIBSection(dc, &description, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ former = ::SelectObject(dc, bitmap);
  auto* pixels = static_cast<std::uint32_t*>(bits);
  std::fill_n(pixels, width * height, kUntouched);
  ::SetViewportOrgEx(dc, margin, margin, nullptr);
  ::SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
  ::GdiFlush();
  Pixels copy(pixels, pixels + width * height);
  for (auto& pixel : copy) pixel &= 0xffffff;
  ::SelectObject(dc, former);
  ::DeleteObject(bitmap);
  ::DeleteDC(dc);
  return copy;
}

std::set<std::uint32_t> ControlTest::colors(HWND window) {
  const auto pixels = picture(window);
  return {pixels.begin(), pixels.end()};
}
