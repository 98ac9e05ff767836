#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "fakes/ContractPlatform.h"
#include "platform/WindowsApi.h"

/// The fixture of the contract suite: what the module relies on in the platform, checked against the in-memory one on the host
/// and against the real one on Windows.
class WindowsContract : public testing::Test {
 protected:
  std::wstring path(const wchar_t* name) const { return platform->path(name); }
  HANDLE open(const std::wstring& path, DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE) const {
    return ::CreateFileW(path.c_str(), GENERIC_WRITE, share, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  }

  std::unique_ptr<fakes::ContractPlatform> platform = fakes::ContractPlatform::make();
};
