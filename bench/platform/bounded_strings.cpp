/// The runtime's bounded wide functions for the host, as far as the log needs them. Without allocation, unlike the tests' ones.

#include <array>
#include <cstdarg>
#include <cstddef>
#include <cwchar>

#include "platform/WindowsApi.h"

namespace {

constexpr std::size_t kLongestFormat = 256;
using Format = std::array<wchar_t, kLongestFormat>;

// `%ws` and `%s` are wide strings there, `%ls` here.
bool hostFormat(const wchar_t* format, Format& result) {
  std::size_t end = 0;
  bool conversion = false;
  for (; *format != L'\0'; ++format) {
    if (end + 3 > result.size()) return false;
    if (conversion && (*format == L'w' || *format == L'l') && format[1] == L's') continue;
    if (conversion && *format == L's') result[end++] = L'l';
    result[end++] = *format;
    if (*format == L'%') {
      conversion = !conversion;
    } else if (std::wcschr(L"-+ #0123456789.*hl", *format) == nullptr) {
      conversion = false;
    }
  }
  result[end] = L'\0';
  return true;
}

}  // namespace

int _vsnwprintf_s(wchar_t* buffer, std::size_t size, std::size_t /*count*/, const wchar_t* format, std::va_list arguments) {
  Format translated;
  return hostFormat(format, translated) ? std::vswprintf(buffer, size, translated.data(), arguments) : -1;
}

int _snwprintf_s(wchar_t* buffer, std::size_t size, std::size_t count, const wchar_t* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const int length = _vsnwprintf_s(buffer, size, count, format, arguments);
  va_end(arguments);
  return length;
}

errno_t wcsncpy_s(wchar_t* buffer, std::size_t size, const wchar_t* source, std::size_t count) {
  const std::size_t length = ::wcsnlen(source, count);
  if (length >= size) return STRUNCATE;
  std::wmemcpy(buffer, source, length);
  buffer[length] = L'\0';
  return 0;
}

errno_t wcscpy_s(wchar_t* buffer, std::size_t size, const wchar_t* source) {
  return wcsncpy_s(buffer, size, source, std::wcslen(source));
}

errno_t wcscat_s(wchar_t* buffer, std::size_t size, const wchar_t* source) {
  const std::size_t used = std::wcslen(buffer);
  return wcscpy_s(buffer + used, size - used, source);
}
