#pragma once

#include <memory>
#include <type_traits>

#include "AppWindow.h"

/// Owners of the platform's drawing objects.
namespace controls {

struct DeleteGdiObject {
  void operator()(HGDIOBJ object) const { ::DeleteObject(object); }
};
struct DeleteGdiContext {
  void operator()(HDC dc) const { ::DeleteDC(dc); }
};

template <class Handle>
using Gdi = std::unique_ptr<std::remove_pointer_t<Handle>, DeleteGdiObject>;  // HPEN, HBRUSH, HFONT, HBITMAP, HRGN
using GdiContext = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteGdiContext>;

/// Selects an object into a context for as long as it lives. The object outlives it.
class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) : m_dc(dc), m_former(::SelectObject(dc, object)) {}
  ~Selected() { ::SelectObject(m_dc, m_former); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  const HDC m_dc;
  const HGDIOBJ m_former;
};

}  // namespace controls
