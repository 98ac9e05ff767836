#pragma once

#include <benchmark/benchmark.h>

#include <thread>

#include "platform/Word.h"

namespace bench {

/// Another thread that does one thing each time it is asked, and nothing else: the unit in which hand-overs are measured.
class Peer {
 public:
  Peer();
  ~Peer();
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  /// Wakes the peer and waits until it has answered.
  void ask();

 private:
  void answer();

  platform::Word m_word;
  std::thread m_thread;
};

/// The benchmark of it: register it as the unit of the others in the same program.
void pingPong(benchmark::State& state);

}  // namespace bench
