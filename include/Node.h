#pragma once

#include <any>
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "Export.h"

namespace AppWnd {
class CWnd;
}
namespace qzstd {
struct PrinterInfo;
}

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-qualifiers"  // some accessors return `const` values: the interface has them so
#endif

namespace AppComm {

/// What a task asks of the printer. The numbers are part of the interface with the application.
enum class Type : std::int32_t {
  State = 0,
  GetAlarm = 1,
  GetDevParam = 2,
  SetSupplyAlarm = 3,
  SetSleepTime = 4,
  SetPaperAlarm = 5,
  SetSilentMode = 6,
  SetTimedClear = 7,
  GetPushscan = 8,
  RegPushscan = 9,
  RegUpgrade = 10,
  PrintAdjust = 11,
  PrintClean = 12,
  PrintQRcode = 13,
  GetNetwork = 14,
  SetNetwork = 15,
  SetAdjust = 16,
  FirmNewCheck = 17,
  FirmUpgrade = 18,
  FirmUpCheck = 19,
  GetWifiList = 20,
  SetWifiList = 21,
};

/// One task: a printer, the window that is told, the code it is told with, the operation, and the operation's record.
///
/// Always held by `std::shared_ptr`. After `Add` the task is shared with the printer's worker: the five flags may be used from
/// any thread at any time (each is one atomic byte, written by exchange); the resource is set before `Add` and not replaced
/// while the task is in a list; everything else is fixed by the constructor. The task runs once unless `setRepeat` was called.
class APPCOMM_API Node {
 public:
  /// Copies the printer's uid once: a later change of `info->uid` is not seen. `info` must not be null; `wnd` may be null only
  /// if the task never notifies. `code` is handed back with each notice and never interpreted.
  Node(std::shared_ptr<qzstd::PrinterInfo> info, std::shared_ptr<AppWnd::CWnd> wnd, long code, Type type);
  ~Node();
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  /// The way an application makes tasks: object and reference count in one allocation. Throws `std::bad_alloc`.
  static std::shared_ptr<Node> Instance(std::shared_ptr<qzstd::PrinterInfo> info, std::shared_ptr<AppWnd::CWnd> wnd, long code,
                                        Type type);

  /// The task leaves its list after one run (the state of a new task).
  void setOnce();
  /// The task runs again and again, paced by its list's interval.
  void setRepeat();
  const bool getOnce() const;

  /// The task leaves its list at the next opportunity. Cannot be undone.
  void setDelete();
  bool getDelete() const;

  /// A result has been passed to the window.
  void setUpdate();
  /// Whether a result has arrived since the last call. A hint: reading and clearing are two steps, and a `setUpdate` that lands
  /// between them is lost.
  bool getUpdate();

  /// Whether the NPA exchange was asked for; `StartNPA` and `PauseNPA` switch it for all tasks of a type.
  void setReqNPA();
  void resetReqNPA();
  bool getReqNPA() const;

  /// NPA mark of the run in progress: set by the worker before each run, cleared by a handler that exchanged nothing.
  void setNPAFlag();
  void resetNPAFlag();
  bool getNPAFlag() const;

  /// The printer description's `interval` at this moment, milliseconds. A list takes it once, when it is made.
  const long Interval() const;
  const long getCode() const;
  const Type getType() const;
  const std::wstring& getUID() const;
  std::shared_ptr<qzstd::PrinterInfo> getInfo() const;
  const std::shared_ptr<AppWnd::CWnd> getWnd() const;

  /// The operation's record, by convention a `std::shared_ptr`, not null, to one of the types in Records.h. The previous value
  /// is destroyed before the new one is stored.
  void setResource(std::any value);
  /// A copy of the holder; a shared pointer in it refers to the same record.
  std::any getResource() const;

 private:
  std::shared_ptr<qzstd::PrinterInfo> m_info;
  std::shared_ptr<AppWnd::CWnd> m_wnd;
  std::wstring m_uid;
  long m_code;
  Type m_type;
  std::atomic<bool> m_once{true};
  std::atomic<bool> m_delete{false};
  std::atomic<bool> m_reqNPA{false};
  std::atomic<bool> m_NPAFlag{false};
  std::atomic<bool> m_update{false};
  std::any m_resource;

  static_assert(sizeof(std::atomic<bool>) == 1 && std::atomic<bool>::is_always_lock_free, "a task flag is one atomic byte");
};

}  // namespace AppComm

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
