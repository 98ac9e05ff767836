#include "model/Describe.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "model/Pacing.h"

namespace soak {
namespace {

constexpr std::array<std::string_view, 20> kWhat{"Add begins",
                                                 "Add has returned",
                                                 "Stop begins",
                                                 "Stop has returned",
                                                 "StartNPA begins",
                                                 "StartNPA has returned",
                                                 "PauseNPA begins",
                                                 "PauseNPA has returned",
                                                 "setDelete begins",
                                                 "setDelete has returned",
                                                 "setOnce or setRepeat begins",
                                                 "setOnce or setRepeat has returned",
                                                 "notice begins",
                                                 "notice is answered",
                                                 "call of",
                                                 "return from",
                                                 "record of another type looked at",
                                                 "released by the module",
                                                 "its list's thread has ended",
                                                 "time passes"};
constexpr std::array<std::string_view, 6> kPlace{"waits for its turn", "has its turn", "is tidied", "runs",
                                                 "is leaving",         "is gone"};

std::string number(std::uint64_t value) { return std::to_string(value); }
std::string nameOfList(const List& list) { return "list " + number(list.id); }

std::string entryText(const Entry& entry) {
  std::string text = std::string(nameOf(entry.type)) + " of task " + number(entry.tasks.front());
  for (std::size_t index = 1; index < entry.tasks.size(); ++index) {
    text += (index == 1 ? ", observed by " : ", ") + number(entry.tasks[index]);
  }
  return text;
}

std::string queueText(const List& list) {
  if (list.queue.empty()) return "empty";
  std::string text;
  for (const Entry& entry : list.queue) text += (text.empty() ? "" : "; ") + entryText(entry);
  return text;
}

std::string callsText(const Next& next) {
  std::string text;
  for (const std::string_view call : next.calls) {
    if (!call.empty()) text += (text.empty() ? "a call of " : " or of ") + std::string(call);
  }
  return text;
}

std::string alternatives(const Next& next, TaskId current) {
  std::string text = callsText(next);
  const auto add = [&text](bool is, const std::string& what) {
    if (is) text += (text.empty() ? "" : ", ") + what;
  };
  add(next.round || next.ownNotice, "a notice to task " + number(current));
  add(next.ownRecord, "a look at the record of task " + number(current) + ", which is of another type");
  add(next.done, "the end of the run");
  add(next.readsNpa, "what the NPA request of task " + number(current) + " leads to");
  return text;
}

// In a window's record, while it is told.
std::string foundText(const Run& run, const Entry& entry) {
  const bool read = entry.type == Type::State && run.at.function == "AppPrinterSdk_GetState" && run.told < run.copied;
  return read ? " that finds `queried` true" : "";
}

std::string operationText(const Operation& operation) {
  const std::string task = operation.task == 0 ? "" : " for task " + number(operation.task);
  return std::string(kWhat[static_cast<std::size_t>(operation.what)]) + task +
         (operation.done ? ", has had its effect" : ", has had no effect yet");
}

bool hasResult(What what) {
  constexpr std::array with{What::addEnd, What::stopEnd, What::startEnd, What::pauseEnd, What::callEnd, What::noticeEnd};
  return std::ranges::find(with, what) != with.end();
}

}  // namespace

std::string_view nameOfCall(What begin) {
  const std::string_view text = kWhat[static_cast<std::size_t>(begin)];
  return text.substr(0, text.find(' '));
}

std::string clockTime(Moment at) {
  using namespace std::chrono;
  const auto micro = duration_cast<microseconds>(at.time_since_epoch()).count();
  const auto second = micro / 1'000'000;
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%02d:%02d:%02d.%06d", static_cast<int>(second / 3600 % 24),
                static_cast<int>(second / 60 % 60), static_cast<int>(second % 60), static_cast<int>(micro % 1'000'000));
  return text.data();
}

std::string textOf(const Event& event) {
  std::string text = clockTime(event.time) + " #" + number(event.number) + " thread " + number(event.thread) + ": ";
  text += kWhat[static_cast<std::size_t>(event.what)];
  if (!event.function.empty()) text += " " + std::string(event.function);
  if (hasResult(event.what)) text += " with " + std::to_string(event.value);
  if (event.task != 0) text += ", task " + number(event.task);
  if (event.what == What::noticeBegin && event.task == 0) text += " with a code that is not the window's";
  if (!event.updated) text += ", which is not marked as updated";
  if (event.what == What::addBegin) {
    const TaskTraits& traits = event.traits;
    text += " (" + std::string(nameOf(traits.type)) + (traits.once ? ", once" : ", repeating") + ", interval " +
            std::to_string(traits.interval) + (traits.wrongRecord ? ", record of another type" : "") + ")";
  }
  return text;
}

std::string strayText(const Event& event) {
  return "difference:\nthe module did:\n  " + textOf(event) +
         "\nit should have done this on a thread that works for a printer: what belongs together stays on its thread\n";
}

std::string whereIs(const State& state, TaskId task) {
  const std::string name = "task " + number(task);
  for (const List& list : state.lists) {
    for (const Entry& entry : list.queue) {
      if (std::ranges::find(entry.tasks, task) == entry.tasks.end()) continue;
      return name + " should still be in " + nameOfList(list) + ", in the entry " + entryText(entry) +
             ": nothing lets it leave now";
    }
  }
  return name + " is in no list";
}

std::string mayShow(const List& list, const Knowledge& known) {
  const Entry& entry = list.queue.front();
  const std::string run = nameOfList(list) + " is in the run of " + entryText(entry) + ", where ";
  if (list.run.phase == Run::Phase::calling) return run + "a return from " + std::string(list.run.at.function) + " is due";
  if (list.run.noticing) return run + "the answer of task " + number(entry.tasks[list.run.told]) + " is due";
  if (list.run.phase == Run::Phase::walking) {
    return run + (list.run.told < entry.tasks.size() && !list.run.ownOnly
                      ? "a notice to task " + number(entry.tasks[list.run.told]) + foundText(list.run, entry) + " is due"
                      : std::string("all windows have been told"));
  }
  std::string what = alternatives(nextOfRun(list, known), entry.tasks.front());
  return run + what + foundText(list.run, entry) + " is due";
}

std::string mayRun(const List& list, const Knowledge& known) {
  if (list.place == Place::turn || list.place == Place::tidied) return "its turn has come, for one of: " + queueText(list);
  if (list.place != Place::waiting) return std::string("it ") + std::string(kPlace[static_cast<std::size_t>(list.place)]);
  if (!list.goesOn) return "it was stopped";
  if (list.queue.empty()) return "it is empty";
  const Moment turn = nextTurn(list).at;
  if (known.now < turn) return "its turn comes no earlier than " + clockTime(turn);
  return "its turn has come, for one of: " + queueText(list);
}

std::string mayEnd(const List& list) {
  if (!list.goesOn) return "it was stopped, but has not come to its end";
  if (!list.queue.empty()) return "it holds " + queueText(list);
  return "it is empty, but its ten idle cycles are over no earlier than " + clockTime(idleEnd(list));
}

std::string textOf(const State& state, const Knowledge& known) {
  std::string text;
  for (const List& list : state.lists) {
    text += "    " + nameOfList(list) + " (interval " + std::to_string(list.interval) + ", thread " + number(list.thread) +
            ", worker " + number(list.worker) + (list.registered ? ", registered" : ", not registered") + ") " +
            std::string(kPlace[static_cast<std::size_t>(list.place)]) + "; queue: " + queueText(list) + "\n      " +
            (list.place == Place::running ? mayShow(list, known) : mayRun(list, known)) + "\n";
  }
  for (const Operation& operation : state.operations) text += "    under way: " + operationText(operation) + "\n";
  for (const Left& left : state.left) text += "    task " + number(left.task) + " has left list " + number(left.list) + "\n";
  return text.empty() ? "    nothing\n" : text;
}

}  // namespace soak
