#include "simulator/Environment.h"

#include <cstdlib>

#include "simulator/SimulatedPrinters.h"

namespace simulator {

#if defined(_WIN32)
namespace {

bool isPair(std::wstring_view units, std::size_t first) {
  return first + 1 < units.size() && units[first] >= 0xd800 && units[first] <= 0xdbff && units[first + 1] >= 0xdc00 &&
         units[first + 1] <= 0xdfff;
}

}  // namespace
#endif

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
#if defined(_WIN32)
  // A name may hold halves of characters, which have no UTF-8.
  std::wstring units = path.native();
  for (std::size_t i = 0; i < units.size(); ++i) {
    if (isPair(units, i)) {
      ++i;
    } else if (units[i] >= 0xd800 && units[i] <= 0xdfff) {
      units[i] = 0xfffd;  // the replacement character
    }
  }
  const std::u8string text = std::filesystem::path(units).u8string();
#else
  const std::u8string text = path.u8string();
#endif
  return {text.begin(), text.end()};
}

}  // namespace simulator
