/// The runtime's bounded wide functions for the host, with the results and the buffer contents of the real ones.

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <string>

#include "fakes/StepFault.h"

namespace {

// The real runtime calls its handler here, which by default ends the process.
errno_t invalidParameter(const char* function, errno_t error) {
  ADD_FAILURE() << "invalid parameter handler called by " << function;
  errno = error;
  return error;
}

errno_t emptied(wchar_t* buffer, const char* function, errno_t error) {
  buffer[0] = L'\0';
  return invalidParameter(function, error);
}

// Copies behind `used` units; `count` of them at most, or as many as fit for `_TRUNCATE`.
errno_t append(wchar_t* buffer, std::size_t size, std::size_t used, const wchar_t* source, std::size_t count,
               const char* function) {
  if (fakes::failsNow(fakes::Step::copy)) {
    buffer[0] = L'\0';
    return EINVAL;
  }
  const std::size_t length = count == _TRUNCATE ? std::wcslen(source) : ::wcsnlen(source, count);
  const std::size_t room = size - used - 1;
  if (length > room && count != _TRUNCATE) return emptied(buffer, function, ERANGE);
  const std::size_t copied = std::min(length, room);
  std::wmemcpy(buffer + used, source, copied);
  buffer[used + copied] = L'\0';
  return copied < length ? STRUNCATE : 0;
}

// One conversion of the runtime's wide formats, `position` behind its percent sign, in the spelling of the host: there `%s` is
// narrow, and `w` is no length modifier.
std::wstring hostConversion(const std::wstring& format, std::size_t& position) {
  std::wstring conversion = L"%";
  while (position < format.size() && std::wcschr(L"-+ #0123456789.*", format[position]) != nullptr) {
    conversion += format[position++];
  }
  std::wstring modifier;
  while (position < format.size() && std::wcschr(L"hlw", format[position]) != nullptr) modifier += format[position++];
  if (position == format.size()) return conversion + modifier;
  const wchar_t type = format[position++];
  if (type == L's' || type == L'c') return conversion + (modifier == L"h" ? L"" : L"l") + type;
  return conversion + modifier + type;
}

std::wstring hostFormat(const std::wstring& format) {
  std::wstring result;
  for (std::size_t position = 0; position < format.size();) {
    const wchar_t unit = format[position++];
    result += unit == L'%' ? hostConversion(format, position) : std::wstring(1, unit);
  }
  return result;
}

// False when the host cannot format it at all.
bool formatWhole(std::wstring& text, const wchar_t* format, std::va_list arguments) {
  if (fakes::failsNow(fakes::Step::print)) return false;
  constexpr std::size_t kLongest = std::size_t{1} << 20;
  const std::wstring translated = hostFormat(format);
  for (text.resize(1024); text.size() <= kLongest; text.resize(text.size() * 4)) {
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vswprintf(text.data(), text.size(), translated.c_str(), again);
    va_end(again);
    if (length < 0) continue;  // too long, most likely: the host does not say how long
    text.resize(static_cast<std::size_t>(length));
    return true;
  }
  return false;
}

}  // namespace

errno_t wcscpy_s(wchar_t* buffer, std::size_t size, const wchar_t* source) {
  if (buffer == nullptr || size == 0) return invalidParameter("wcscpy_s", EINVAL);
  if (source == nullptr) return emptied(buffer, "wcscpy_s", EINVAL);
  return append(buffer, size, 0, source, std::wcslen(source), "wcscpy_s");
}

errno_t wcsncpy_s(wchar_t* buffer, std::size_t size, const wchar_t* source, std::size_t count) {
  if (buffer == nullptr || size == 0) return invalidParameter("wcsncpy_s", EINVAL);
  if (source == nullptr) return emptied(buffer, "wcsncpy_s", EINVAL);
  return append(buffer, size, 0, source, count, "wcsncpy_s");
}

errno_t wcscat_s(wchar_t* buffer, std::size_t size, const wchar_t* source) {
  if (buffer == nullptr || size == 0) return invalidParameter("wcscat_s", EINVAL);
  const std::size_t used = ::wcsnlen(buffer, size);
  if (source == nullptr || used == size) return emptied(buffer, "wcscat_s", EINVAL);
  return append(buffer, size, used, source, std::wcslen(source), "wcscat_s");
}

int _snwprintf_s(wchar_t* buffer, std::size_t size, std::size_t count, const wchar_t* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const int length = _vsnwprintf_s(buffer, size, count, format, arguments);
  va_end(arguments);
  return length;
}

int _vsnwprintf_s(wchar_t* buffer, std::size_t size, std::size_t count, const wchar_t* format, std::va_list arguments) {
  if (buffer == nullptr || size == 0 || format == nullptr) {
    invalidParameter("_vsnwprintf_s", EINVAL);
    return -1;
  }
  std::wstring text;
  if (!formatWhole(text, format, arguments)) {
    buffer[0] = L'\0';
    return -1;
  }
  const std::size_t room = std::min(count, size - 1);
  if (text.size() > room && count != _TRUNCATE && count >= size) {
    emptied(buffer, "_vsnwprintf_s", ERANGE);
    return -1;
  }
  const std::size_t copied = std::min(text.size(), room);
  std::wmemcpy(buffer, text.data(), copied);
  buffer[copied] = L'\0';
  return copied < text.size() ? -1 : static_cast<int>(copied);
}
