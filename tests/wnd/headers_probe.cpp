/// The interface's headers beside the whole of the platform's, which comes first or last. Compiled once for each order, with
/// and without `UNICODE`, and once for an application that has chosen the platform's macros itself; nothing here is run.

#if defined(PROBE_PLATFORM_FIRST)
#include <windows.h>
#endif

#include "AppCommunication.h"

// How the headers bring the platform in is no choice for the application's later headers. Its own choice stands.
#if defined(PROBE_OWN_CHOICE)
#if !defined(WIN32_LEAN_AND_MEAN) || !defined(NOMINMAX)
#error "the interface's headers take away a macro that the application defined"
#endif
#else
#if defined(WIN32_LEAN_AND_MEAN)
#error "the interface's headers leave WIN32_LEAN_AND_MEAN defined"
#endif
#if defined(NOMINMAX) && !defined(__MINGW32__)  // there the runtime's own headers define it
#error "the interface's headers leave NOMINMAX defined"
#endif
#endif

#if !defined(PROBE_PLATFORM_FIRST) && defined(_WIN32)
#include <ole2.h>  // what the headers left out comes now
#include <shellapi.h>
#include <windows.h>
#endif

namespace {

class Window : public AppWnd::CWnd {
 public:
  using CWnd::CWnd;
  bool Create(HWND parent) override { return CreateWnd(nullptr, parent, 1); }
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override { return SendSelfMsg(msg, wParam, lParam); }
};

}  // namespace

void useTheInterface(const qzstd::Rect& rect, const std::shared_ptr<qzstd::PrinterInfo>& printer);

void useTheInterface(const qzstd::Rect& rect, const std::shared_ptr<qzstd::PrinterInfo>& printer) {
  const auto window = std::make_shared<Window>(rect);
  const auto task = AppComm::Node::Instance(printer, window, 1, AppComm::Type::State);
  task->setResource(std::make_shared<AppComm::State>());
  Add(task);
  AppWnd::EditCPwd edit(rect, nullptr);
  edit.SetFocus();
  edit.CreateCaret();
  AppWnd::Scroll(rect).SetMouseMoveColor(COLORREF{0x030201});
}
