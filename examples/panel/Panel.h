#pragma once

#include <chrono>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "AppCommunication.h"
#include "Controls.h"
#include "panel/Jobs.h"
#include "panel/Page.h"
#include "panel/PrinterList.h"
#include "panel/Sight.h"
#include "panel/Task.h"
#include "panel/Views.h"

namespace panel {

/// The program's window: the printers at the left, the pages of the chosen one at the right, below what was last said. All of
/// it belongs to the thread that makes it, which never waits for a printer.
class Panel : public AppWnd::CWnd, private Host {
 public:
  using Clock = std::chrono::steady_clock;

  Panel();
  ~Panel() override;

  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

  /// Before `Create`.
  void addPrinter(std::shared_ptr<qzstd::PrinterInfo> printer);

 private:
  struct Printer {
    std::shared_ptr<qzstd::PrinterInfo> info;  // its state is the workers' own
    std::wstring uid;
    std::wstring name;
    std::shared_ptr<SightBoard> board = std::make_shared<SightBoard>();
    std::shared_ptr<Task> watch = nullptr;
  };

  // Host
  std::wstring chosen() const override;
  void start(const std::wstring& title, std::unique_ptr<examples::Operation> operation, Task::Told told) override;
  void cancel(std::initializer_list<AppComm::Type> types) override;
  void readSoon() override;
  void say(Tone tone, const std::wstring& text) override;
  const std::deque<std::wstring>& history() const override { return m_history; }

  void build();
  void watch(std::size_t index);
  void choosePrinter(std::size_t index);
  void choosePage(std::size_t index);
  void tick();
  void showMessage(Tone tone, const std::wstring& text);
  void close();
  __int64 placeOf(__int64 lParam) const;
  bool mayEnd() const;
  void draw(HDC dc, const RECT& area) const;

  std::vector<Printer> m_printers;
  PrinterList m_list;
  MessageView m_messageView;
  std::size_t m_chosen = 0;
  std::vector<std::unique_ptr<Page>> m_pages;
  std::vector<std::unique_ptr<AppWnd::BtnRadioRound>> m_tabs;
  std::deque<qzstd::Rect> m_tabRects;
  std::size_t m_page = 0;
  AppWnd::BtnMin m_minimize;
  AppWnd::BtnCls m_closeButton;
  Jobs m_jobs;
  std::deque<std::wstring> m_history;
  std::wstring m_message;
  std::optional<Clock::time_point> m_closing;
};

}  // namespace panel
