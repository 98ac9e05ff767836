#include "model/Facts.h"

namespace soak {
namespace {

using namespace std::chrono_literals;

// Two threads' readings of the clock may differ by the grain of what the system gives.
constexpr auto kGrain = 1ms;

bool settled(const std::optional<Moment>& end, Moment since) { return end && *end + kGrain < since; }

}  // namespace

const TaskFacts* Facts::find(TaskId task) const {
  const auto found = m_tasks.find(task);
  return found == m_tasks.end() ? nullptr : &found->second;
}

const TaskTraits& Facts::traitsOf(TaskId task) const { return m_tasks.at(task).traits; }

void Facts::note(const Event& event) {
  if (event.what == What::addBegin)
    m_tasks[event.task] = {.traits = event.traits, .addBegin = event.time, .once = event.traits.once};
  const auto found = m_tasks.find(event.task);
  if (found == m_tasks.end()) return;
  TaskFacts& task = found->second;
  switch (event.what) {
    case What::addEnd:
      task.addEnd = event.time;
      break;
    case What::deleteBegin:
      if (!task.deleteBegin) task.deleteBegin = event.time;
      break;
    case What::deleteEnd:
      if (!task.deleteEnd) task.deleteEnd = event.time;
      break;
    case What::noticeEnd:
      task.refused = task.refused || event.value == 0;
      break;
    case What::onceBegin:
      task.once = event.value != 0;
      task.changing = true;
      break;
    case What::onceEnd:
      task.changing = false;
      task.changeEnd = event.time;
      break;
    default:
      break;
  }
}

std::vector<TaskId> Facts::known() const {
  std::vector<TaskId> all;
  for (const auto& [id, task] : m_tasks) all.push_back(id);
  return all;
}

bool Facts::mayBeDeleted(TaskId task) const {
  const TaskFacts* facts = find(task);
  return facts != nullptr && (facts->refused || facts->deleteBegin);
}

Moment Facts::deletedFrom(TaskId task) const {
  const TaskFacts* facts = find(task);
  return facts == nullptr || facts->refused || !facts->deleteBegin ? Moment{} : *facts->deleteBegin;
}

bool Facts::isDeletedSince(TaskId task, Moment since) const {
  const TaskFacts* facts = find(task);
  if (facts == nullptr) return false;
  return facts->refused || (settled(facts->deleteEnd, since) && settled(facts->addEnd, since));
}

bool Facts::mayBeOnce(TaskId task, Moment since) const {
  const TaskFacts* facts = find(task);
  if (facts == nullptr) return false;
  return facts->once || facts->changing || (facts->changeEnd && !settled(facts->changeEnd, since));
}

bool Facts::mayRepeat(TaskId task, Moment since) const {
  const TaskFacts* facts = find(task);
  if (facts == nullptr) return false;
  return !facts->once || facts->changing || (facts->changeEnd && !settled(facts->changeEnd, since));
}

}  // namespace soak
