#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "simulator/Environment.h"
#include "simulator/Limits.h"
#include "simulator/ScenarioReader.h"
#include "simulator/Simulation.h"

namespace simulator {
namespace {

[[noreturn]] void refuse(const std::filesystem::path& path, std::string_view setting) {
  std::error_code ignored;
  const auto status = std::filesystem::status(path, ignored);
  const std::string what = !std::filesystem::exists(status)        ? "there is no such file"
                           : std::filesystem::is_directory(status) ? "is a folder"
                                                                   : "cannot be read";
  const std::string taker = setting.empty() ? "right is" : std::string(setting) + " takes";
  throw ScenarioError(shown(path) + ": " + what + "; " + taker + " the path of a scenario file");
}

std::string contentsOf(const std::filesystem::path& path, std::string_view setting) {
  std::ifstream file(path, std::ios::binary);
  std::string text(largestFile + 1, '\0');
  if (file) file.read(text.data(), static_cast<std::streamsize>(text.size()));
  if (!file.is_open() || file.bad() || (file.fail() && !file.eof())) refuse(path, setting);
  text.resize(static_cast<std::size_t>(file.gcount()));
  if (text.size() > largestFile) {
    throw ScenarioError(shown(path) + ": larger than " + std::to_string(largestFile) + " bytes; right is a smaller scenario");
  }
  return text;
}

Scenario readFile(const std::filesystem::path& path, std::string_view setting) {
  return readScenario(contentsOf(path, setting), shown(path));
}

}  // namespace

Scenario readScenarioFromEnvironment() {
  const std::filesystem::path path = scenarioPathFromEnvironment();
  return path.empty() ? readScenario(defaultScenario, "built-in scenario") : readFile(path, scenarioVariable);
}

void loadScenarioText(std::string_view xml, std::string_view name) {
  Simulation::instance().load(readScenario(xml, std::string(name)));
}

void loadScenarioFile(const std::filesystem::path& file, std::string_view setting) {
  Simulation::instance().load(readFile(file, setting));
}

void loadScenario() { Simulation::instance().load(readScenarioFromEnvironment()); }

}  // namespace simulator
