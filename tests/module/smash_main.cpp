/// module_smash here|library BYTES: writes so many bytes into an array of 32, in this program or in a library, both built with
/// the project's own flags. With more than fit, exit code 0 means that nobody noticed.

#include "module/Smash.h"

#include <cstdlib>
#include <cstring>
#include <string_view>

#include "platform/WindowsApi.h"

namespace {

int smashInLibrary(std::size_t bytes) {
  const HMODULE library = ::LoadLibraryW(L"module_smashed.dll");
  if (library == nullptr) return 2;
  const auto smash = reinterpret_cast<WriteBytes>(reinterpret_cast<void*>(::GetProcAddress(library, "writeBytes")));
  if (smash == nullptr) return 3;
  return smash(bytes);
}

}  // namespace

int main(int count, char** values) {
  if (count != 3) return 4;
  // A handler that would go on: the end must not ask it.
  ::AddVectoredExceptionHandler(1, [](EXCEPTION_POINTERS*) -> LONG { std::_Exit(5); });
  const std::string_view where = values[1];
  const auto bytes = static_cast<std::size_t>(std::atoi(values[2]));
  if (where == "here") return writeIntoArray(bytes);
  return where == "library" ? smashInLibrary(bytes) : 4;
}
