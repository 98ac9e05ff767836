#include "console/Progress.h"

#include <algorithm>

#include "common/Text.h"

namespace examples {
namespace {

constexpr std::size_t kBar = 40;
constexpr std::size_t kShortestBar = 10;  // below this the number alone says more

std::wstring bar(std::int32_t percent, std::size_t length) {
  const auto full = static_cast<std::size_t>(std::clamp(percent, 0, 100)) * length / 100;
  return L"[" + std::wstring(full, L'#') + std::wstring(length - full, L'.') + L"] ";
}

std::wstring known(Percent percent, std::chrono::milliseconds elapsed) {
  return (percent ? std::to_wstring(*percent) + L" %, " : L"") + secondsText(elapsed);
}

}  // namespace

std::wstring renderProgress(const std::wstring& command, Percent percent, std::chrono::milliseconds elapsed) {
  return command + L"  " + known(percent, elapsed);
}

std::wstring renderBar(const std::wstring& command, Percent percent, std::chrono::milliseconds elapsed, std::size_t width) {
  const auto line = renderProgress(command, percent, elapsed);
  const auto taken = line.size() + 3;  // the bar's brackets and the blank behind it
  if (!percent || width < taken + kShortestBar) return cut(line, width);
  return command + L"  " + bar(*percent, std::min(width - taken, kBar)) + known(percent, elapsed);
}

}  // namespace examples
