#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace fuzz {

/// One append to the log, and what the platform does about it. Moves and attributes fail by their number within the append.
struct Append {
  std::wstring line;
  std::uint64_t now = 0;  ///< the creation time of a file that it makes
  std::int64_t size = 0;  ///< what the platform says the file has then
  bool isTaken = false;   ///< another process holds the semaphore
  bool openFails = false;
  bool seekFails = false;  ///< the line is lost
  bool writeFails = false;
  bool sizeFails = false;
  bool deleteFails = false;
  std::uint32_t movesFail = 0;       ///< bit 0: the first
  std::uint32_t attributesFail = 0;  ///< bit 0: the first
};

struct LogFile {
  std::string bytes;
  std::uint64_t created = 0;
  friend bool operator==(const LogFile&, const LogFile&) = default;
};

/// What files the log must leave behind, and with which calls.
class RotationModel {
 public:
  /// `folders` are those that there are; a file can be moved into no other.
  RotationModel(std::wstring path, bool hasSemaphore, std::vector<std::wstring> folders)
      : m_path(std::move(path)), m_hasSemaphore(hasSemaphore), m_folders(std::move(folders)) {}

  std::map<std::wstring, LogFile> files;
  std::vector<std::wstring> calls;  ///< in order, with the file that they are about

  void append(const Append& append);

 private:
  bool appendToFile(const Append& append);
  void rotate(const Append& append);
  std::vector<std::wstring> candidates() const;
  bool move(const std::wstring& target, const Append& append);
  std::uint64_t creationTime(const std::wstring& candidate, const Append& append);

  const std::wstring m_path;
  const bool m_hasSemaphore;
  const std::vector<std::wstring> m_folders;
  std::uint32_t m_moves = 0;  // of this append
  std::uint32_t m_attributes = 0;
};

}  // namespace fuzz
