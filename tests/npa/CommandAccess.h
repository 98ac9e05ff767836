#pragma once

#include <algorithm>
#include <cstdlib>
#include <new>
#include <span>
#include <vector>

#include "Command.h"
#include "support/PrivateMember.h"

/// What a test reaches of the command classes: their private members, and the fields as an application's classes fill them.
struct CommandRelease : support::PrivateMember<CommandRelease, void (NPA::CCmd::*)()> {};
template struct support::Expose<CommandRelease, &NPA::CCmd::Release>;
struct CommandSetSerial : support::PrivateMember<CommandSetSerial, void (NPA::CCmd::*)()> {};
template struct support::Expose<CommandSetSerial, &NPA::CCmd::SetSerial>;

inline void release(NPA::CCmd& command) { (command.*privateMember(CommandRelease()))(); }
inline void setSerial(NPA::CCmd& command) { (command.*privateMember(CommandSetSerial()))(); }

inline std::vector<unsigned> serialOf(const NPA::CCmd& command) {
  std::vector<unsigned char> bytes(4);
  command.GetSerial(bytes.data());
  return {bytes.begin(), bytes.end()};
}

class FilledCommand : public NPA::CCmd {
 public:
  using CCmd::CCmd;
  using CCmd::operator=;

  /// A buffer of its own, from `malloc`, with these bytes in it.
  void fill(std::span<const std::uint8_t> bytes) {
    m_cmd = static_cast<std::uint8_t*>(std::malloc(m_size));
    if (m_cmd == nullptr) throw std::bad_alloc();
    std::ranges::copy(bytes, m_cmd);
    m_len = static_cast<std::uint32_t>(bytes.size());
  }
  void setSerialBytes(const std::array<std::uint8_t, 4>& serial) { m_serial = serial; }
  std::uint32_t size() const { return m_size; }
};

class FilledFrame : public NPA::CParse {
 public:
  void fill(std::span<std::uint8_t> bytes) {
    m_buf = bytes.data();
    m_size = static_cast<std::uint32_t>(bytes.size());
  }
};
