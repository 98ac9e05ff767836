#include "comm/CNode.h"

#include <utility>

namespace comm {

CNode::CNode(Task task) : m_node(std::move(task)), m_type(m_node->getType()) {}

Task CNode::current() const {
  const std::lock_guard latch(m_latch);
  return m_node;
}

Task CNode::observer(std::size_t index) const {
  const std::lock_guard latch(m_latch);
  return index < m_observers.size() ? m_observers[index] : nullptr;
}

std::vector<Task> CNode::tasks() const {
  const std::lock_guard latch(m_latch);
  std::vector<Task> all{m_node};
  all.insert(all.end(), m_observers.begin(), m_observers.end());
  return all;
}

void CNode::addObserver(Task task) {
  const std::lock_guard latch(m_latch);
  m_observers.push_back(std::move(task));
}

Task CNode::promoteObserver() {
  const std::lock_guard latch(m_latch);
  if (m_observers.empty()) return nullptr;
  auto former = std::exchange(m_node, std::move(m_observers.front()));
  m_observers.pop_front();
  return former;
}

Task CNode::takeObserver(std::size_t index) {
  const std::lock_guard latch(m_latch);
  const auto place = m_observers.begin() + static_cast<std::ptrdiff_t>(index);
  auto taken = std::move(*place);
  m_observers.erase(place);
  return taken;
}

}  // namespace comm
