#pragma once

#include "fakes/InMemoryWindows.h"

namespace fakes {

struct InMemoryWindows::File {
  std::wstring path;  // as it was first spelled
  std::string bytes;
  std::uint64_t creationTime;
  std::uint64_t writeTime;
};

struct InMemoryWindows::OpenFile {
  std::shared_ptr<File> file;
  DWORD access;
  DWORD share;
  std::size_t position;
};

struct InMemoryWindows::Semaphore {
  LONG count;
  const LONG maximum;
};

}  // namespace fakes
