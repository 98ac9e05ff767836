#include <cstdlib>

#include "Support.h"

namespace simulator::test {
namespace {

void setScenario(const std::filesystem::path& path) {
#if defined(_WIN32)
  ::_wputenv_s(L"PRINTER_SCENARIO", path.c_str());
#else
  path.empty() ? ::unsetenv(scenarioVariable) : ::setenv(scenarioVariable, path.c_str(), 1);
#endif
}

class Environment : public SimulatorTest {
 protected:
  Environment() : m_folder(std::filesystem::temp_directory_path() / folderName()) {
    std::filesystem::create_directories(m_folder);
    setScenario({});
  }

  ~Environment() override {
    setScenario({});
    std::filesystem::remove_all(m_folder);
  }

  std::filesystem::path write(const std::filesystem::path& name, const std::string& text) {
    std::ofstream(m_folder / name, std::ios::binary) << text;
    return m_folder / name;
  }

  const std::filesystem::path m_folder;

 private:
  /// No two runs at the same time share it.
  static std::string folderName() {
    return "simulator-tests-" + std::to_string(std::chrono::system_clock::now().time_since_epoch().count());
  }
};

std::string errorOf(const std::filesystem::path& file, std::string_view setting = {}) {
  try {
    loadScenarioFile(file, setting);
  } catch (const ScenarioError& error) {
    return error.what();
  }
  return "";
}

std::string shown(const std::filesystem::path& path) {
  const auto text = path.u8string();
  return {text.begin(), text.end()};
}

TEST_F(Environment, WithoutTheVariableTheBuiltInScenarioIsUsed) {
  EXPECT_EQ(printerUids(), (std::vector<std::wstring>{L"usb-desk", L"net-hall", L"usb-lab"}));
}

TEST_F(Environment, FirstCallLoadsWhatTheVariableNames) {
  setScenario(write("one.xml", onePrinter("jobs='4'")));
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 4);
}

TEST_F(Environment, VariableIsReadOncePerSession) {
  setScenario(write("one.xml", onePrinter("jobs='4'")));
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 4);
  setScenario(write("two.xml", onePrinter("jobs='5'")));
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 4);
  reset();
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 5);
}

TEST_F(Environment, PathMayHaveAnyCharacter) {
  setScenario(write(std::filesystem::path(u8"dr\u00fccker \u6f22 \U0001f5a8.xml"), onePrinter("jobs='4'")));
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), 4);
}

TEST_F(Environment, ProgramCanCatchAnErrorAndGoOn) {
  setScenario(write("bad.xml", "<scenario/>"));
  EXPECT_THROW(loadScenario(), ScenarioError);
  EXPECT_THROW(printerUids(), ScenarioError);
  loadScenarioText(onePrinter(""));
  EXPECT_EQ(printerUids(), std::vector<std::wstring>{L"a"});
}

TEST_F(Environment, ErrorNamesTheFile) {
  const auto file = write("bad.xml", "\n<scenario/>");
  EXPECT_EQ(errorOf(file), shown(file) + ":2: no <printer> in <scenario>; right is at least one");
}

TEST_F(Environment, NameThatIsNoTextIsShownWithReplacements) {
#if defined(_WIN32)
  const auto file = m_folder / std::wstring{L'a', wchar_t{0xd800}, L'b', wchar_t{0xd83d}, wchar_t{0xdda8}};
  const std::string name =
      "a\xef\xbf\xbd"
      "b\xf0\x9f\x96\xa8";
#else
  const auto file = m_folder /
                    "a\xff"
                    "b";
  const std::string name =
      "a\xff"
      "b";  // any bytes but two are a name here
#endif
  const std::string error = errorOf(file);
  EXPECT_NE(error.find(name + ": there is no such file; right is"), std::string::npos) << error;
}

TEST_F(Environment, MissingFileIsAnError) {
  const auto file = m_folder / "none.xml";
  EXPECT_EQ(errorOf(file), shown(file) + ": there is no such file; right is the path of a scenario file");
}

TEST_F(Environment, ErrorOfAFileThatCannotBeOpenedNamesTheSetting) {
  const auto file = m_folder / "none.xml";
  const std::string error = shown(file) + ": there is no such file; ";
  EXPECT_EQ(errorOf(file, "--file"), error + "--file takes the path of a scenario file");
  setScenario(file);
  try {
    loadScenario();
    FAIL() << "it has been loaded";
  } catch (const ScenarioError& thrown) {
    EXPECT_EQ(thrown.what(), error + "PRINTER_SCENARIO takes the path of a scenario file");
  }
}

TEST_F(Environment, FolderIsAnError) {
  EXPECT_EQ(errorOf(m_folder), shown(m_folder) + ": is a folder; right is the path of a scenario file");
}

TEST_F(Environment, HugeFileIsAnError) {
  const auto file = write("huge.xml", std::string(4'194'305, ' '));
  EXPECT_EQ(errorOf(file), shown(file) + ": larger than 4194304 bytes; right is a smaller scenario");
}

using EnvironmentDeathTest = Environment;

TEST_F(EnvironmentDeathTest, FirstCallWithABadScenarioEndsTheProcessWithItsLine) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  setScenario(write("bad.xml", "\n<scenario/>"));
  EXPECT_EXIT(AppMgr_GetPrintingJob(L"ma"), testing::ExitedWithCode(2), "bad\\.xml:2: no <printer> in <scenario>");
}

}  // namespace
}  // namespace simulator::test
