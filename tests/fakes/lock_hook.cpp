#include <dlfcn.h>
#include <pthread.h>

#include <cerrno>

#include "fakes/StepFault.h"

// The program's own definition comes before that of the C library and of a sanitizer; the next one in order, which a sanitizer
// needs to see the lock, does the work. The visibility is what makes it come first.
extern "C" __attribute__((visibility("default"))) int pthread_mutex_lock(pthread_mutex_t* mutex) noexcept {
  if (fakes::failsNow(fakes::Step::lock)) return EDEADLK;
  static const auto next = reinterpret_cast<decltype(&pthread_mutex_lock)>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
  return next(mutex);
}
