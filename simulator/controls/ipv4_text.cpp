#include "simulator/controls/Ipv4Text.h"

namespace controls {
namespace {

bool isByte(std::wstring_view digits) {
  if (digits.empty() || digits.size() > 3) return false;
  int number = 0;
  for (const wchar_t digit : digits) {
    if (digit < L'0' || digit > L'9') return false;
    number = number * 10 + (digit - L'0');
  }
  return number <= 255;
}

}  // namespace

bool isIpv4(std::wstring_view text) {
  for (int dots = 0; dots < 3; ++dots) {
    const auto dot = text.find(L'.');
    if (dot == text.npos || !isByte(text.substr(0, dot))) return false;
    text.remove_prefix(dot + 1);
  }
  return isByte(text);
}

}  // namespace controls
