#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "fakes/ContractPlatform.h"
#include "fakes/InMemoryWindows.h"

namespace fakes {
namespace {

class InMemory : public ContractPlatform {
 public:
  InMemory() : m_installed(m_windows) { m_windows.makeFolder(L"C:\\contract"); }
  ~InMemory() override {
    EXPECT_EQ(m_windows.openFileHandles(), 0U);
    EXPECT_EQ(m_windows.openSemaphoreHandles(), 0U);
  }

  std::wstring path(const std::wstring& name) const override { return L"C:\\contract\\" + name; }
  void makeFolder(const std::wstring& path) override { m_windows.makeFolder(path); }
  void writeFile(const std::wstring& path, const std::string& bytes) override { m_windows.writeFile(path, bytes); }
  std::string fileBytes(const std::wstring& path) const override { return m_windows.fileBytes(path).value_or("(no file)"); }
  bool exists(const std::wstring& path) const override { return m_windows.exists(path); }
  bool keepsCreationTime() const override { return true; }

  void runRejected(const std::function<void()>& call) override {
    testing::TestPartResultArray failures;
    {
      testing::ScopedFakeTestPartResultReporter reporter(
          testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &failures);
      call();
    }
    ASSERT_EQ(failures.size(), 1);
    EXPECT_PRED_FORMAT2(testing::IsSubstring, "invalid parameter handler", failures.GetTestPartResult(0).message());
  }

 private:
  InMemoryWindows m_windows;
  const Installed m_installed;
};

}  // namespace

std::unique_ptr<ContractPlatform> ContractPlatform::make() { return std::make_unique<InMemory>(); }

}  // namespace fakes
