#include "Command.h"

#include <algorithm>
#include <cstdlib>

#include "platform/WindowsApi.h"

namespace NPA {

CCmd::CCmd(unsigned long size) : m_size(static_cast<std::uint32_t>(size)) {}

CCmd::~CCmd() { Release(); }

// Defined here so that the library has it to export.
CCmd& CCmd::operator=(const CCmd& other) = default;

void CCmd::SetSize(unsigned long size) { m_size = static_cast<std::uint32_t>(size); }

unsigned long CCmd::GetLen() const { return m_len; }

unsigned char* CCmd::GetCmd() const { return m_cmd; }

void CCmd::GetSerial(unsigned char* out) const { std::ranges::copy(m_serial, out); }

void CCmd::Release() {
  if (m_cmd == nullptr) return;
  std::free(m_cmd);  // the application allocated it with malloc: no owner type of ours could hold it
  // Volatile, so that the destructor leaves the object in this state too: of plain writes to an object that ends the compiler
  // makes none, and a second end would free the buffer again.
  const_cast<std::uint8_t* volatile&>(m_cmd) = nullptr;
  const_cast<volatile std::uint32_t&>(m_size) = 0;
}

void CCmd::SetSerial() {
  const auto ticks = ::GetTickCount64();
  for (unsigned index = 0; index < m_serial.size(); ++index) {
    m_serial[index] = static_cast<std::uint8_t>(ticks >> (24 - 8 * index));
  }
}

unsigned char* CParse::GetBuf() const { return m_buf; }

unsigned long CParse::GetSize() const { return m_size; }

// An application reads it through the library's table of exports.
const std::int32_t CParse::MAX_FRAME_LENGTH;

}  // namespace NPA
