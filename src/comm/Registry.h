#pragma once

#include <list>
#include <memory>
#include <mutex>
#include <string>

#include "comm/CList.h"
#include "platform/ThreadAnnotations.h"

namespace comm {

/// Every list that `Add` made and neither `Stop` nor a worker has taken out, in the order they were made.
struct Registry {
  std::mutex lock;
  std::list<std::shared_ptr<CList>> lists GUARDED_BY(lock);

  /// The first list with this uid, null when there is none.
  std::shared_ptr<CList> findLocked(const std::wstring& uid) const REQUIRES(lock);

  /// Takes out every list with this uid and returns them, for release outside the lock.
  std::list<std::shared_ptr<CList>> takeLocked(const std::wstring& uid) REQUIRES(lock);
};

/// The module's one registry. It exists from load to unload and waits for no one when it goes.
extern Registry g_registry;

}  // namespace comm
