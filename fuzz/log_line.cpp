/// The line builder: any level, time, name, line number, format and arguments, up to four calls one after the other.
///
/// The units of a text are those of the host: what the Windows runtime makes of half a surrogate pair is not shown here.

#include <gtest/gtest.h>

#include <optional>
#include <string_view>

#include "fakes/InMemoryWindows.h"
#include "fuzz/ExpectedLine.h"
#include "fuzz/Input.h"
#include "fuzz/ModuleFormats.h"
#include "fuzz/Target.h"
#include "log/Log.h"

namespace {

using fuzz::LogCall;

constexpr std::size_t kMostCalls = 4;
constexpr const wchar_t* kPath = L"C:\\log\\Corvane.log";

// Not the module's: they bring a text to the message's ends, and percent signs.
constexpr std::array<const wchar_t*, 5> kOwnFormats{L"%ws", L"", L"%ws%ws", L"100%% of %ws%%", L"%ws%d"};

/// How the platform converts names.
enum class CodePage : std::uint8_t { oneByte, twoBytes, cannotConvert };

/// In a page of two-byte characters a byte from 0x81 to 0xfe takes the next one with it.
std::wstring converted(CodePage page, std::string_view bytes) {
  std::wstring text;
  while (page != CodePage::cannotConvert && !bytes.empty()) {
    const auto first = static_cast<unsigned char>(bytes.front());
    const bool isPair = page == CodePage::twoBytes && bytes.size() > 1 && first >= 0x81 && first <= 0xfe;
    text += static_cast<wchar_t>(isPair ? 0x4e00 + static_cast<unsigned char>(bytes[1]) : first);
    bytes.remove_prefix(isPair ? 2 : 1);
  }
  return text;
}

class Platform : public fakes::InMemoryWindows {
 public:
  int MultiByteToWideChar(UINT, DWORD, LPCSTR source, int bytes, LPWSTR target, int units) override {
    if (bytes <= 0) return 0;
    const std::wstring text = converted(page, {source, static_cast<std::size_t>(bytes)});
    if (units == 0) return static_cast<int>(text.size());
    if (text.size() > static_cast<std::size_t>(units)) return 0;
    std::wmemcpy(target, text.data(), text.size());
    return static_cast<int>(text.size());
  }

  CodePage page = CodePage::oneByte;
};

template <typename... Arguments>
void writeWith(const LogCall& call, Arguments... arguments) {
  WriteLog(call.level, call.function.c_str(), call.line, call.format, arguments...);
}
const wchar_t* text(const LogCall& call, std::size_t index) { return call.texts[index].c_str(); }
int number(const LogCall& call, std::size_t index) { return static_cast<int>(call.numbers[index]); }
long longNumber(const LogCall& call, std::size_t index) { return static_cast<long>(call.numbers[index]); }

struct Writer {
  std::string_view arguments;
  void (*write)(const LogCall&);
};
constexpr std::array kWriters{
    Writer{"", [](const LogCall& call) { writeWith(call); }},
    Writer{"d", [](const LogCall& call) { writeWith(call, number(call, 0)); }},
    Writer{"dd", [](const LogCall& call) { writeWith(call, number(call, 0), number(call, 1)); }},
    Writer{"s", [](const LogCall& call) { writeWith(call, text(call, 0)); }},
    Writer{"ss", [](const LogCall& call) { writeWith(call, text(call, 0), text(call, 1)); }},
    Writer{"sd", [](const LogCall& call) { writeWith(call, text(call, 0), number(call, 0)); }},
    Writer{"sllll",
           [](const LogCall& call) {
             writeWith(call, text(call, 0), longNumber(call, 0), longNumber(call, 1), longNumber(call, 2), longNumber(call, 3));
           }},
};

void write(const LogCall& call) {
  const auto writer = std::ranges::find(kWriters, fuzz::argumentsOf(call.format), &Writer::arguments);
  ASSERT_NE(writer, kWriters.end()) << "no writer for the arguments of a format: " << fuzz::argumentsOf(call.format);
  writer->write(call);
}

const wchar_t* readFormat(fuzz::Input& input) {
  const std::size_t choice = input.byte() % (kOwnFormats.size() + fuzz::kModuleFormats.size());
  return choice < kOwnFormats.size() ? kOwnFormats[choice] : fuzz::kModuleFormats[choice - kOwnFormats.size()];
}

SYSTEMTIME readTime(fuzz::Input& input) {
  SYSTEMTIME time{2024, 3, 4, 7, 9, 5, 3, 42};
  if (input.byte() % 2 == 0) return time;
  for (WORD* field : {&time.wYear, &time.wMonth, &time.wDayOfWeek, &time.wDay, &time.wHour, &time.wMinute, &time.wSecond,
                      &time.wMilliseconds}) {
    *field = input.number<WORD>();
  }
  return time;
}

/// A text as a call passes it: up to its first zero.
template <typename Unit, typename Text>
Text readText(fuzz::Input& input, std::size_t longest) {
  return input.text<Unit, Text>(longest).c_str();
}

LogCall readCall(fuzz::Input& input) {
  LogCall call;
  call.level = input.oneOf(std::array{LOG_DEBUG, LOG_ERROR, LOG_WARNING, LOG_INFO, 0U, 3U, 16U});
  call.mask = input.oneOf(std::array{15U, LOG_ERROR | LOG_DEBUG, 0U, 0xFFFFFFFFU});
  call.time = readTime(input);
  call.line = static_cast<std::int32_t>(input.number<std::uint32_t>());
  call.format = readFormat(input);
  call.function = readText<std::uint8_t, std::string>(input, 300);
  for (std::wstring& text : call.texts) text = readText<std::uint16_t, std::wstring>(input, 1100);
  for (std::int64_t& number : call.numbers) number = static_cast<std::int64_t>(input.number<std::uint64_t>());
  return call;
}

/// The name as the line must have it. One that is too long is cut at 127 bytes, which never make more units than that.
std::wstring wideName(CodePage page, const std::string& function) {
  const std::wstring whole = converted(page, function);
  return whole.size() < 128 ? whole : converted(page, std::string_view(function).substr(0, 127));
}

std::string bytesOf(const std::wstring& text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  fuzz::Input input(bytes, size);
  Platform platform;
  const fakes::Installed installed(platform);
  platform.makeFolder(L"C:\\log");
  std::wmemcpy(g_logPath, kPath, std::wcslen(kPath) + 1);
  platform.page = static_cast<CodePage>(input.byte() % 3);

  std::string expected;
  std::size_t lines = 0;
  for (std::size_t calls = 0; calls < kMostCalls && !input.isEmpty(); ++calls) {
    LogCall call = readCall(input);
    call.wideFunction = wideName(platform.page, call.function);
    platform.setLocalTime(call.time);
    g_logMask = call.mask;
    const std::size_t platformCalls = platform.calls().size();
    write(call);
    if ((call.mask & call.level) == 0) {
      EXPECT_EQ(platform.calls().size(), platformCalls) << "of a level that is off";
    }
    const auto line = fuzz::expectedLine(call);
    if (!line) continue;
    expected += bytesOf(*line);
    ++lines;
  }
  EXPECT_EQ(platform.fileBytes(kPath).value_or(""), expected);
  EXPECT_EQ(platform.countCalls("CreateFileW"), lines) << "a line that is dropped must not touch the file";
  EXPECT_EQ(platform.openFileHandles(), 0U);

  g_logMask = 0;
  std::wmemset(g_logPath, L'\0', LOG_PATH_UNITS);
  return 0;
}
