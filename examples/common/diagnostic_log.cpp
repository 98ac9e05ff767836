#include "common/DiagnosticLog.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>

#include "common/Handle.h"

namespace examples {
namespace {

constexpr const wchar_t* kFolder = L"C:\\log";
constexpr const wchar_t* kIniFile = L"C:\\log\\orva_config.ini";
constexpr const wchar_t* kSection = L"Corvane";
constexpr std::array kKinds{L"Error", L"Warning", L"Debug", L"Info"};
constexpr DWORD kMostBytes = 64 * 1024;  // of the log's end: far more than the lines that are shown

[[noreturn]] void fail(const char* what) {
  throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), what);
}

// As the C runtime's start code takes arguments apart: backslashes count only before a quote.
std::wstring quoted(const std::wstring& argument) {
  std::wstring line = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t unit : argument) {
    if (unit == L'"') line.append(backslashes + 1, L'\\');
    backslashes = unit == L'\\' ? backslashes + 1 : 0;
    line += unit;
  }
  return line.append(backslashes, L'\\') + L'"';
}

std::wstring ownPath() {
  std::wstring path(32768, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  if (path.empty()) fail("this program's own path cannot be found");
  return path;
}

// Both programs get a Ctrl-C. The one that works ends with it, the one that waits ends with the other.
BOOL WINAPI leaveToChild(DWORD event) { return event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT; }

std::wstring endOfFile(HANDLE file) {
  LARGE_INTEGER size{};
  if (::GetFileSizeEx(file, &size) == 0) return {};
  const auto bytes = static_cast<DWORD>(std::min<LONGLONG>(size.QuadPart, kMostBytes));
  ::SetFilePointer(file, -static_cast<LONG>(bytes), nullptr, FILE_END);
  std::wstring text(bytes / sizeof(wchar_t), L'\0');
  DWORD read = 0;
  if (::ReadFile(file, text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t)), &read, nullptr) == 0) return {};
  text.resize(read / sizeof(wchar_t));
  return text;
}

}  // namespace

void switchLogOn() {
  if (::CreateDirectoryW(kFolder, nullptr) == 0 && ::GetLastError() != ERROR_ALREADY_EXISTS) fail("C:\\log cannot be made");
  for (const auto* key : {L"Error", L"Debug"}) {
    if (::WritePrivateProfileStringW(kSection, key, L"1", kIniFile) == 0) fail("C:\\log\\orva_config.ini cannot be written");
  }
}

bool isLogOn() {
  return std::ranges::any_of(kKinds, [](const wchar_t* kind) {
    std::array<wchar_t, 3> value{};  // room to tell "1" from what is longer
    ::GetPrivateProfileStringW(kSection, kind, nullptr, value.data(), static_cast<DWORD>(value.size()), kIniFile);
    return std::wstring_view(value.data()) == L"1";
  });
}

int runAgain(const std::vector<std::wstring>& arguments) {
  const auto program = ownPath();
  auto commandLine = quoted(program);
  for (const auto& argument : arguments) commandLine += L' ' + quoted(argument);
  ::SetConsoleCtrlHandler(leaveToChild, TRUE);
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION process{};
  if (::CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process) ==
      0) {
    fail("this program cannot be started again");
  }
  const Handle child(process.hProcess);
  const Handle thread(process.hThread);
  ::WaitForSingleObject(child.get(), INFINITE);
  DWORD code = 1;
  if (::GetExitCodeProcess(child.get(), &code) == 0) fail("the program's exit code cannot be read");
  return static_cast<int>(code);
}

std::vector<std::wstring> lastLogLines(std::size_t count) {
  const Handle file(::CreateFileW(kLogFile, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.valid()) return {};
  const auto text = endOfFile(file.get());
  std::vector<std::wstring> lines;
  for (std::size_t begin = 0, end = 0; (end = text.find(L"\r\n", begin)) != std::wstring::npos; begin = end + 2) {
    lines.push_back(text.substr(begin, end - begin));
  }
  if (lines.size() > count) lines.erase(lines.begin(), lines.end() - static_cast<std::ptrdiff_t>(count));
  return lines;
}

}  // namespace examples
