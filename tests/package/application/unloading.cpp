/// A program that unloads the module and goes on. Exit code 0, or the number of the step that failed.

#include <chrono>

#include "common/UnloadableLibrary.h"

int main() {
  examples::UnloadableLibrary printers(L"printers.dll");
  if (!printers.function<bool()>("watchPrinters")()) return 1;
  if (::GetModuleHandleW(L"AppCommunication.dll") == nullptr) return 2;
  if (!printers.unload(std::chrono::minutes(1))) return 3;
  return ::GetModuleHandleW(L"AppCommunication.dll") == nullptr ? 0 : 4;
}
