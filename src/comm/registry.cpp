#include "comm/Registry.h"

#include <algorithm>
#include <iterator>

namespace comm {

Registry g_registry;

std::shared_ptr<CList> Registry::findLocked(const std::wstring& uid) const {
  const auto found = std::ranges::find(lists, uid, [](const auto& list) -> const std::wstring& { return list->m_uid; });
  return found != lists.end() ? *found : nullptr;
}

std::list<std::shared_ptr<CList>> Registry::takeLocked(const std::wstring& uid) {
  std::list<std::shared_ptr<CList>> taken;
  for (auto place = lists.begin(); place != lists.end();) {
    const auto next = std::next(place);
    if ((*place)->m_uid == uid) taken.splice(taken.end(), lists, place);
    place = next;
  }
  return taken;
}

}  // namespace comm
