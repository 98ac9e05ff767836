#pragma once

#include <string>
#include <vector>

/// The module's diagnostic log, as a program beside it sees it.
namespace examples {

inline constexpr const wchar_t* kLogFile = L"C:\\log\\Corvane.log";

/// Makes the log's folder and switches errors and debug lines on in its ini file; other entries there are kept. Throws
/// `std::system_error`. The module reads the file only when it is loaded.
void switchLogOn();

/// Whether some kind of line is switched on, as the module would find it now.
bool isLogOn();

/// Starts this program again with these arguments, leaves Ctrl-C to it, waits for it and returns its exit code. Throws
/// `std::system_error`.
int runAgain(const std::vector<std::wstring>& arguments);

/// The last lines of the log, oldest first; none when there is no log. Earlier programs may have written them.
std::vector<std::wstring> lastLogLines(std::size_t count);

}  // namespace examples
