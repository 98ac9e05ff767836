#include "Totals.h"

#include <string_view>

namespace soak {
namespace {

using namespace std::chrono_literals;

// Seen in 1000 s, at least: 130 failed calls and more of the others; two hangs (five where it is looked at), as few
// calls meet the moment of one.
constexpr auto kSoon = 300s;
constexpr auto kLate = 3'000s;

}  // namespace

std::string lastLine(int printers, const Totals& totals) {
  return "printers " + std::to_string(printers) + ", runs " + std::to_string(totals.runs) + ", notices " +
         std::to_string(totals.notices) + ", faults " + std::to_string(totals.failures + totals.hangs + totals.refusals) +
         " (failed calls " + std::to_string(totals.failures) + ", hangs " + std::to_string(totals.hangs) +
         ", refused notices " + std::to_string(totals.refusals) + "), differences " + std::to_string(totals.differences) +
         (totals.setAside == 0 ? "" : ", not decided " + std::to_string(totals.setAside) + " printers");
}

std::optional<std::string> unseen(const Totals& totals, std::chrono::seconds ofPrinters) {
  const struct {
    std::string_view name;
    std::uint64_t count;
    std::chrono::seconds from;
  } figures[] = {{"runs", totals.runs, kSoon},
                 {"notices", totals.notices, kSoon},
                 {"failed calls", totals.failures, kSoon},
                 {"hangs", totals.hangs, kLate},
                 {"refused notices", totals.refusals, kSoon}};
  std::string names;
  for (const auto& figure : figures) {
    if (figure.count == 0 && ofPrinters >= figure.from) names += (names.empty() ? "" : ", ") + std::string(figure.name);
  }
  if (names.empty()) return std::nullopt;
  return "the soak shows nothing, as it had none of these: " + names + "\n";
}

}  // namespace soak
