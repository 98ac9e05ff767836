#include "simulator/controls/Clipboard.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <type_traits>

namespace controls {
namespace {

class OpenClipboard {
 public:
  explicit OpenClipboard(HWND owner) : m_open(::OpenClipboard(owner) != 0) {}
  ~OpenClipboard() {
    if (m_open) ::CloseClipboard();
  }
  OpenClipboard(const OpenClipboard&) = delete;
  OpenClipboard& operator=(const OpenClipboard&) = delete;

  explicit operator bool() const { return m_open; }

 private:
  const bool m_open;
};

struct FreeGlobal {
  void operator()(HGLOBAL memory) const { ::GlobalFree(memory); }
};
using Global = std::unique_ptr<std::remove_pointer_t<HGLOBAL>, FreeGlobal>;

struct UnlockGlobal {
  HGLOBAL memory;
  void operator()(wchar_t*) const { ::GlobalUnlock(memory); }
};
using LockedUnits = std::unique_ptr<wchar_t, UnlockGlobal>;

LockedUnits locked(HGLOBAL memory) { return {static_cast<wchar_t*>(::GlobalLock(memory)), UnlockGlobal{memory}}; }

Global globalCopy(std::wstring_view text) {
  Global memory(::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, (text.size() + 1) * sizeof(wchar_t)));
  if (memory == nullptr) return nullptr;
  const auto units = locked(memory.get());
  if (units == nullptr) return nullptr;
  std::copy(text.begin(), text.end(), units.get());
  return memory;
}

}  // namespace

bool copyText(HWND owner, std::wstring_view text) {
  Global memory = globalCopy(text);
  const OpenClipboard clipboard(owner);
  if (memory == nullptr || !clipboard || ::EmptyClipboard() == 0) return false;
  if (::SetClipboardData(CF_UNICODETEXT, memory.get()) == nullptr) return false;
  [[maybe_unused]] const HGLOBAL systems = memory.release();
  return true;
}

WipedText copiedText(HWND owner) {
  const OpenClipboard clipboard(owner);
  const HGLOBAL memory = clipboard ? ::GetClipboardData(CF_UNICODETEXT) : nullptr;
  if (memory == nullptr) return {};
  const auto units = locked(memory);
  if (units == nullptr) return {};
  // Another program's memory need not end in a null.
  const std::size_t most = ::GlobalSize(memory) / sizeof(wchar_t);
  return WipedText(units.get(), std::find(units.get(), units.get() + most, L'\0'));
}

}  // namespace controls
