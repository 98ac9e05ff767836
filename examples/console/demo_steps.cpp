#include <algorithm>

#include "console/Demo.h"

namespace examples {

std::wstring shownCommand(const std::vector<std::wstring>& arguments) {
  std::wstring line = L"printer-console";
  bool isPassword = false;
  for (const auto& argument : arguments) {
    const auto shown = isPassword ? L"***" : argument;
    line += shown.find(L' ') == std::wstring::npos ? L' ' + shown : L" \"" + shown + L'"';
    isPassword = argument == L"--password";
  }
  return line;
}

std::vector<std::wstring> demoPrinters() {
  std::vector<std::wstring> printers;
  for (const auto& [arguments, outcome] : demoSteps()) {
    const auto option = std::ranges::find(arguments, L"--printer");
    if (option == arguments.end()) continue;
    if (const auto& uid = option[1]; std::ranges::find(printers, uid) == printers.end()) printers.push_back(uid);
  }
  return printers;
}

const std::vector<DemoStep>& demoSteps() {
  static const std::vector<DemoStep> steps{
      {{L"poll", L"--seconds", L"5"}},
      {{L"state", L"--printer", L"usb-lab"}},
      {{L"alarm", L"--printer", L"usb-lab"}},
      {{L"get", L"sleep-time", L"timed-clear", L"--printer", L"usb-lab"}},
      {{L"set", L"sleep-time", L"15", L"--printer", L"usb-lab"}},
      {{L"set", L"supplies-alarm", L"--printer", L"usb-lab"}},
      {{L"set", L"paper-alarm", L"1", L"--printer", L"usb-lab"}},
      {{L"set", L"timed-clear", L"2", L"--printer", L"usb-lab"}},
      {{L"set", L"silent-mode", L"1", L"--printer", L"usb-lab"}},
      {{L"get", L"sleep-time", L"timed-clear", L"--printer", L"usb-lab"}},
      {{L"align", L"print", L"--printer", L"usb-lab"}},
      {{L"align", L"values", L"1", L"0", L"-2", L"0", L"0", L"1", L"--printer", L"usb-lab"}},
      {{L"clean", L"--printer", L"net-hall"}, Outcome::Refused},  // it prints
      {{L"clean", L"--printer", L"usb-lab"}},
      {{L"qr", L"https://example.com/", L"--printer", L"usb-lab"}},
      {{L"network", L"set", L"--dns-server", L"192.0.2.53", L"--printer", L"usb-lab"}},
      {{L"network", L"get", L"--printer", L"usb-lab"}},
      {{L"firmware", L"register", L"--printer", L"usb-lab"}},
      {{L"firmware", L"check", L"--printer", L"usb-lab"}},
      {{L"firmware", L"upgrade", L"lab-2.0.bin", L"--printer", L"usb-lab"}},
      {{L"firmware", L"watch", L"--printer", L"usb-lab"}},
      {{L"pushscan", L"register", L"--printer", L"usb-lab"}},
      {{L"pushscan", L"get", L"--printer", L"usb-lab"}},
      {{L"wifi", L"list", L"--printer", L"usb-lab"}},
      {{L"wifi", L"join", L"Laboratory", L"--password", L"not so secret", L"--printer", L"usb-lab"}},
      {{L"wifi", L"list", L"--printer", L"usb-lab"}, Outcome::Refused},  // it is in a network now
  };
  return steps;
}

}  // namespace examples
