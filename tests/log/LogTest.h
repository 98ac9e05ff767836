#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "fakes/InMemoryWindows.h"
#include "log/Log.h"
#include "support/LogLines.h"

/// The fixture of the log's host tests: an in-memory platform with the folder `C:\log`, the log off. After each test all file
/// handles are closed and the semaphore is free.
class LogTest : public testing::Test {
 protected:
  LogTest() { use<fakes::InMemoryWindows>(); }

  ~LogTest() override {
    EXPECT_EQ(windows->openFileHandles(), 0U);
    EXPECT_EQ(windows->semaphoreCount(L"OrvaQZ_Corvane").value_or(1), 1);
    if (g_logSemaphore != nullptr) ::CloseHandle(g_logSemaphore);
    EXPECT_EQ(windows->openSemaphoreHandles(), 0U);
    g_logMask = 0;
    g_logSemaphore = nullptr;
    std::wmemset(g_logPath, L'\0', LOG_PATH_UNITS);
  }

  /// Makes another platform the current one. Before the log is on.
  template <class Platform, class... Arguments>
  Platform& use(Arguments&&... arguments) {
    installed.reset();
    auto made = std::make_unique<Platform>(std::forward<Arguments>(arguments)...);
    Platform& platform = *made;
    windows = std::move(made);
    installed = std::make_unique<fakes::Installed>(*windows);
    windows->makeFolder(L"C:\\log");
    return platform;
  }

  void writeIni(const std::string& keys) { windows->writeFile(L"C:\\log\\orva_config.ini", "[Corvane]\r\n" + keys); }

  /// All four levels on, unless told otherwise.
  void switchOn(const wchar_t* path = L"C:\\log\\Corvane.log",
                const std::string& keys = "Error=1\r\nWarning=1\r\nDebug=1\r\nInfo=1\r\n") {
    writeIni(keys);
    LogInit(path, 0, L"Corvane");
    ASSERT_NE(g_logMask, 0U);
  }

  /// The log's text; empty when there is no file.
  std::wstring text(const std::wstring& path = L"C:\\log\\Corvane.log") const {
    return support::decodedUnits(windows->fileBytes(path).value_or(""));
  }

  std::unique_ptr<fakes::InMemoryWindows> windows;
  std::unique_ptr<fakes::Installed> installed;
};
