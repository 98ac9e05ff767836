#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "model/Facts.h"
#include "model/State.h"

/// A model of the scheduler for one printer, made from the contract, and from three choices that it leaves open: each list has
/// one helper thread, its worker lets go of the tasks that leave, and a run looks once whether its record is of another kind.
///
/// What is seen from outside does not tell everything: when between its begin and its end a call has had its effect, whether a
/// worker has tidied its list already, which once task it chose. So the model keeps every state that explains all events so
/// far. An event that none of them explains, with whatever unseen steps before it, is a difference between the module and its
/// contract. Steps are taken only where an event needs them: those that commute with everything seen since need not be.
///
/// Where threads meet so unluckily that there are too many ways to follow, the model does not guess: it sets the printer aside,
/// and from then on only looks that the calls for it return and all its tasks are let go of.
namespace soak {

class PrinterModel {
 public:
  /// `mostWays`: states that one event may be explained with; a measure of time and memory, some 20 MB.
  explicit PrinterModel(const PrinterTraits& printer, std::size_t mostWays = 20'000);

  /// The events of one printer in their order. Text: the difference; nothing is to be seen after it.
  std::optional<std::string> see(const Event& event);

  /// After the last event, when every list should have ended: what is left over.
  std::optional<std::string> atRest(Moment now);

  bool isSetAside() const { return m_setAside; }

  /// As far as they showed something; of the first way where the ways differ, so about.
  std::uint64_t runs() const { return m_runs; }
  /// How many states explain everything so far.
  std::size_t states() const { return m_states.size(); }
  /// The largest number of states that explained everything at once.
  std::size_t mostStates() const { return m_mostStates; }

 private:
  std::vector<State> explained(const Event& event, std::vector<std::string>* objections) const;
  std::optional<std::string> follow(const Event& event);
  void followCalls(const Event& event);  // of a printer that is set aside
  std::optional<std::string> overdue(const Event& event);
  std::string difference(const Event& event) const;
  std::string situation(const Event& event) const;
  void remember(const Event& event);
  void countRun(const Event& event);

  const PrinterTraits m_printer;
  const std::size_t m_mostWays;
  Facts m_facts;
  std::vector<State> m_states{State{}};  // sorted, never empty
  std::deque<Event> m_recent;
  int m_ticks = 0;
  bool m_setAside = false;
  std::uint64_t m_runs = 0;
  std::size_t m_mostStates = 1;
};

}  // namespace soak
