#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "fakes/ContractPlatform.h"
#include "platform/WindowsApi.h"

namespace fakes {
namespace {

void ignoreInvalidParameter(const wchar_t*, const wchar_t*, const wchar_t*, unsigned, std::uintptr_t) {}

bool runsUnderWine() { return ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

class RealWindows : public ContractPlatform {
 public:
  RealWindows() : m_folder(L"C:\\contract-" + std::to_wstring(::GetCurrentProcessId())) {
    std::filesystem::remove_all(m_folder);
    std::filesystem::create_directory(m_folder);
  }
  // Fails, and shows, when a test left a file open.
  ~RealWindows() override {
    std::error_code error;
    std::filesystem::remove_all(m_folder, error);
    EXPECT_FALSE(error) << error.message();
  }

  std::wstring path(const std::wstring& name) const override { return (m_folder / name).wstring(); }
  void makeFolder(const std::wstring& path) override { std::filesystem::create_directory(path); }
  void writeFile(const std::wstring& path, const std::string& bytes) override {
    std::ofstream(std::filesystem::path(path), std::ios::binary) << bytes;
  }
  std::string fileBytes(const std::wstring& path) const override {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "(no file)";
  }
  bool exists(const std::wstring& path) const override { return std::filesystem::exists(path); }
  bool keepsCreationTime() const override { return !runsUnderWine(); }

  void runRejected(const std::function<void()>& call) override {
    const auto previous = ::_set_invalid_parameter_handler(ignoreInvalidParameter);
    call();
    ::_set_invalid_parameter_handler(previous);
  }

 private:
  const std::filesystem::path m_folder;
};

}  // namespace

std::unique_ptr<ContractPlatform> ContractPlatform::make() { return std::make_unique<RealWindows>(); }

}  // namespace fakes
