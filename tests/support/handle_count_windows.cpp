#include "support/HandleCount.h"

#include <cstddef>
#include <cstring>
#include <vector>

#include "platform/WindowsApi.h"

namespace support {
namespace {

// The system's table of all handles, as ntdll.dll gives it. No header of the platform declares this part of it.
constexpr int kExtendedHandleInformation = 64;
constexpr LONG kTooSmall = static_cast<LONG>(0xC0000004);

struct HandleEntry {
  void* object;
  ULONG_PTR process;
  ULONG_PTR handle;
  ULONG access;
  USHORT creatorBackTrace;
  USHORT objectType;
  ULONG attributes;
  ULONG reserved;
};

struct HandleTable {
  ULONG_PTR count;
  ULONG_PTR reserved;
};

using QuerySystemInformation = LONG(WINAPI*)(int kind, void* buffer, ULONG size, ULONG* needed);

std::vector<std::byte> readTable() {
  const auto query = reinterpret_cast<QuerySystemInformation>(
      reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
  std::vector<std::byte> table(std::size_t{1} << 16);
  while (query != nullptr) {
    ULONG needed = 0;
    const LONG status = query(kExtendedHandleInformation, table.data(), static_cast<ULONG>(table.size()), &needed);
    if (status >= 0) return table;
    if (status != kTooSmall) break;
    table.resize(table.size() * 2);
  }
  return {};
}

}  // namespace

int handleCount() {
  const auto table = readTable();
  if (table.empty()) return -1;
  HandleTable head{};
  std::memcpy(&head, table.data(), sizeof head);
  int count = 0;
  for (std::size_t i = 0; i < head.count; ++i) {
    HandleEntry entry{};
    std::memcpy(&entry, table.data() + sizeof head + i * sizeof entry, sizeof entry);
    if (entry.process == ::GetCurrentProcessId()) ++count;
  }
  return count;
}

}  // namespace support
