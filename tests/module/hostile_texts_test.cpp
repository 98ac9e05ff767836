/// Texts that did not come from this system in every line of the log that has one: they are written as they are, and nothing in
/// them is acted upon.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "AppCommunication.h"
#include "fakes/MakerLibraries.h"
#include "support/LoggingOn.h"
#include "support/ThreadCount.h"

namespace {

using namespace std::chrono_literals;

// Every format of the module that takes a text: the printer's uid, or its upgrade key.
const wchar_t* const kFormats[] = {
    L"comm add entry. uid: %ws.",
    L"comm thread list enter, uid: %ws",
    L"wait, uid: %ws, duration: %ld, chkDuration: %ld, npaDuration: %ld, interval: %ld.",
    L"Communication beg, uid: %ws",
    L"register firmware upgrade (key: %ws) result: %d",
    L"Communication end, uid: %ws, result: %d",
    L"comm thread list leave, uid: %ws",
};

// The fields in front of a message: the names of levels and of functions, which are the module's own.
constexpr const char* kFieldFormat = "[%ws] ";

std::string contentsOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Whether the format has a conversion for a text, of whatever width.
bool takesText(std::string_view format) {
  for (auto start = format.find('%'); start != std::string_view::npos; start = format.find('%', start + 1)) {
    start = std::min(format.find_first_not_of("-+ #0123456789.*hlwILjzt", start + 1), format.size() - 1);
    if (format[start] == 's' || format[start] == 'S') return true;
  }
  return false;
}

// The literals of a source. Comments count too; an apostrophe with a quotation mark in it does not.
std::vector<std::string> literalsIn(const std::string& source) {
  std::vector<std::string> literals;
  std::string literal;
  bool inside = false;
  for (std::size_t index = 0; index < source.size(); ++index) {
    const char character = source[index];
    if (!inside) {
      inside = character == '"' && source[index - 1] != '\'';
    } else if (character == '"') {
      literals.push_back(std::exchange(literal, {}));
      inside = false;
    } else {
      literal += character;
      if (character == '\\') literal += source[++index];
    }
  }
  EXPECT_FALSE(inside) << "the last literal has no end";
  return literals;
}

std::set<std::string> formatsInTheSources() {
  std::set<std::string> found;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(APPCOMM_MODULE_SOURCES)) {
    if (!entry.is_regular_file()) continue;
    for (auto& literal : literalsIn(contentsOf(entry.path()))) {
      if (takesText(literal)) found.insert(std::move(literal));
    }
  }
  return found;
}

TEST(HostileTextTable, HasEveryFormatOfTheSourcesThatTakesAText) {
  std::set<std::string> expected{kFieldFormat};
  for (const std::wstring format : kFormats) expected.emplace(format.begin(), format.end());

  EXPECT_EQ(formatsInTheSources(), expected);
}

// A library that hands on what the printer calls its key.
class RegisteringLibrary : public fakes::MakerLibraries {
 public:
  explicit RegisteringLibrary(std::wstring key) : m_key(std::move(key)) {}

  bool AppSdk_SetPrinterUpgradeInfo(qzstd::PrinterInfo* printer) override {
    printer->upgradeKey = m_key;
    return true;
  }

 private:
  const std::wstring m_key;
};

struct Hostile {
  const char* name;
  std::wstring text;
};

void PrintTo(const Hostile& hostile, std::ostream* out) { *out << hostile.name; }

class HostileTextTest : public testing::TestWithParam<Hostile> {
 protected:
  // A printer of that uid and key from `Add` until its list has gone.
  HostileTextTest() {
    const auto printer = std::make_shared<qzstd::PrinterInfo>();
    printer->uid = GetParam().text;  // its interval is 0: the list does not pause before it ends
    auto task = AppComm::Node::Instance(printer, nullptr, 1, AppComm::Type::RegUpgrade);
    task->setResource(m_record);
    Add(std::move(task));
    EXPECT_TRUE(support::waitForThreadCount(m_threads, std::chrono::steady_clock::now() + 30s));
    m_log = support::decodedUnits(m_logging.windows().fileBytes(L"C:\\log\\Corvane.log").value_or(""));
  }

  // What stands in the log when the text stands in that format: up to the next conversion, or the end of the line.
  static std::wstring written(const std::wstring& format) {
    const auto place = format.find(L"%ws");
    const auto rest = format.substr(place + 3);
    const auto next = rest.find(L'%');
    auto message = beginning(format) + GetParam().text.c_str() + rest.substr(0, next);
    if (next == std::wstring::npos && !message.ends_with(L"\r\n")) message += L"\r\n";
    return message;
  }
  static std::wstring beginning(const std::wstring& format) { return L"] " + format.substr(0, format.find(L"%ws")); }

  bool isInTheLog(const std::wstring& text) const { return m_log.find(text) != std::wstring::npos; }
  bool wasRegistered() const { return m_record->upgradeRegistered; }

 private:
  const int m_threads = support::threadCount();
  support::LoggingOn m_logging;
  RegisteringLibrary m_library{GetParam().text};
  const fakes::InstalledMaker m_installed{m_library};
  const std::shared_ptr<AppComm::State> m_record = std::make_shared<AppComm::State>();
  std::wstring m_log;
};

// The longest leaves room for the longest of the lines.
const Hostile kHostile[] = {
    {"Empty", L""},
    {"Conversions", L"%s%ws%S%n%hn%ln%d%99999d%*d%.*s%p%%%"},
    {"LineInjected", L"x\r\n2024-03-07 09:05:03.042 [ERR] [Add] [1] a line of nobody"},
    {"EndOfALine", L"x\r\n"},
    {"HalfAnEndOfALine", L"x\r"},
    {"ControlCharacters", L"\x01\a\b\x1B[2J\x1B]0;title\a\x7F\u009B\u202E"},
    {"FarCharacters", L"B\u00FCro \u6253\u5370\u673A \xD83D\xDE00 \xD800 \xFFFF"},
    {"ZeroInside", std::wstring(L"before\0after", 12)},
    {"Fields", L"] [DBG] [1] "},
    {"Long", std::wstring(850, L'a')},
    {"LongConversions",
     [] {
       std::wstring text;
       while (text.size() < 850) text += L"%n";
       return text;
     }()},
};

TEST_P(HostileTextTest, IsWrittenAsItIs) {
  for (const auto* format : kFormats) EXPECT_TRUE(isInTheLog(written(format))) << testing::PrintToString(written(format));
  EXPECT_TRUE(wasRegistered());
}

std::string nameOf(const testing::TestParamInfo<Hostile>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Texts, HostileTextTest, testing::ValuesIn(kHostile), nameOf);

class TooLongTextTest : public HostileTextTest {};

TEST_P(TooLongTextTest, LosesItsLinesAndNothingElse) {
  for (const std::wstring format : kFormats) EXPECT_FALSE(isInTheLog(beginning(format))) << testing::PrintToString(format);
  EXPECT_TRUE(isInTheLog(L"] comm add leave. put: 1\r\n"));
  EXPECT_TRUE(wasRegistered());
}

INSTANTIATE_TEST_SUITE_P(Texts, TooLongTextTest,
                         testing::Values(Hostile{"ByALittle", std::wstring(1022, L'a')},
                                         Hostile{"ByAUnitMoreThanALine", std::wstring(1024, L'%')},
                                         Hostile{"ByFar", std::wstring(std::size_t{1} << 20, L'a')}),
                         nameOf);

}  // namespace
