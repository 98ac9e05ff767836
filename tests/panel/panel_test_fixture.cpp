#include <array>
#include <fstream>

#include "PanelTest.h"

namespace paneltest {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr DWORD kLookAgain = 20;  // milliseconds
constexpr const wchar_t* kDialog = L"#32770";
// One control of each page, in the order of the tabs.
constexpr std::array kOnPage{ID_STATE_READ, ID_SETTINGS_READ,  ID_CLEAN,      ID_NETWORK_READ,
                             ID_WIFI_FIND,  ID_FIRMWARE_CHECK, ID_LOG_REFRESH};
constexpr LPARAM kInside = MAKELPARAM(6, 6);
constexpr WPARAM kSelectAll = 1;  // Ctrl and A
constexpr WPARAM kBackspace = 8;

struct Search {
  DWORD process = 0;
  std::wstring className;
  HWND found = nullptr;
};

BOOL CALLBACK lookAt(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  ::GetWindowThreadProcessId(window, &process);
  std::array<wchar_t, 64> name{};
  ::GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  if (process != search.process || search.className != name.data() || ::IsWindowVisible(window) == 0) return TRUE;
  search.found = window;
  return FALSE;
}

struct ControlSearch {
  int id = 0;
  HWND found = nullptr;
};

BOOL CALLBACK lookAtControl(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<ControlSearch*>(parameter);
  if (::GetDlgCtrlID(window) != search.id || ::IsWindowVisible(window) == 0) return TRUE;
  search.found = window;
  return FALSE;
}

HWND visibleControl(HWND window, int id) {
  ControlSearch search{.id = id};
  ::EnumChildWindows(window, lookAtControl, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

}  // namespace

std::string printer(const std::string& name, const std::string& attributes, const std::string& content) {
  const bool hasInterval = attributes.find("interval=") != std::string::npos;
  const bool hasConnection = attributes.find("connection=") != std::string::npos;
  return "<printer uid='" + name + "' manager-id='m-" + name + "' name='" + name + "' " +
         (hasConnection ? "" : "connection='usb' ctrl-port='yes' ") + (hasInterval ? "" : "interval='100' ") + attributes +
         ">" + content + "</printer>\n";
}

bool contains(const std::wstring& text, const std::wstring& part) { return text.find(part) != std::wstring::npos; }

PanelTest::PanelTest() {
  std::filesystem::remove_all(m_folder);
  std::filesystem::create_directories(m_folder);
}

PanelTest::~PanelTest() {
  m_panel.reset();
  std::filesystem::remove_all(m_folder);
}

void PanelTest::start(const std::vector<std::string>& printers) {
  std::string scenario = "<scenario>\n";
  for (const auto& each : printers) scenario += each;
  startWith(scenario + "</scenario>\n");
  m_window = awaitWindow(kDialog);
  ASSERT_NE(m_window, nullptr) << "the panel shows no window";
  const int last = ID_CARD_FIRST + static_cast<int>(printers.size()) - 1;
  ASSERT_TRUE(eventually([&] { return visibleControl(m_window, last) != nullptr; }));
}

void PanelTest::startWith(const std::string& scenario, const std::vector<std::wstring>& options) {
  const auto file = m_folder / L"scenario.xml";
  std::ofstream(file, std::ios::binary) << scenario;
  std::vector<std::wstring> arguments{L"--scenario", file.wstring()};
  arguments.insert(arguments.end(), options.begin(), options.end());
  m_panel = std::make_unique<support::ChildProcess>(L"printer-panel.exe", arguments);
}

HWND PanelTest::awaitWindow(const std::wstring& className) const {
  Search search{.process = m_panel->id(), .className = className};
  eventually([&] { return ::EnumWindows(lookAt, reinterpret_cast<LPARAM>(&search)), search.found != nullptr; });
  return search.found;
}

HWND PanelTest::control(int id) const {
  const HWND found = visibleControl(m_window, id);
  EXPECT_NE(found, nullptr) << "no control " << id << " is seen";
  return found;
}

std::wstring PanelTest::textOf(HWND window) const {
  std::array<wchar_t, 8192> text{};
  DWORD_PTR length = 0;
  EXPECT_TRUE(m_messenger.send(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), &length))
      << "the panel does not answer";
  return {text.data(), text.data() + length};
}

void PanelTest::click(HWND control) {
  ::PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, kInside);
  ::PostMessageW(control, WM_LBUTTONUP, 0, kInside);
}

void PanelTest::show(Page page) const {
  const auto index = static_cast<std::size_t>(page);
  click(ID_PAGE_FIRST + static_cast<int>(page));
  EXPECT_TRUE(eventually([&] { return visibleControl(m_window, kOnPage[index]) != nullptr; })) << "no page " << index;
}

void PanelTest::key(HWND control, unsigned virtualKey) {
  ::PostMessageW(control, WM_KEYDOWN, virtualKey, 1);
  ::PostMessageW(control, WM_KEYUP, virtualKey, static_cast<LPARAM>(0xc0000001));
}

void PanelTest::type(int id, const std::wstring& text) const {
  const HWND edit = control(id);
  click(edit);
  ::PostMessageW(edit, WM_CHAR, kSelectAll, 1);
  if (text.empty()) ::PostMessageW(edit, WM_CHAR, kBackspace, 1);
  for (const auto unit : text) ::PostMessageW(edit, WM_CHAR, unit, 1);
}

HWND PanelTest::focused() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  ::GetGUIThreadInfo(::GetWindowThreadProcessId(m_window, nullptr), &info);
  return info.hwndFocus;
}

bool PanelTest::eventually(const std::function<bool()>& isSo) {
  const auto deadline = steady_clock::now() + (HasFailure() ? milliseconds::zero() : kPatience);
  while (!isSo()) {
    if (steady_clock::now() >= deadline) return false;
    ::Sleep(kLookAgain);
  }
  return true;
}

void PanelTest::awaitText(int id, const std::wstring& part) const {
  const HWND shown = control(id);
  if (shown == nullptr) return;
  EXPECT_TRUE(eventually([&] { return contains(textOf(shown), part); }))
      << "not seen: " << testing::PrintToString(part) << "; last seen: " << testing::PrintToString(textOf(shown));
}

}  // namespace paneltest
