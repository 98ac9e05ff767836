/// module_loader use ROUNDS: as often, loads a library that uses the module, has it do so, and unloads both.
/// module_loader idle ROUNDS: as often, loads the module and unloads it, and nothing else; no handle may be left.
/// Exit code 0, or the number of the step that failed.

#include <cstdlib>
#include <string_view>

#include "module/Plugin.h"
#include "platform/WindowsApi.h"
#include "support/HandleCount.h"

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

int runIdleRound() {
  if (::GetModuleHandleW(kModule) != nullptr) return 1;
  const HMODULE library = ::LoadLibraryW(kModule);
  if (library == nullptr) return 2;
  if (::FreeLibrary(library) == 0) return 5;
  return ::GetModuleHandleW(kModule) == nullptr ? 0 : 6;
}

int runIdleRounds(int rounds) {
  // What is kept from the first round alone is the system's: the module, which was unloaded, does not know that there was one.
  if (const int failed = runIdleRound(); failed != 0) return failed;
  const int before = support::handleCount();
  if (before < 0) return 9;
  for (int round = 1; round < rounds; ++round) {
    if (const int failed = runIdleRound(); failed != 0) return failed;
  }
  return support::handleCount() == before ? 0 : 8;
}

int runRounds(int rounds) {
  for (int round = 0; round < rounds; ++round) {
    if (const int failed = runRound(); failed != 0) return failed;
  }
  return 0;
}

}  // namespace

int main(int count, char** values) {
  const int rounds = count == 3 ? std::atoi(values[2]) : 0;
  if (rounds < 1) return 7;
  const std::string_view mode = values[1];
  if (mode == "use") return runRounds(rounds);
  if (mode == "idle") return runIdleRounds(rounds);
  return 7;
}
