#pragma once

#include <filesystem>
#include <string>

/// The one place that knows how the platform spells paths and environment variables.
namespace simulator {

/// The path that the environment names, empty without one.
std::filesystem::path scenarioPathFromEnvironment();

/// The path as UTF-8, for messages.
std::string shown(const std::filesystem::path& path);

}  // namespace simulator
