#include "fakes/StepFault.h"

#include <array>

namespace fakes {
namespace {

constinit thread_local std::array<StepFault*, 4> g_faults{};

StepFault*& faultOf(Step step) { return g_faults[static_cast<std::size_t>(step)]; }

}  // namespace

StepFault::StepFault(Step step, std::size_t nth) : m_step(step), m_nth(nth) { faultOf(step) = this; }
StepFault::~StepFault() { faultOf(m_step) = nullptr; }

std::size_t StepFault::steps() const { return m_steps.load(); }

void StepFault::awaitHappened() const {
  for (auto seen = steps(); seen < m_nth; seen = steps()) m_steps.wait(seen);
}

bool failsNow(Step step) noexcept {
  StepFault* const fault = faultOf(step);
  if (fault == nullptr || ++fault->m_steps != fault->m_nth) return false;
  fault->m_steps.notify_all();
  return true;
}

}  // namespace fakes
