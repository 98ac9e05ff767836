#pragma once

#include <functional>
#include <memory>
#include <string>

namespace fakes {

/// The platform that the contract suite runs against: the in-memory one on the host, the real one on Windows. It has one empty
/// folder for files.
class ContractPlatform {
 public:
  static std::unique_ptr<ContractPlatform> make();
  virtual ~ContractPlatform() = default;

  /// A path in the folder, which is new for every test.
  virtual std::wstring path(const std::wstring& name) const = 0;
  virtual void makeFolder(const std::wstring& path) = 0;
  virtual void writeFile(const std::wstring& path, const std::string& bytes) = 0;
  virtual std::string fileBytes(const std::wstring& path) const = 0;
  virtual bool exists(const std::wstring& path) const = 0;
  /// Runs a call whose parameters the runtime rejects, and takes back what it does beside returning: a call of its handler, or,
  /// on the host, a failure of the test.
  virtual void runRejected(const std::function<void()>& call) = 0;
  /// False where a file's creation time is its write time.
  virtual bool keepsCreationTime() const = 0;
};

}  // namespace fakes
