#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Messenger.h"
#include "examples/panel/Ids.h"
#include "support/ChildProcess.h"
#include "wnd/WindowThread.h"

namespace paneltest {

/// In the order of the tabs.
enum class Page { State, Settings, Maintenance, Network, Wifi, Firmware, Log };

/// A printer of a scenario. `attributes` and `content` are the scenario's own words.
std::string printer(const std::string& name, const std::string& attributes = "", const std::string& content = "");

/// Runs printer-panel.exe and drives it as a person does: by mouse and keyboard, looking at what its windows show.
///
/// Nothing here goes on when the panel does not answer: each message has a second (`Messenger`), each wait `kPatience`.
class PanelTest : public testing::Test {
 protected:
  static constexpr std::chrono::milliseconds kPatience = std::chrono::seconds(20);

  PanelTest();
  ~PanelTest() override;

  /// With these printers, chosen the first, until all of them are in the list.
  void start(const std::vector<std::string>& printers);
  /// With a scenario's text, which may have a mistake. Waits for nothing.
  void startWith(const std::string& scenario, const std::vector<std::wstring>& options = {});

  const support::ChildProcess& panel() const { return *m_panel; }
  /// The panel's window; null when there is none in time. A message box is found by its class.
  HWND window() const { return m_window; }
  HWND awaitWindow(const std::wstring& className) const;

  /// A control that can be seen, wherever it is; null, and a failure, when there is none.
  HWND control(int id) const;
  std::wstring text(int id) const { return textOf(control(id)); }
  std::wstring message() const { return text(ID_MESSAGE); }
  std::wstring card(int index) const { return text(ID_CARD_FIRST + index); }

  void click(int id) const { click(control(id)); }
  static void click(HWND control);
  static void key(HWND control, unsigned virtualKey);
  /// Until its controls are seen.
  void show(Page page) const;
  void choose(int card) const { click(ID_CARD_FIRST + card); }
  /// In place of what the edit holds.
  void type(int id, const std::wstring& text) const;
  HWND focused() const;

  /// Whether it comes true in time. A test that has failed already waits no more.
  static bool eventually(const std::function<bool()>& isSo);
  /// Each fails when it does not come true in time.
  void awaitText(int id, const std::wstring& part) const;
  void awaitMessage(const std::wstring& part) const { awaitText(ID_MESSAGE, part); }
  void awaitCard(int index, const std::wstring& part) const { awaitText(ID_CARD_FIRST + index, part); }

  /// Whether its thread takes messages.
  bool answers() const { return m_messenger.send(m_window, WM_NULL); }

  std::wstring textOf(HWND window) const;

 private:
  const WindowThread m_idle;
  const Messenger m_messenger{m_idle.parent()};
  const std::filesystem::path m_folder = L"C:\\panel-test";
  std::unique_ptr<support::ChildProcess> m_panel;
  HWND m_window = nullptr;
};

bool contains(const std::wstring& text, const std::wstring& part);

}  // namespace paneltest
