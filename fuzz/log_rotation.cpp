/// Appending and rotating: any numbered files and times, any sizes, any calls of the platform that fail, for up to 16 lines.

#include <gtest/gtest.h>

#include <limits>

#include "fakes/InMemoryWindows.h"
#include "fuzz/Input.h"
#include "fuzz/RotationModel.h"
#include "fuzz/Target.h"
#include "log/Log.h"

namespace {

using fuzz::Append;
using fuzz::LogFile;
using fuzz::RotationModel;

constexpr std::size_t kMostAppends = 16;
constexpr std::uint32_t kLimit = 0x1400000;
constexpr const wchar_t* kSemaphoreName = L"OrvaQZ_Corvane";
const std::vector<std::wstring> kFolders{L"C:\\log", L""};

/// The log's file in the way of the platform: sizes as the case has them, so that no file needs its 20 MiB, and failures.
class Platform : public fakes::InMemoryWindows {
 public:
  void begin(const Append& append) {
    m_append = append;
    m_moves = m_attributes = 0;
  }

  DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds) override {
    made.push_back(L"wait " + std::to_wstring(milliseconds));
    return InMemoryWindows::WaitForSingleObject(handle, milliseconds);
  }
  BOOL ReleaseSemaphore(HANDLE handle, LONG count, LPLONG previous) override {
    made.push_back(L"release " + std::to_wstring(count));
    return InMemoryWindows::ReleaseSemaphore(handle, count, previous);
  }
  HANDLE CreateFileW(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security, DWORD disposition,
                     DWORD attributes, HANDLE pattern) override {
    made.push_back(std::wstring(L"open ") + path);
    if (m_append.openFails) return INVALID_HANDLE_VALUE;
    const bool isNew = !exists(path);
    const HANDLE file = InMemoryWindows::CreateFileW(path, access, share, security, disposition, attributes, pattern);
    if (isNew && file != INVALID_HANDLE_VALUE) setCreationTime(path, m_append.now);
    return file;
  }
  DWORD SetFilePointer(HANDLE file, LONG distance, PLONG high, DWORD method) override {
    made.push_back(distance == 0 && high == nullptr && method == FILE_END ? L"seek end" : L"seek elsewhere");
    return m_append.seekFails ? INVALID_SET_FILE_POINTER : InMemoryWindows::SetFilePointer(file, distance, high, method);
  }
  BOOL WriteFile(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD written, OVERLAPPED* overlapped) override {
    made.push_back(L"write");
    return m_append.writeFails ? FALSE : InMemoryWindows::WriteFile(file, bytes, count, written, overlapped);
  }
  BOOL GetFileSizeEx(HANDLE, LARGE_INTEGER* size) override {
    made.push_back(L"size");
    if (m_append.sizeFails) return FALSE;
    size->QuadPart = m_append.size;
    return TRUE;
  }
  BOOL CloseHandle(HANDLE handle) override {
    made.push_back(L"close");
    return InMemoryWindows::CloseHandle(handle);
  }
  BOOL MoveFileW(LPCWSTR from, LPCWSTR to) override {
    made.push_back(std::wstring(L"move ") + from + L" to " + to);
    return fails(m_append.movesFail, m_moves) ? FALSE : InMemoryWindows::MoveFileW(from, to);
  }
  BOOL GetFileAttributesExW(LPCWSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data) override {
    made.push_back(std::wstring(L"attributes ") + path);
    return fails(m_append.attributesFail, m_attributes) ? FALSE : InMemoryWindows::GetFileAttributesExW(path, level, data);
  }
  BOOL DeleteFileW(LPCWSTR path) override {
    made.push_back(std::wstring(L"delete ") + path);
    return m_append.deleteFails ? FALSE : InMemoryWindows::DeleteFileW(path);
  }

  std::vector<std::wstring> made;  ///< the calls

 private:
  static bool fails(std::uint32_t which, std::uint32_t& number) { return ((which >> number++) & 1) != 0; }

  Append m_append;
  std::uint32_t m_moves = 0;
  std::uint32_t m_attributes = 0;
};

std::wstring readPath(fuzz::Input& input) {
  const std::array<std::wstring, 6> paths{L"C:\\log\\Corvane.log",
                                          L"C:\\log\\Corvane.text",
                                          L"C:\\log\\abc",  // its numbered files would lie in a folder that is not there
                                          L"\\ab",          // shorter than an extension
                                          L"\\abc",
                                          L"C:\\log\\p.log"};
  const std::size_t choice = input.byte() % (paths.size() + 5);
  if (choice < paths.size()) return paths[choice];
  return L"C:\\log\\" + std::wstring(choice + 238, L'p') + L".log";  // 255 to 259 units, the longest that LogInit takes
}

std::uint64_t readTime(fuzz::Input& input) {
  return input.oneOf(std::array<std::uint64_t, 8>{7, 0, 1, 0xFFFFFFFF, 0x100000000, 0x7FFFFFFFFFFFFFFF, 0x8000000000000000,
                                                  std::numeric_limits<std::uint64_t>::max()});
}

Append readAppend(fuzz::Input& input, std::size_t number) {
  Append append;
  const std::uint8_t failing = input.byte();
  append.isTaken = (failing & 1) != 0;
  append.openFails = (failing & 2) != 0;
  append.seekFails = (failing & 4) != 0;
  append.writeFails = (failing & 8) != 0;
  append.sizeFails = (failing & 16) != 0;
  append.deleteFails = (failing & 32) != 0;
  append.line.assign(failing >> 6, static_cast<wchar_t>(L'a' + number));
  append.movesFail = input.number<std::uint16_t>();
  append.attributesFail = input.number<std::uint16_t>();
  append.size = static_cast<std::int64_t>(input.oneOf(std::array<std::uint64_t, 7>{
                                              kLimit + 1, kLimit, kLimit - 1, 0, 0x80000000, 0x100000000, 0x7FFFFFFFFFFFFFFF}) &
                                          0x7FFFFFFFFFFFFFFF);
  append.now = readTime(input);
  return append;
}

/// Files that are there before: numbered ones, each with its name in it, and perhaps the log itself.
void makeFiles(fuzz::Input& input, const std::wstring& path, Platform& platform, RotationModel& model) {
  const auto present = input.number<std::uint16_t>();
  for (unsigned number = 0; number <= 11; ++number) {
    if (((present >> number) & 1) == 0) continue;
    const std::wstring stem = path.substr(0, path.size() - std::min<std::size_t>(4, path.size()));
    const std::wstring name = number == 0 ? path : stem + std::to_wstring(number) + L".log";
    if (std::ranges::find(kFolders, name.substr(0, name.rfind(L'\\'))) == kFolders.end()) continue;
    const LogFile file{"file " + std::to_string(number), readTime(input)};
    platform.writeFile(name, file.bytes);
    platform.setCreationTime(name, file.created);
    model.files[name] = file;
  }
}

std::map<std::wstring, LogFile> filesOf(fakes::InMemoryWindows& platform) {
  std::map<std::wstring, LogFile> files;
  for (const std::wstring& folder : kFolders) {
    for (const std::wstring& name : platform.filesIn(folder)) {
      const std::wstring path = folder + L'\\' + name;
      WIN32_FILE_ATTRIBUTE_DATA data{};
      platform.InMemoryWindows::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data);
      const std::uint64_t created =
          (std::uint64_t{data.ftCreationTime.dwHighDateTime} << 32) | data.ftCreationTime.dwLowDateTime;
      files[path] = {platform.fileBytes(path).value_or(""), created};
    }
  }
  return files;
}

/// The log on, as after `LogInit`; off again at the end.
class LogOn {
 public:
  LogOn(const std::wstring& path, bool hasSemaphore) {
    std::wmemcpy(g_logPath, path.c_str(), path.size() + 1);
    if (hasSemaphore) g_logSemaphore = ::CreateSemaphoreW(nullptr, 1, 1, kSemaphoreName);
  }
  ~LogOn() {
    if (g_logSemaphore != nullptr) ::CloseHandle(g_logSemaphore);
    g_logSemaphore = nullptr;
    std::wmemset(g_logPath, L'\0', LOG_PATH_UNITS);
  }
  LogOn(const LogOn&) = delete;
  LogOn& operator=(const LogOn&) = delete;
};

void appendTo(Platform& platform, const Append& append) {
  if (append.isTaken && g_logSemaphore != nullptr) platform.InMemoryWindows::WaitForSingleObject(g_logSemaphore, 0);
  platform.begin(append);
  LogAppend(append.line.c_str(), static_cast<std::uint32_t>(append.line.size() * sizeof(wchar_t)));
}

}  // namespace

namespace fuzz {

void PrintTo(const LogFile& file, std::ostream* out) { *out << testing::PrintToString(file.bytes) << " of " << file.created; }

}  // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  fuzz::Input input(bytes, size);
  const std::wstring path = readPath(input);
  const bool hasSemaphore = input.byte() % 4 != 3;
  Platform platform;
  const fakes::Installed installed(platform);
  for (const std::wstring& folder : kFolders) platform.makeFolder(folder);
  platform.expireWaits();
  RotationModel model(path, hasSemaphore, kFolders);
  makeFiles(input, path, platform, model);

  const LogOn log(path, hasSemaphore);
  for (std::size_t number = 0; number < kMostAppends && !input.isEmpty(); ++number) {
    const Append append = readAppend(input, number);
    platform.made.clear();
    model.calls.clear();
    model.append(append);
    appendTo(platform, append);
    EXPECT_EQ(platform.made, model.calls) << "append " << number;
    EXPECT_EQ(platform.openFileHandles(), 0U);
    if (hasSemaphore) {
      EXPECT_EQ(platform.semaphoreCount(kSemaphoreName), 1);
    }
  }
  EXPECT_EQ(filesOf(platform), model.files);
  return 0;
}
