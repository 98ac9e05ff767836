#include <dlfcn.h>
#include <pthread.h>

#include <atomic>
#include <cerrno>

#include "fakes/ThreadStartFault.h"

namespace fakes {
namespace {
std::atomic<int> g_faults{0};
}

ThreadStartFault::ThreadStartFault() { g_faults.fetch_add(1); }
ThreadStartFault::~ThreadStartFault() { g_faults.fetch_sub(1); }

}  // namespace fakes

// The program's own definition comes before that of the C library and of a sanitizer, in the C++ library's calls too; the next
// one in order, which a sanitizer needs to see the thread, does the work. The visibility is what makes it come first.
extern "C" __attribute__((visibility("default"))) int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                                                                     void* (*start)(void*), void* argument) noexcept {
  if (fakes::g_faults.load() > 0) return EAGAIN;
  static const auto next = reinterpret_cast<decltype(&pthread_create)>(dlsym(RTLD_NEXT, "pthread_create"));
  return next(thread, attributes, start, argument);
}
