#include "simulator/Jobs.h"

#include <atomic>

namespace simulator {
namespace {

/// The system gives the number of a thread that has ended to a new one; this number is nobody else's ever.
std::uint64_t thisThread() {
  static std::atomic<std::uint64_t> last{0};
  thread_local const std::uint64_t own = ++last;
  return own;
}

}  // namespace

void Jobs::start(JobKind kind, Job job) { m_jobs.insert_or_assign({thisThread(), kind}, std::move(job)); }

const Job* Jobs::find(JobKind kind) const {
  const auto place = m_jobs.find({thisThread(), kind});
  return place == m_jobs.end() ? nullptr : &place->second;
}

void Jobs::end(JobKind kind) { m_jobs.erase({thisThread(), kind}); }

}  // namespace simulator
