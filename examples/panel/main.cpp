/// A small desktop application on the module: printers, their state, and what can be done with them.

#include "panel/Panel.h"

#include <shellapi.h>

#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "simulator/SimulatedPrinters.h"

namespace {

constexpr int kFailure = 1;
constexpr int kMistake = 2;
constexpr const wchar_t* kUsage = L"This program takes --scenario FILE, or nothing: then it shows the built-in printers.";

std::vector<std::wstring> arguments() {
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&::LocalFree)> words(::CommandLineToArgvW(::GetCommandLineW(), &count),
                                                                &::LocalFree);
  return words == nullptr ? std::vector<std::wstring>() : std::vector<std::wstring>(words.get() + 1, words.get() + count);
}

void tell(const std::string& utf8) {
  std::wstring text(utf8.size(), L'\0');
  text.resize(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()),
                                                             text.data(), static_cast<int>(text.size()))));
  ::MessageBoxW(nullptr, text.c_str(), L"Printers", MB_OK | MB_ICONERROR);
}

bool loadPrinters(const std::vector<std::wstring>& words) {
  if (words.empty()) {
    simulator::loadScenario();
    return true;
  }
  if (words.size() != 2 || words[0] != L"--scenario") {
    ::MessageBoxW(nullptr, kUsage, L"Printers", MB_OK | MB_ICONERROR);
    return false;
  }
  simulator::loadScenarioFile(words[1], "--scenario");
  return true;
}

void serve(const panel::Panel& window) {
  MSG message;
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (::IsDialogMessageW(window.GetWnd(), &message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

}  // namespace

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, wchar_t* /*commandLine*/, int /*show*/) {
  try {
    if (!loadPrinters(arguments())) return kMistake;
    panel::Panel window;
    for (const auto& uid : simulator::printerUids()) {
      window.addPrinter(std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(uid)));
    }
    if (!window.Create(nullptr)) {
      tell("The window cannot be made. Is there a display?");
      return kFailure;
    }
    serve(window);
    return 0;
  } catch (const simulator::ScenarioError& error) {
    tell(error.what());
    return kMistake;
  } catch (const std::exception& error) {
    tell(error.what());
    return kFailure;
  }
}
