/// What the system tells of the DLLs, as a person sees it in their properties and an installer compares it.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/WindowsApi.h"

namespace {

constexpr std::uint64_t kVersion = (std::uint64_t{APPCOMM_VERSION_MAJOR} << 48) | (std::uint64_t{APPCOMM_VERSION_MINOR} << 32) |
                                   (std::uint64_t{APPCOMM_VERSION_PATCH} << 16);

class VersionResourceTest : public testing::TestWithParam<const wchar_t*> {
 protected:
  VersionResourceTest() : m_resource(::GetFileVersionInfoSizeW(GetParam(), nullptr)) {
    if (!m_resource.empty()) ::GetFileVersionInfoW(GetParam(), 0, static_cast<DWORD>(m_resource.size()), m_resource.data());
  }

  template <typename T>
  const T* value(const std::wstring& name) const {
    void* found = nullptr;
    UINT size = 0;
    if (m_resource.empty() || ::VerQueryValueW(m_resource.data(), name.c_str(), &found, &size) == 0) return nullptr;
    return static_cast<const T*>(found);
  }

  std::wstring text(const std::wstring& name) const {
    const auto* found = value<wchar_t>(L"\\StringFileInfo\\040904b0\\" + name);
    return found == nullptr ? L"" : found;
  }

 private:
  std::vector<char> m_resource;
};

TEST_P(VersionResourceTest, HoldsTheProjectsOneVersion) {
  const auto* fixed = value<VS_FIXEDFILEINFO>(L"\\");
  ASSERT_NE(fixed, nullptr);
  EXPECT_EQ((std::uint64_t{fixed->dwFileVersionMS} << 32) | fixed->dwFileVersionLS, kVersion);
  EXPECT_EQ((std::uint64_t{fixed->dwProductVersionMS} << 32) | fixed->dwProductVersionLS, kVersion);
  EXPECT_EQ(text(L"FileVersion"), APPCOMM_VERSION);
  EXPECT_EQ(text(L"ProductVersion"), APPCOMM_VERSION);
}

TEST_P(VersionResourceTest, NamesTheLibrary) {
  EXPECT_EQ(text(L"OriginalFilename"), GetParam());
  EXPECT_EQ(text(L"ProductName"), L"AppCommunication");
  EXPECT_FALSE(text(L"FileDescription").empty());
}

INSTANTIATE_TEST_SUITE_P(Libraries, VersionResourceTest,
                         testing::Values(L"AppCommunication.dll", L"AppPrinterSdk.dll", L"AppMgr.dll", L"AppSdk.dll",
                                         L"SimulatedPrinters.dll"));

}  // namespace
