#pragma once

namespace support {

/// Reaches a private member of a class under test, which needs neither a friend nor an accessor for it: an explicit
/// instantiation may name what is private.
///
///     struct TimerMutex : support::PrivateMember<TimerMutex, std::mutex comm::Timer::*> {};
///     template struct support::Expose<TimerMutex, &comm::Timer::m_mutex>;
///     ... timer.*privateMember(TimerMutex()) ...
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-template-friend"  // one function per tag is what is meant
template <class Tag, class Pointer>
struct PrivateMember {
  using Type = Pointer;
  friend Pointer privateMember(Tag);
};
#pragma GCC diagnostic pop

template <class Tag, typename Tag::Type member>
struct Expose {
  friend typename Tag::Type privateMember(Tag) { return member; }
};

}  // namespace support
