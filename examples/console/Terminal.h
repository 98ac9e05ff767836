#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace examples {

/// Standard output, and Ctrl-C. One per process, for its main thread.
class Terminal {
 public:
  /// From here on Ctrl-C no longer ends the process. Throws `std::system_error`.
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  /// Whether a person looks at it, so that lines can be written over. Otherwise the output is UTF-8.
  bool interactive() const { return m_interactive; }
  /// How many characters fit beside one another, and how many lines that can be rewritten below one another; a usual window's
  /// when the output is none.
  std::size_t width() const;
  std::size_t height() const;

  void writeLine(const std::wstring& line);
  /// Writes the lines over those of the last call. They must fit the width and the height.
  void rewriteLines(const std::vector<std::wstring>& lines);

  /// Waits; true when Ctrl-C or Ctrl-Break has come meanwhile or before. `other`, a handle to wait for, ends the wait too.
  bool waitForInterrupt(std::chrono::milliseconds limit, void* other = nullptr);

 private:
  const bool m_interactive;
  std::size_t m_rewritable = 0;
};

/// The first line of standard input, which is UTF-8, without its end.
std::wstring readLine();

/// One line to standard error: the program's name and the text, which is UTF-8. What is not printable becomes a question mark.
void writeError(const std::string& line);

}  // namespace examples
