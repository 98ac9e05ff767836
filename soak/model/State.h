#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "model/Operation.h"

/// One way in which the module may stand with one printer, as far as it makes a difference to what may be seen next.
namespace soak {

/// Its place among the lists that there are, from 1; 0 for one that is gone.
using ListId = std::uint32_t;

/// Tasks of one type: the operation runs for the first, the others are told as well.
struct Entry {
  Type type{};
  std::vector<TaskId> tasks;  // the current one, then the observers in the order in which they came
  bool late = false;          // it came after the next entry was chosen

  friend auto operator<=>(const Entry&, const Entry&) = default;
};

/// The run of the entry at the front.
struct Run {
  Progress at;
  enum class Phase : std::uint8_t { choice, calling, walking } phase = Phase::choice;
  std::uint32_t told = 0;    ///< walking: windows that have answered
  bool noticing = false;     ///< walking: one is being told
  bool ownOnly = false;      ///< walking: only the current task's
  std::uint32_t copied = 0;  ///< of a state run: tasks whose records it fills, as they were there when its last call returned
  bool keepsNpa = true;
  std::uint64_t begin = 0;  ///< the event that it began with, 0 when it showed none

  friend auto operator<=>(const Run&, const Run&) = default;
};

/// A value that tells no states apart.
template <class Value>
struct Aside {
  Value value{};

  friend bool operator==(const Aside&, const Aside&) { return true; }
  friend std::strong_ordering operator<=>(const Aside&, const Aside&) { return std::strong_ordering::equal; }
};

/// What is known of a list's time stamps.
struct Pace {
  bool fresh = true;      ///< no run and no idle cycle yet: both stamps lie far back
  bool keptLast = false;  ///< the last run kept its NPA mark, and no idle cycle came after it
  bool npaEver = false;
  bool npaBounded = false;  ///< npaHigh is known
  Moment checkLow{};        ///< the last check was no earlier; of a fresh list: it was made no earlier
  Moment npaLow{};          ///< the last NPA run's end was no earlier
  Moment npaHigh{};         ///< and no later
  int idleCycles = 0;       ///< of an empty list: those that are known to have passed
  /// At most so many wake-ups have not been used up. Of two states that differ in nothing else, the one with more allows all
  /// that the other allows.
  Aside<int> posts{};
  Aside<int> calmCycles{};   ///< turns since then that none of them brought forward
  Aside<Moment> lastPost{};  ///< those that are no timer's came no later
  Aside<bool> woken{};       ///< there was one since the last run
  bool idled = false;        ///< the list was empty since the last run: cycles may have passed unseen

  friend auto operator<=>(const Pace&, const Pace&) = default;
};

/// Where a list's worker is.
enum class Place : std::uint8_t {
  waiting,  ///< at the top of its cycle, or waiting for its turn
  turn,     ///< the wait is over, and it saw that it goes on
  tidied,   ///< it goes through its tasks, which may find more of them deleted, or is done with it
  running,
  leaving,  ///< it has decided to end
  gone,     ///< cleared and unregistered
};

struct List {
  ListId id = 0;
  ThreadId thread = 0;  ///< where its runs are seen, 0 before the first
  ThreadId worker = 0;  ///< where its tasks are let go of, 0 before the first
  std::int32_t interval = 0;
  bool registered = true;
  bool goesOn = true;
  Place place = Place::waiting;
  std::vector<Entry> queue;
  Run run{};
  Pace pace{};
  Moment turnLow{};  ///< turn, tidied: it began no earlier
  /// Ticks until a wake-up that the next wait cannot outlast, or until it was stopped and does not wait.
  Aside<std::optional<int>> wakes{};
  bool idleTurn = false;   ///< turn, tidied: it was empty before, and still is
  bool chosen = false;     ///< tidied: the next entry is chosen; later ones do not count
  Moment lastSeen{};       ///< running: the last event
  Aside<int> lastTouched;  ///< ticks until something last changed for the list, for overdue ones

  bool holds(TaskId task) const;

  friend auto operator<=>(const List&, const List&) = default;
};

/// A call of a control function that has begun and not yet returned.
struct Operation {
  ThreadId caller = 0;
  What what{};  ///< addBegin, stopBegin, startBegin or pauseBegin
  TaskId task = 0;
  Type type{};
  bool done = false;            ///< it has had its effect
  bool contested = false;       ///< start, pause: one of the other kind was under way meanwhile
  std::vector<TaskId> tasks{};  ///< start, pause: those that it marks one after the other
  Aside<int> began{};           ///< ticks until then
  /// `addBegin`: lists that it may have found before they went out of the registry; 0 for one that is gone. Sorted.
  std::vector<ListId> found{};

  friend auto operator<=>(const Operation&, const Operation&) = default;
};

/// A task that has left its list, and that the module still has to let go of.
struct Left {
  TaskId task = 0;
  ListId list = 0;     ///< whose worker lets go of it, 0 when that may be anybody
  Aside<int> since{};  ///< ticks until then

  friend auto operator<=>(const Left&, const Left&) = default;
};

enum class Request : std::uint8_t { no, yes, either };

struct State {
  std::vector<List> lists;            // in the order in which they were made
  std::vector<Operation> operations;  // in the order in which they began
  std::vector<Left> left;
  std::vector<TaskId> dropped;                           // marked by a push-scan run; sorted
  std::vector<std::pair<TaskId, Request>> requests;      // state tasks whose NPA request is not `no`; sorted
  std::vector<std::pair<TaskId, RecordFields>> records;  // those that a run has changed; sorted

  friend auto operator<=>(const State&, const State&) = default;

  List* find(ListId id);
  bool isAwaited(const List& list) const;  ///< an `Add` has found it or may find it
  void unregister(List& list);
  /// The one that `Add` finds, null without.
  List* registered();
  Request requestOf(TaskId task) const;
  void setRequest(TaskId task, Request request);
  std::optional<RecordFields> recordOf(TaskId task) const;  ///< none where no run has changed it
  void setRecord(TaskId task, const RecordFields& record);
  void leave(TaskId task, ListId list, int ticks);  ///< forgets what was noted of it
  /// A call of this type is under way, and may hold references to its tasks.
  bool isHeld(Type type) const;
  bool holds(TaskId task) const;
  /// A `StartNPA` or `PauseNPA` for state tasks is under way.
  bool isRequesting() const;
  /// A `StartNPA` has marked its tasks, and its wake-up may still come.
  bool isWaking() const;

  /// Drops what makes no difference any more, so that states that allow the same are equal.
  void simplify();
  /// Takes over what an equal one allows. True when that is more.
  bool absorb(const State& equal);

 private:
  void simplify(List& list) const;
  void number();
};

/// States, each once.
class StateSet {
 public:
  /// True when it allows something new.
  bool insert(State state);
  bool contains(const State& state) const { return m_states.contains(state); }
  void erase(const State& state) { m_states.erase(state); }
  std::size_t size() const { return m_states.size(); }
  std::vector<State> all() const { return {m_states.begin(), m_states.end()}; }

 private:
  std::set<State> m_states;
};

}  // namespace soak
