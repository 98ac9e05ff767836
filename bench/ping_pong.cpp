#include "bench/PingPong.h"

#include <cstdint>

namespace bench {
namespace {

constexpr std::uint32_t kIdle = 0;
constexpr std::uint32_t kAsked = 1;
constexpr std::uint32_t kEnding = 2;

}  // namespace

Peer::Peer() : m_thread(&Peer::answer, this) {}

Peer::~Peer() {
  m_word.set(kEnding);
  m_thread.join();
}

void Peer::ask() {
  m_word.set(kAsked);
  m_word.waitWhile(kAsked);
}

void Peer::answer() {
  while (m_word.waitWhile(kIdle) != kEnding) m_word.set(kIdle);
}

void pingPong(benchmark::State& state) {
  Peer peer;
  for (auto _ : state) peer.ask();
}

}  // namespace bench
