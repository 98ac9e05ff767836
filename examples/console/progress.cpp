#include "console/Progress.h"

#include <algorithm>

#include "console/Text.h"

namespace console {
namespace {

constexpr std::size_t kBar = 40;
constexpr std::size_t kShortestBar = 10;  // below this the number alone says more

std::wstring bar(std::int32_t percent, std::size_t length) {
  const auto full = static_cast<std::size_t>(std::clamp(percent, 0, 100)) * length / 100;
  return L"[" + std::wstring(full, L'#') + std::wstring(length - full, L'.') + L"] ";
}

std::wstring known(const Stage& stage, std::chrono::milliseconds elapsed) {
  if (!stage.percent) return secondsText(elapsed) + L", notices " + std::to_wstring(stage.notices);
  return std::to_wstring(*stage.percent) + L" %, " + secondsText(elapsed);
}

}  // namespace

std::wstring renderProgress(const std::wstring& command, const Stage& stage, std::chrono::milliseconds elapsed) {
  return command + L"  " + known(stage, elapsed);
}

std::wstring renderBar(const std::wstring& command, const Stage& stage, std::chrono::milliseconds elapsed, std::size_t width) {
  const auto line = renderProgress(command, stage, elapsed);
  const auto taken = line.size() + 3;  // the bar's brackets and the blank behind it
  if (!stage.percent || width < taken + kShortestBar) return cut(line, width);
  return command + L"  " + bar(*stage.percent, std::min(width - taken, kBar)) + known(stage, elapsed);
}

}  // namespace console
