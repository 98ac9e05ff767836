#include <array>

#include "controls/EditTest.h"
#include "simulator/controls/Clipboard.h"
#include "simulator/controls/Drawing.h"

namespace {

// Holds Shift down for the thread's messages.
class HeldShift {
 public:
  HeldShift() { set(0x80); }
  ~HeldShift() { set(0); }

 private:
  static void set(BYTE state) {
    std::array<BYTE, 256> keys{};
    ::GetKeyboardState(keys.data());
    keys[VK_SHIFT] = state;
    ::SetKeyboardState(keys.data());
  }
};

}  // namespace

Edits::Selection Edits::selectionOf(const AppWnd::EditBase& of) const {
  Selection result{};
  of.SendSelfMsg(EM_GETSEL, reinterpret_cast<WPARAM>(&result.first), reinterpret_cast<LPARAM>(&result.second));
  return result;
}

GUITHREADINFO Edits::caret() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  ::GetGUIThreadInfo(::GetCurrentThreadId(), &info);
  return info;
}

bool Edits::isCaretSeen(const AppWnd::EditBase& of) const {
  ::UpdateWindow(of.GetWnd());
  const RECT place = caret().rcCaret;
  const HDC screen = ::GetDC(of.GetWnd());
  const COLORREF color = ::GetPixel(screen, place.left, (place.top + place.bottom) / 2);
  ::ReleaseDC(of.GetWnd(), screen);
  return color != controls::theme::kSurface;
}

std::wstring Edits::clipboard() const {
  const auto units = controls::copiedText(parent());
  return {units.begin(), units.end()};
}

std::vector<WORD> Edits::told() {
  std::vector<WORD> result;
  for (const auto& command : takeCommands()) result.push_back(command.what);
  return result;
}

void Edits::keyWithShift(HWND window, unsigned virtualKey) {
  const HeldShift shift;
  key(window, virtualKey);
}
