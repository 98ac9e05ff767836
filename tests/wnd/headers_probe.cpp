/// The interface's headers beside the whole of the platform's, which comes first or last. Compiled once for each order, with
/// and without `UNICODE`; nothing here is run.

#if defined(PROBE_PLATFORM_FIRST)
#include <windows.h>
#endif

#include "AppCommunication.h"

#if !defined(PROBE_PLATFORM_FIRST)
#undef WIN32_LEAN_AND_MEAN  // what the headers left out comes now
#include <ole2.h>
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
  AppWnd::Scroll(rect).SetMouseMoveColor(RGB(1, 2, 3));
}
