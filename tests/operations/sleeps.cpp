#include "operations/Sleeps.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "platform/Time.h"

namespace {

std::function<void(std::chrono::microseconds)> g_listener;

[[noreturn]] void failUnscripted(const char* function) {
  std::cerr << function << " is none of the operations' business\n";
  std::abort();
}

}  // namespace

namespace sleeps {

void listen(std::function<void(std::chrono::microseconds)> listener) { g_listener = std::move(listener); }

}  // namespace sleeps

namespace platform {

Clock::time_point now() { failUnscripted("platform::now"); }

std::cv_status waitUntil(std::condition_variable& /*condition*/, std::unique_lock<std::mutex>& /*lock*/,
                         Clock::time_point /*deadline*/) {
  failUnscripted("platform::waitUntil");
}

void sleepFor(std::chrono::microseconds duration) {
  if (g_listener) {
    g_listener(duration);
  } else {
    ADD_FAILURE() << "an unexpected sleep of " << duration.count() << " us";
  }
}

}  // namespace platform
