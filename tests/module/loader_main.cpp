/// module_loader ROUNDS: as often, loads a library that uses the module, has it do so, and unloads both. Exit code 0, or the
/// number of the step that failed.

#include <cstdlib>

#include "module/Plugin.h"
#include "platform/WindowsApi.h"

namespace {

constexpr const wchar_t* kModule = L"AppCommunication.dll";

int runRound() {
  if (::GetModuleHandleW(kModule) != nullptr) return 1;
  const HMODULE library = ::LoadLibraryW(L"module_plugin.dll");
  if (library == nullptr) return 2;
  if (::GetModuleHandleW(kModule) == nullptr) return 3;
  const auto use = reinterpret_cast<UseModule>(reinterpret_cast<void*>(::GetProcAddress(library, "useModule")));
  if (use == nullptr || !use()) return 4;
  if (::FreeLibrary(library) == 0) return 5;
  return ::GetModuleHandleW(kModule) == nullptr ? 0 : 6;
}

}  // namespace

int main(int count, char** values) {
  const int rounds = count == 2 ? std::atoi(values[1]) : 0;
  if (rounds < 1) return 7;
  for (int round = 0; round < rounds; ++round) {
    if (const int failed = runRound(); failed != 0) return failed;
  }
  return 0;
}
