#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "AppCommunication.h"
#include "common/Operation.h"
#include "common/Request.h"
#include "panel/Jobs.h"

namespace panel {

struct Sight;

/// What the pages ask of the window that they are in. All on its thread.
class Host {
 public:
  virtual ~Host() = default;
  /// The uid of the chosen printer.
  virtual std::wstring chosen() const = 0;
  /// Starts an operation on the chosen printer and says how it goes; or why it cannot be, as when one of its kind is under way.
  virtual void start(const std::wstring& title, std::unique_ptr<examples::Operation> operation, Task::Told told) = 0;
  /// Cancels what is under way of these types on the chosen printer.
  virtual void cancel(std::initializer_list<AppComm::Type> types) = 0;
  /// Asks the chosen printer for its state soon.
  virtual void readSoon() = 0;
  virtual void say(Tone tone, const std::wstring& text) = 0;
  /// What was said lately, the newest last.
  virtual const std::deque<std::wstring>& history() const = 0;
};

/// One page of the window: controls, and what their commands do.
class Page : public AppWnd::CWnd {
 public:
  Page(Host& host, const qzstd::Rect& rect) : CWnd(rect), m_host(host) {}

  /// The window and its controls.
  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

  /// Another printer was chosen: what is shown of the former one goes.
  virtual void printerChanged() {}
  /// What the chosen printer looks like, after each run of its state task. Null: nothing is known yet.
  virtual void seen(const Sight* /*sight*/) {}
  /// It is about to be shown.
  virtual void entered() {}

 protected:
  using Make = std::function<std::unique_ptr<examples::Operation>()>;
  using Shown = std::function<void(const examples::Report& report)>;

  virtual void build() = 0;

  Host& host() const { return m_host; }

  /// Makes a control at `rect`; its rectangle lives as long as the page.
  template <class Control, class... Arguments>
  Control& put(int id, const qzstd::Rect& rect, Arguments&&... arguments) {
    m_rects.push_back(rect);
    auto control = std::make_unique<Control>(std::forward<Arguments>(arguments)..., m_rects.back());
    return take(id, std::move(control));
  }
  template <class Button>
  Button& putButton(int id, const qzstd::Rect& rect, const std::wstring& caption, std::function<void()> clicked) {
    m_rects.push_back(rect);
    const qzstd::Text text{caption};
    m_commands[id] = std::move(clicked);
    return take(id, std::make_unique<Button>(id, m_rects.back(), &text));
  }
  template <class Edit>
  Edit& putEdit(int id, const qzstd::Rect& rect, const std::wstring& value = {}) {
    m_rects.push_back(rect);
    const qzstd::Text text{value};
    return take(id, std::make_unique<Edit>(m_rects.back(), &text));
  }
  void putLabel(const qzstd::Rect& rect, const std::wstring& text);
  /// A heading of a part of the page.
  void putHeading(int top, const std::wstring& text);

  /// Runs an operation on the chosen printer. What `make` finds wrong with the entries is said, and nothing is run. `shown`
  /// gets the report, in the course of it and at the end, while that printer is still the chosen one.
  void run(const std::wstring& title, const Make& make, Shown shown = {});

 private:
  template <class Control>
  Control& take(int id, std::unique_ptr<Control> control) {
    auto& taken = *control;
    m_controls.push_back(std::move(control));
    taken.Create(GetWnd());
    // Edits and labels take no identifier; a page finds its controls by it all the same.
    ::SetWindowLongPtrW(taken.GetWnd(), GWLP_ID, id);
    return taken;
  }

  Host& m_host;
  std::deque<qzstd::Rect> m_rects;  // before the controls, which keep the addresses
  std::vector<std::unique_ptr<BaseWnd::BaseWindow>> m_controls;
  std::map<int, std::function<void()>> m_commands;
};

/// The pages, in the order of their tabs.
std::unique_ptr<Page> newStatePage(Host& host, const qzstd::Rect& rect);
std::unique_ptr<Page> newSettingsPage(Host& host, const qzstd::Rect& rect);
std::unique_ptr<Page> newMaintenancePage(Host& host, const qzstd::Rect& rect);
std::unique_ptr<Page> newNetworkPage(Host& host, const qzstd::Rect& rect);
std::unique_ptr<Page> newWifiPage(Host& host, const qzstd::Rect& rect);
std::unique_ptr<Page> newFirmwarePage(Host& host, const qzstd::Rect& rect);
std::unique_ptr<Page> newLogPage(Host& host, const qzstd::Rect& rect);

}  // namespace panel
