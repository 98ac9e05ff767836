#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "model/Event.h"

/// Whether a library call that takes long holds up what the contract lets go on meanwhile: the calls for other printers, an
/// `Add`, a `StartNPA` or a `PauseNPA` for the same one, a `Stop`.
///
/// No time limit is fit for every machine, so what counts is whether such a thing was ever seen to begin and end during a call.
/// It is a difference when it never was, although there have been some long calls during which it should have been.
namespace soak {

class Holdups {
 public:
  /// The events of all printers in their order. Text: the difference.
  std::optional<std::string> see(const Event& event);

 private:
  enum Kind : std::size_t { otherCall, add, request, stop, kinds };

  /// A library call.
  struct Call {
    Event begin;
    bool othersAreBusy = false;                        ///< some other printers had calls just before, and no `Stop` came since
    bool registered = false;                           ///< its list is the one that is found, as far as can be told
    std::array<std::optional<Moment>, kinds> begun{};  ///< the first that should end before it does
    std::array<bool, kinds> ended{};                   ///< one has
  };
  struct Score {
    bool seen = false;
    int missed = 0;
    Moment until{};  ///< the end of the last call that counts: calls at the same time may share one reason
  };

  void beginCall(const Event& event);
  std::optional<std::string> endCall(const Event& event);
  void beginControl(Kind kind, const Event& event);
  void endControl(Kind kind, const Event& event);
  static std::optional<Kind> kindOf(What control);
  /// What a module might hold up during the call.
  static bool concerns(Kind kind, const Call& call, const Event& event);
  /// A `Stop` that waits for runs does not wait for those of lists that are no longer registered.
  static bool proves(Kind kind, const Call& call) { return kind != stop || call.registered; }
  bool isMissed(Kind kind, const Call& call, Moment end);
  bool areOthersBusy(const Event& event) const;
  bool isRegistered(const Event& event) const;

  std::map<ThreadId, Call> m_calls;     // library calls under way
  std::map<ThreadId, Event> m_control;  // calls of control functions under way
  std::map<PrinterId, Moment> m_lastCall;
  std::map<PrinterId, std::uint64_t> m_lastEnd;  // of a thread, by its number
  std::map<ThreadId, std::uint64_t> m_firstCall;
  std::optional<Moment> m_lastStop;
  std::array<Score, kinds> m_scores{};
};

}  // namespace soak
