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

/// Of one thread's events. The taker, who owns it, only reads what the thread writes.
struct Recorder::Queue {
  struct Link {
    Event event;
    std::atomic<Link*> next{nullptr};
  };

  Queue() = default;
  ~Queue() {
    Event event;
    while (pop(event)) continue;
  }
  Queue(const Queue&) = delete;
  Queue& operator=(const Queue&) = delete;

  void push(const Event& event) {
    auto link = std::make_unique<Link>();
    link->event = event;
    Link* const added = link.release();
    last->next.store(added, std::memory_order_release);
    last = added;
  }
  // False when there is none.
  bool pop(Event& event) {
    Link* const next = first->next.load(std::memory_order_acquire);
    if (next == nullptr) return false;
    event = next->event;
    first.reset(next);
    return true;
  }

  std::unique_ptr<Link> first = std::make_unique<Link>();  // the taker's: the link taken last
  Link* last = first.get();                                // the thread's
  std::atomic<bool> ended{false};
  Queue* nextNew = nullptr;
};

/// What a thread has of its own. It goes with the thread.
struct Recorder::Slot {
  Slot() : thread(g_threads.fetch_add(1, std::memory_order_relaxed) + 1), queue(Recorder::instance().newQueue()) {}
  ~Slot() {
    if (printer != kNoPrinter) write({.what = What::threadEnded, .printer = printer});
    queue.ended.store(true, std::memory_order_release);  // from here on it may be gone
  }
  Slot(const Slot&) = delete;
  Slot& operator=(const Slot&) = delete;

  void write(Event event) {
    event.thread = thread;
    event.time = std::chrono::system_clock::now();
    event.number = g_numbers.fetch_add(1, std::memory_order_relaxed) + 1;
    queue.push(event);
  }

  const ThreadId thread;
  Queue& queue;
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

// The taker hands nothing back here either: it takes the chain without releasing anything.
Recorder::Queue& Recorder::newQueue() {
  Queue* const queue = std::make_unique<Queue>().release();
  queue->nextNew = m_new.load(std::memory_order_relaxed);
  while (!m_new.compare_exchange_weak(queue->nextNew, queue, std::memory_order_release, std::memory_order_relaxed)) continue;
  return *queue;
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
  for (Queue* queue = m_new.exchange(nullptr, std::memory_order_acquire); queue != nullptr; queue = queue->nextNew) {
    m_queues.emplace_back(queue);
  }
  std::erase_if(m_queues, [this](const auto& queue) {
    const bool ended = queue->ended.load(std::memory_order_acquire);  // before the last look
    Event event;
    while (queue->pop(event)) {
      m_early.push_back(event);
      std::ranges::push_heap(m_early, isLater);
    }
    return ended;
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
  m_queues.shrink_to_fit();
  m_early.shrink_to_fit();
}

}  // namespace soak
