#include "simulator/Environment.h"

#include <cstdlib>

#include "simulator/SimulatedPrinters.h"

namespace simulator {

std::filesystem::path scenarioPathFromEnvironment() {
#if defined(_WIN32)
  // The narrow form would lose what the system's code page does not have.
  const std::string_view name = scenarioVariable;
  const wchar_t* value = ::_wgetenv(std::wstring(name.begin(), name.end()).c_str());
#else
  const char* value = std::getenv(scenarioVariable);
#endif
  return value == nullptr ? std::filesystem::path() : std::filesystem::path(value);
}

std::string shown(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace simulator
