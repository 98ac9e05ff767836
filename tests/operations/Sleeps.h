#pragma once

#include <chrono>
#include <functional>

/// The clock of the operations' tests: nothing waits. An operation only ever sleeps, and each sleep is told instead.
namespace sleeps {

/// Who is told from now on, on the sleeping thread; null: nobody, and a sleep fails the test. One thread.
void listen(std::function<void(std::chrono::microseconds)> listener);

}  // namespace sleeps
