#include <algorithm>

#include "fuzz/RotationModel.h"

namespace fuzz {
namespace {

constexpr std::int64_t kLargestSize = 20 * 1024 * 1024;
constexpr std::size_t kLongestPath = 259;

bool isSet(std::uint32_t bits, std::uint32_t number) { return ((bits >> number) & 1) != 0; }

}  // namespace

void RotationModel::append(const Append& append) {
  m_moves = m_attributes = 0;
  if (m_hasSemaphore) calls.push_back(L"wait 2000");
  if (appendToFile(append) && append.size > kLargestSize) rotate(append);
  if (m_hasSemaphore) calls.push_back(L"release 1");
}

/// True when the file's size can be told.
bool RotationModel::appendToFile(const Append& append) {
  calls.push_back(L"open " + m_path);
  if (append.openFails) return false;
  LogFile& file = files.try_emplace(m_path, LogFile{"", append.now}).first->second;
  const std::string bytes(reinterpret_cast<const char*>(append.line.data()), append.line.size() * sizeof(wchar_t));
  calls.push_back(L"seek end");
  if (!append.seekFails) calls.push_back(L"write");
  if (!append.seekFails && !append.writeFails) file.bytes += bytes;
  calls.insert(calls.end(), {L"size", L"close"});
  return !append.sizeFails;
}

std::vector<std::wstring> RotationModel::candidates() const {
  std::vector<std::wstring> names;
  if (m_path.size() < 4) return names;
  for (int number = 1; number <= 10; ++number) {
    names.push_back(m_path.substr(0, m_path.size() - 4) + std::to_wstring(number) + L".log");
    if (names.back().size() > kLongestPath) return {names.begin(), names.end() - 1};
  }
  return names;
}

void RotationModel::rotate(const Append& append) {
  const auto names = candidates();
  std::vector<std::uint64_t> times;
  for (const std::wstring& name : names) {
    if (move(name, append)) return;
    times.push_back(creationTime(name, append));
  }
  if (names.empty()) return;
  const std::wstring& oldest = names[static_cast<std::size_t>(std::ranges::min_element(times) - times.begin())];
  calls.push_back(L"delete " + oldest);
  if (!append.deleteFails) files.erase(oldest);
  move(oldest, append);
}

bool RotationModel::move(const std::wstring& target, const Append& append) {
  calls.push_back(L"move " + m_path + L" to " + target);
  const std::wstring folder = target.substr(0, target.rfind(L'\\'));
  const bool folderExists = std::ranges::find(m_folders, folder) != m_folders.end();
  if (isSet(append.movesFail, m_moves++) || !folderExists || files.contains(target)) return false;
  files[target] = files.at(m_path);
  files.erase(m_path);
  return true;
}

/// What cannot be read counts as 0.
std::uint64_t RotationModel::creationTime(const std::wstring& candidate, const Append& append) {
  calls.push_back(L"attributes " + candidate);
  const bool fails = isSet(append.attributesFail, m_attributes++);
  return fails || !files.contains(candidate) ? 0 : files.at(candidate).created;
}

}  // namespace fuzz
