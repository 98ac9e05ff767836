#include "module/HeapBlocks.h"

#include <array>

#include "platform/WindowsApi.h"

namespace {

int blocksInUse(HANDLE heap) {
  int count = 0;
  PROCESS_HEAP_ENTRY entry{};
  while (::HeapWalk(heap, &entry) != 0) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) ++count;
  }
  return ::GetLastError() == ERROR_NO_MORE_ITEMS ? count : -1;
}

}  // namespace

int heapBlocksInUse() {
  std::array<HANDLE, 64> heaps{};
  const DWORD found = ::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
  if (found == 0 || found > heaps.size()) return -1;
  int count = 0;
  for (DWORD i = 0; i < found; ++i) {
    const int blocks = blocksInUse(heaps[i]);
    if (blocks < 0) return -1;
    count += blocks;
  }
  return count;
}
