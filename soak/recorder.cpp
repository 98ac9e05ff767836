#include "Recorder.h"

#include <pthread.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <new>
#include <thread>

namespace soak {
namespace {

using namespace std::chrono_literals;

// Callers leave a printer alone that has become hard to follow: they have to hear of it soon.
constexpr std::uint64_t kFarBehind = 2'000;
constexpr auto kBetweenLooks = 2ms;
constexpr auto kPatience = 60s;

std::atomic<std::uint64_t> g_numbers{0};
std::atomic<ThreadId> g_threads{0};
std::atomic<std::uint64_t> g_judged{0};

// Not a `thread_local` object: with mingw-w64's threads its memory may be gone before its destructor runs.
pthread_key_t newKey(void (*destroy)(void*)) {
  pthread_key_t key{};
  if (pthread_key_create(&key, destroy) != 0) std::abort();
  return key;
}

bool isLater(const Event& first, const Event& second) { return first.number > second.number; }

}  // namespace

struct Recorder::Buffer {
  std::mutex mutex;  // between the thread and the taker
  std::vector<Event> events;
  bool ended = false;
};

/// What a thread has of its own. It goes with the thread.
struct Recorder::Slot {
  Slot() : thread(++g_threads), buffer(Recorder::instance().newBuffer()) {}
  ~Slot() {
    if (printer != kNoPrinter) write({.what = What::threadEnded, .printer = printer});
    const std::lock_guard lock(buffer->mutex);
    buffer->ended = true;
  }
  Slot(const Slot&) = delete;
  Slot& operator=(const Slot&) = delete;

  void write(Event event) {
    event.thread = thread;
    const std::lock_guard lock(buffer->mutex);
    event.time = std::chrono::system_clock::now();
    event.number = g_numbers.fetch_add(1, std::memory_order_relaxed) + 1;
    buffer->events.push_back(event);
  }

  const ThreadId thread;
  const std::shared_ptr<Buffer> buffer;
  PrinterId printer = kNoPrinter;
};

Recorder& Recorder::instance() {
  alignas(Recorder) static std::byte storage[sizeof(Recorder)];
  static Recorder* const recorder = ::new (storage) Recorder;
  return *recorder;
}

Recorder::Slot& Recorder::slot() {
  static const pthread_key_t key = newKey([](void* slot) { std::unique_ptr<Slot>(static_cast<Slot*>(slot)).reset(); });
  if (void* const slot = pthread_getspecific(key)) return *static_cast<Slot*>(slot);
  auto slot = std::make_unique<Slot>();
  pthread_setspecific(key, slot.get());
  return *slot.release();
}

std::shared_ptr<Recorder::Buffer> Recorder::newBuffer() {
  auto buffer = std::make_shared<Buffer>();
  const std::lock_guard lock(m_mutex);
  m_buffers.push_back(buffer);
  return buffer;
}

void Recorder::record(Event event) { slot().write(event); }

void Recorder::belongsTo(PrinterId printer) { slot().printer = printer; }

PrinterId Recorder::printerOfThread() const { return slot().printer; }

// Relaxed: it orders nothing either.
void Recorder::waitForRoom() {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (g_numbers.load(std::memory_order_relaxed) > g_judged.load(std::memory_order_relaxed) + kFarBehind &&
         std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(kBetweenLooks);
  }
}

void Recorder::judged(std::uint64_t number) { g_judged.store(number, std::memory_order_relaxed); }

void Recorder::collect() {
  const std::lock_guard lock(m_mutex);
  for (const auto& buffer : m_buffers) {
    std::vector<Event> events;
    {
      const std::lock_guard inBuffer(buffer->mutex);
      events.swap(buffer->events);
    }
    for (Event& event : events) {
      m_early.push_back(event);
      std::ranges::push_heap(m_early, isLater);
    }
  }
  std::erase_if(m_buffers, [](const auto& buffer) {
    const std::lock_guard inBuffer(buffer->mutex);
    return buffer->ended && buffer->events.empty();
  });
}

std::vector<Event> Recorder::take() {
  collect();
  std::vector<Event> next;
  while (!m_early.empty() && m_early.front().number == m_taken + 1) {
    std::ranges::pop_heap(m_early, isLater);
    next.push_back(m_early.back());
    m_early.pop_back();
    ++m_taken;
  }
  return next;
}

void Recorder::forgetEnded() {
  collect();
  m_early.shrink_to_fit();
}

}  // namespace soak
