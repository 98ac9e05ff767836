#include "console/Terminal.h"

#include <array>
#include <optional>
#include <system_error>

#include "AppCommunication.h"  // brings in windows.h
#include "common/Text.h"

namespace examples {
namespace {

constexpr std::size_t kLongestLine = 4096;

// Never closed: the system runs the handler on a thread of its own, which may still be at it when the program ends.
HANDLE interruptEvent() {
  static const HANDLE event = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  if (event == nullptr)
    throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), "no event for Ctrl-C");
  return event;
}

// The end of the session is left to the system, which ends the process: the module needs no farewell.
BOOL WINAPI onControl(DWORD event) {
  return (event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT) && ::SetEvent(interruptEvent()) != 0;
}

bool isConsole(HANDLE handle) {
  DWORD mode = 0;
  return ::GetConsoleMode(handle, &mode) != 0;
}

std::string toUtf8(const std::wstring& text) {
  const int units = static_cast<int>(text.size());
  std::string bytes(
      static_cast<std::size_t>(::WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr)), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text.data(), units, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
  return bytes;
}

std::wstring fromUtf8(const std::string& bytes) {
  const int size = static_cast<int>(bytes.size());
  std::wstring text(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, bytes.data(), size, nullptr, 0)), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, bytes.data(), size, text.data(), static_cast<int>(text.size()));
  return text;
}

// In one piece, or a terminal shows it character by character. A reader that has gone is no reason to stop polling.
void write(DWORD stream, const std::wstring& text) {
  const auto output = ::GetStdHandle(stream);
  DWORD written = 0;
  if (isConsole(output)) {
    ::WriteConsoleW(output, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    return;
  }
  const auto bytes = toUtf8(text);
  for (std::size_t done = 0; done < bytes.size(); done += written) {
    if (::WriteFile(output, bytes.data() + done, static_cast<DWORD>(bytes.size() - done), &written, nullptr) == 0) return;
  }
}

std::optional<CONSOLE_SCREEN_BUFFER_INFO> screen() {
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (::GetConsoleScreenBufferInfo(::GetStdHandle(STD_OUTPUT_HANDLE), &info) == 0) return std::nullopt;
  return info;
}

// One less than there is room for, and never too few to show anything.
std::size_t fitting(int room) { return room > 2 ? static_cast<std::size_t>(room - 1) : 1; }

}  // namespace

Terminal::Terminal() : m_interactive(isConsole(::GetStdHandle(STD_OUTPUT_HANDLE))) {
  interruptEvent();
  ::SetConsoleCtrlHandler(onControl, TRUE);
}

Terminal::~Terminal() { ::SetConsoleCtrlHandler(onControl, FALSE); }

// A line that fills the window would wrap, and one that fills its last line would scroll it.
std::size_t Terminal::width() const {
  const auto info = screen();
  return info ? fitting(info->srWindow.Right - info->srWindow.Left + 1) : 79;
}

std::size_t Terminal::height() const {
  const auto info = screen();
  return info ? fitting(info->srWindow.Bottom - info->srWindow.Top + 1) : 24;
}

void Terminal::writeLine(const std::wstring& line) {
  m_rewritable = 0;
  write(STD_OUTPUT_HANDLE, line + L"\r\n");
}

void Terminal::rewriteLines(const std::vector<std::wstring>& lines) {
  const auto info = screen();
  if (m_rewritable > 0 && info) {
    const auto up = static_cast<SHORT>(m_rewritable);
    const auto top = static_cast<SHORT>(info->dwCursorPosition.Y > up ? info->dwCursorPosition.Y - up : 0);
    ::SetConsoleCursorPosition(::GetStdHandle(STD_OUTPUT_HANDLE), {0, top});
  }
  std::wstring text;
  const auto full = width();
  for (auto line : lines) {
    line.resize(full, L' ');  // what was there before may be longer
    text += line + L"\r\n";
  }
  write(STD_OUTPUT_HANDLE, text);
  m_rewritable = lines.size();
}

bool Terminal::waitForInterrupt(std::chrono::milliseconds limit, void* other) {
  const std::array<HANDLE, 2> handles{interruptEvent(), other};  // the first one wins
  const DWORD count = other == nullptr ? 1 : 2;
  return ::WaitForMultipleObjects(count, handles.data(), FALSE, static_cast<DWORD>(limit.count())) == WAIT_OBJECT_0;
}

std::wstring readLine() {
  const auto input = ::GetStdHandle(STD_INPUT_HANDLE);
  std::string line;
  char unit = 0;
  DWORD read = 0;
  while (line.size() < kLongestLine && ::ReadFile(input, &unit, 1, &read, nullptr) != 0 && read == 1 && unit != '\n')
    line += unit;
  if (line.ends_with('\r')) line.pop_back();
  return fromUtf8(line);
}

void writeError(const std::string& line) {
  write(STD_ERROR_HANDLE, L"printer-console: " + printable(fromUtf8(line)) + L"\r\n");
}

}  // namespace examples
