/// The scenario reader: any bytes are a scenario within the limits, or a mistake that is told with its line.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>

#include "fuzz/ScenarioLimits.h"
#include "fuzz/ScenarioText.h"
#include "fuzz/Target.h"
#include "simulator/ScenarioReader.h"
#include "simulator/SimulatedPrinters.h"

namespace {

/// What reading came to: the scenario, written out again, or the error line.
struct Answer {
  bool isRead = false;
  std::string text;
  friend bool operator==(const Answer&, const Answer&) = default;
};

void PrintTo(const Answer& answer, std::ostream* out) { *out << (answer.isRead ? "read: " : "refused: ") << answer.text; }

Answer answerTo(std::string_view text) {
  try {
    const simulator::Scenario scenario = simulator::readScenario(text, "f.xml");
    fuzz::expectWithinLimits(scenario);
    return {true, fuzz::scenarioText(scenario)};
  } catch (const simulator::ScenarioError& error) {
    return {false, error.what()};
  }
}

/// "f.xml:LINE: what", one line of bounded length, and a line that the file has.
void expectErrorLine(const std::string& error, std::string_view text) {
  constexpr std::string_view start = "f.xml:";
  constexpr std::size_t kLongest = 2000;
  ASSERT_TRUE(error.starts_with(start)) << error;
  std::int64_t line = 0;
  const auto [end, code] = std::from_chars(error.data() + start.size(), error.data() + error.size(), line);
  const std::string_view what(end, error.data() + error.size());
  EXPECT_TRUE(code == std::errc() && what.starts_with(": ") && what.size() > 2) << error;
  EXPECT_TRUE(line >= 1 && line <= 1 + std::ranges::count(text, '\n')) << error;
  EXPECT_TRUE(std::ranges::none_of(error, [](unsigned char unit) { return unit < 0x20 || unit == 0x7f; })) << error;
  EXPECT_LT(error.size(), kLongest);
}

/// True when `reference`, what stands between an '&' and a ';', is that of a character which a text can hold.
bool standsForACharacter(std::string_view reference) {
  constexpr std::array<std::string_view, 5> known{"amp", "lt", "gt", "quot", "apos"};
  if (std::ranges::find(known, reference) != known.end()) return true;
  if (!reference.starts_with("#")) return false;
  const int base = reference.starts_with("#x") ? 16 : 10;
  reference.remove_prefix(base == 16 ? 2 : 1);
  std::uint32_t code = 0;
  const auto [end, error] = std::from_chars(reference.data(), reference.data() + reference.size(), code, base);
  const bool isCode = error == std::errc() && end == reference.data() + reference.size();
  return isCode && code != 0 && code <= 0x10ffff && (code < 0xd800 || code > 0xdfff);
}

/// Each '&' outside of comments begins a reference. Declarations may hold anything; texts with one are not looked at.
void expectReferences(std::string_view text) {
  if (text.find("<?") != std::string_view::npos) return;
  for (std::size_t place = 0; (place = text.find_first_of("<&", place)) != std::string_view::npos; ++place) {
    const std::string_view rest = text.substr(place);
    if (rest.starts_with("<!--")) place += std::min(rest.size() - 1, rest.find("-->", 4));
    if (rest.front() == '&') {
      EXPECT_TRUE(standsForACharacter(rest.substr(1, rest.find(';') - 1))) << rest.substr(0, 20);
    }
  }
}

/// What must hold of a text that was read: nothing of it can be taken away or added without notice.
void expectStrict(std::string_view text, const Answer& answer) {
  EXPECT_EQ(answerTo(answer.text), answer) << "what was written from it";
  EXPECT_EQ(answerTo(std::string(text) + "<!-- -->"), answer);
  EXPECT_FALSE(answerTo(std::string(text) + "<x/>").isRead);
  EXPECT_FALSE(answerTo(std::string(text) + "x").isRead);
  EXPECT_FALSE(answerTo(std::string(text) + "</x>").isRead);
  EXPECT_FALSE(answerTo(text.substr(0, text.rfind('>'))).isRead);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(bytes), size);
  const Answer answer = answerTo(text);
  EXPECT_EQ(answerTo(text), answer) << "at the second time";
  if (answer.isRead) {
    expectReferences(text);
    expectStrict(text, answer);
  } else {
    expectErrorLine(answer.text, text);
  }
  return 0;
}
