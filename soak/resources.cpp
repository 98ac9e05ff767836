#include "Resources.h"

#include <chrono>
#include <thread>

#include "Blocks.h"
#include "support/ThreadCount.h"
#if defined(_WIN32)
#include "support/HandleCount.h"
#endif

namespace soak {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 90s;
// The platform's mutexes get a handle when threads first meet at them, and keep it: those of the process that are never
// destroyed. Seen: 29 to 34 handles after the first second, at most three more at the end. A leak soon comes to more.
constexpr int kMutexHandles = 8;
#if defined(_WIN32)
// Of all heaps of the process: what comes with those handles. Seen: one more, after 20 s as after 15 minutes with 420,000 runs.
constexpr int kBlocksOfTheSystem = 20;
#else
constexpr int kBlocksOfTheSystem = 0;
#endif

std::string excess(const char* what, long long before, long long now) {
  return std::string(what) + ": " + std::to_string(now) + ", " + std::to_string(before) + " before\n";
}

// What was not counted, below 0, is never back.
bool hasGrown(long long before, long long now, long long allowed) { return before < 0 || now < 0 || now > before + allowed; }

std::string compare(const Resources& before, const Resources& now) {
  std::string text;
  if (hasGrown(before.threads, now.threads, 0)) text += excess("threads", before.threads, now.threads);
  if (now.handles && hasGrown(*before.handles, *now.handles, kMutexHandles)) {
    text += excess("handles", *before.handles, *now.handles);
  }
  if (now.blocks && hasGrown(*before.blocks, *now.blocks, kBlocksOfTheSystem)) {
    text += excess("allocated blocks", *before.blocks, *now.blocks);
  }
  return text;
}

}  // namespace

Resources Resources::now() {
  Resources resources;
  resources.threads = support::threadCount();
  resources.blocks = allocatedBlocks();
#if defined(_WIN32)
  resources.handles = support::handleCount();
#endif
  return resources;
}

std::string textOf(const Resources& resources) {
  std::string text = std::to_string(resources.threads) + " threads";
  if (resources.handles) text += ", " + std::to_string(*resources.handles) + " handles";
  text += resources.blocks ? ", " + std::to_string(*resources.blocks) + " allocated blocks" : ", allocated blocks not counted";
  return text;
}

// The system tells nobody when it has taken back what a thread had that nobody joins.
std::optional<std::string> leftOver(const Resources& before) {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  for (;;) {
    const std::string text = compare(before, Resources::now());
    if (text.empty()) return std::nullopt;
    if (std::chrono::steady_clock::now() >= deadline) return "left over at the end:\n" + text;
    std::this_thread::sleep_for(20ms);
  }
}

}  // namespace soak
