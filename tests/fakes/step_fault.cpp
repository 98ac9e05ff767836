#include "fakes/StepFault.h"

#include <array>

namespace fakes {
namespace {

struct Count {
  std::size_t nth = 0;  // 0: none is to fail
  std::size_t seen = 0;
};

constinit thread_local std::array<Count, 3> g_counts{};

Count& countOf(Step step) { return g_counts[static_cast<std::size_t>(step)]; }

}  // namespace

StepFault::StepFault(Step step, std::size_t nth) : m_step(step), m_nth(nth) { countOf(step) = Count{nth, 0}; }
StepFault::~StepFault() { countOf(m_step) = Count{}; }

std::size_t StepFault::steps() const { return countOf(m_step).seen; }

bool failsNow(Step step) noexcept {
  Count& count = countOf(step);
  return count.nth != 0 && ++count.seen == count.nth;
}

}  // namespace fakes
