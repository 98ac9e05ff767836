#pragma once

#include <array>
#include <cstdint>

#include "Export.h"

/// The framing of the "NPA" exchange. The module exports these classes and uses neither of them: what a command or a frame says
/// is the application's business. It derives a class from the one it needs and fills the fields there. Nothing here is virtual:
/// an object is destroyed as what it was made.
///
/// Nothing here locks: an object belongs to one thread at a time. Nothing here throws.
namespace NPA {

/// A command to be sent: its buffer, its length and a serial.
///
/// COPIES SHARE THE BUFFER. Assignment and copy construction copy the pointer, not the bytes; so does `std::move`, for there is
/// no other. Every object frees the buffer that it holds when it ends, whoever else holds it.
///
/// - Never let two objects end while they hold the same buffer: the second would free it again. A copy that nobody sees counts,
///   such as a parameter taken by value or an element of a container that grows.
/// - Never assign to the only object that holds a buffer: nobody would free it.
/// - Never use `GetCmd` once another object has freed the buffer: the pointer stays.
/// - Do pass commands by reference. Where two share a buffer, do let one of them go of it before it ends: after
///   `shared = NPA::CCmd();` that object holds none, and nothing was freed.
class APPCOMM_API CCmd {
 public:
  /// No buffer, no length, serial 0. `size` in bytes, cut to 32 bits, is only noted: nothing is allocated.
  explicit CCmd(unsigned long size = 256);
  /// Frees the buffer, as `Release` does.
  ~CCmd();
  /// Both share the buffer of `other`; see above. The buffer that this object held is not freed.
  CCmd(const CCmd& other) = default;
  CCmd& operator=(const CCmd& other);

  /// Notes another size. The buffer is left as it is.
  void SetSize(unsigned long size);
  /// The length of the command in the buffer, in bytes.
  unsigned long GetLen() const;
  /// The buffer, which stays the object's; null when there is none.
  unsigned char* GetCmd() const;
  /// Copies the 4 bytes of the serial to `out`, first byte first.
  void GetSerial(unsigned char* out) const;

 protected:
  /// From the `malloc` family of the C runtime that the module uses: it is freed with `free`.
  std::uint8_t* m_cmd = nullptr;
  std::uint32_t m_size;
  std::uint32_t m_len = 0;
  std::uint32_t m_reserved = 0;
  std::array<std::uint8_t, 4> m_serial{};

 private:
  /// Frees the buffer and sets the size to 0; length and serial stay. Without a buffer it changes nothing.
  void Release();
  /// The serial becomes the milliseconds since the system's start, cut to 32 bits, most significant byte first. So two commands
  /// of one millisecond have the same serial, and it begins anew after 2^32 ms, some 49.7 days.
  void SetSerial();
};

/// A view of a frame that was received. It owns nothing: copies are views of the same bytes, and whoever received them frees
/// them.
class APPCOMM_API CParse {
 public:
  /// The bytes of the frame; null when there is none.
  unsigned char* GetBuf() const;
  /// Their number.
  unsigned long GetSize() const;

 protected:
  /// What `GetBuf` and `GetSize` tell.
  std::uint8_t* m_buf = nullptr;
  std::array<std::uint32_t, 2> m_reserved{};  ///< keeps the size where applications expect it
  std::uint32_t m_size = 0;

 private:
  static const std::int32_t MAX_FRAME_LENGTH = 255;  ///< the largest frame, in bytes
};

#if defined(_WIN32)
// Applications were built against these sizes.
static_assert(sizeof(CCmd) == 24 && sizeof(CParse) == 24);
#endif

}  // namespace NPA
