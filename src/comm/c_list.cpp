#include "comm/CList.h"

#include <algorithm>
#include <utility>

namespace comm {

using namespace std::chrono_literals;

CList::CList(const std::wstring& uid, const std::int32_t& interval)
    : m_handlers(8),
      m_waitTimer(&m_helper),
      m_uid(uid),
      m_interval(interval),
      m_lastCheck(platform::now() - 600s),
      m_lastNPA(platform::now() - 1200s) {}

CList::~CList() { m_waitTimer.stop(); }

std::shared_ptr<CNode> CList::find(AppComm::Type type) const {
  const std::lock_guard latch(m_latch);
  const auto found = std::ranges::find(m_backend, type, [](const auto& entry) { return entry->type(); });
  return found != m_backend.end() ? *found : nullptr;
}

bool CList::empty() const {
  const std::lock_guard latch(m_latch);
  return m_backend.empty();
}

std::shared_ptr<CNode> CList::entry(std::size_t index) const {
  const std::lock_guard latch(m_latch);
  return index < m_backend.size() ? m_backend[index] : nullptr;
}

void CList::append(std::shared_ptr<CNode> entry) {
  const std::lock_guard latch(m_latch);
  m_backend.push_back(std::move(entry));
}

void CList::moveToFront(std::size_t index) {
  const std::lock_guard latch(m_latch);
  const auto chosen = m_backend.begin() + static_cast<std::ptrdiff_t>(index);
  std::rotate(m_backend.begin(), chosen, chosen + 1);
}

void CList::moveFrontToBack() {
  const std::lock_guard latch(m_latch);
  std::rotate(m_backend.begin(), m_backend.begin() + 1, m_backend.end());
}

std::shared_ptr<CNode> CList::take(std::size_t index) {
  const std::lock_guard latch(m_latch);
  const auto place = m_backend.begin() + static_cast<std::ptrdiff_t>(index);
  auto taken = std::move(*place);
  m_backend.erase(place);
  return taken;
}

void CList::swapAll(std::deque<std::shared_ptr<CNode>>& entries) {
  const std::lock_guard latch(m_latch);
  m_backend.swap(entries);
}

}  // namespace comm
