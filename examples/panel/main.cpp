/// A small desktop application on the module: printers, their state, and what can be done with them.

#include "panel/Panel.h"

#include <shellapi.h>

#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "simulator/SimulatedPrinters.h"

namespace {

constexpr int kFailure = 1;
constexpr int kMistake = 2;
constexpr const char* kUsage =
    "This program takes --scenario FILE, or nothing: then it shows the built-in printers. With --unattended, what goes wrong "
    "is only written to the error output.";

struct Options {
  std::optional<std::wstring> scenario = std::nullopt;
  bool isUnattended = false;
  bool isUsable = true;
};

std::vector<std::wstring> arguments() {
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&::LocalFree)> words(::CommandLineToArgvW(::GetCommandLineW(), &count),
                                                                &::LocalFree);
  return words == nullptr ? std::vector<std::wstring>() : std::vector<std::wstring>(words.get() + 1, words.get() + count);
}

Options parse(const std::vector<std::wstring>& words) {
  Options options;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == L"--unattended") {
      options.isUnattended = true;
    } else if (words[i] == L"--scenario" && i + 1 < words.size() && !words[i + 1].starts_with(L"--")) {
      options.scenario = words[++i];
    } else {
      options.isUsable = false;
    }
  }
  return options;
}

void tell(const Options& options, const std::string& utf8) {
  const std::string line = "printer-panel: " + utf8 + "\n";
  DWORD written = 0;
  ::WriteFile(::GetStdHandle(STD_ERROR_HANDLE), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
  if (options.isUnattended) return;
  std::wstring text(utf8.size(), L'\0');
  text.resize(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()),
                                                             text.data(), static_cast<int>(text.size()))));
  ::MessageBoxW(nullptr, text.c_str(), L"Printers", MB_OK | MB_ICONERROR);
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
  const auto options = parse(arguments());
  if (!options.isUsable) {
    tell(options, kUsage);
    return kMistake;
  }
  try {
    options.scenario ? simulator::loadScenarioFile(*options.scenario, "--scenario") : simulator::loadScenario();
    panel::Panel window;
    for (const auto& uid : simulator::printerUids()) {
      window.addPrinter(std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(uid)));
    }
    if (!window.Create(nullptr)) {
      tell(options, "The window cannot be made. Is there a display?");
      return kFailure;
    }
    serve(window);
    return 0;
  } catch (const simulator::ScenarioError& error) {
    tell(options, error.what());
    return kMistake;
  } catch (const std::exception& error) {
    tell(options, error.what());
    return kFailure;
  }
}
