#pragma once

#include "Records.h"
#include "operations/Frame.h"

namespace operations {

constexpr int kNotRegistered = 1;

/// How a registration ends: every observer with a state record learns what `flag` says, and no window is told. Returns `kDone`
/// or `kNotRegistered`.
inline int shareRegistration(const Run<AppComm::State>& run, bool AppComm::State::*flag) {
  const bool registered = run.record.*flag;
  forEachObserver<AppComm::State>(run.entry, [=](const AppComm::Node&, AppComm::State& record) { record.*flag = registered; });
  return registered ? kDone : kNotRegistered;
}

}  // namespace operations
