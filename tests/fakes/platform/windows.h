#pragma once

/// The host's stand-in for the platform's header: the types, constants and functions that the module uses, and a few more of
/// those examples that are tested here, nothing else. Every function goes to the `fakes::Windows` that the running test has
/// installed. Types have the platform's widths, except `wchar_t` and `long`, which are the host's.

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cwchar>

#define CALLBACK
#define WINAPI
#define APIENTRY
#define TRUE 1
#define FALSE 0
#define __int64 long long

using BOOL = int;
using BYTE = unsigned char;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using LONG = std::int32_t;
using LONGLONG = long long;
using ULONGLONG = unsigned long long;
using INT_PTR = long long;
using UINT_PTR = unsigned long long;
using LONG_PTR = long long;
using ULONG_PTR = unsigned long long;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using WCHAR = wchar_t;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using LPSTR = char*;
using LPCSTR = const char*;
using PVOID = void*;
using LPVOID = void*;
using LPCVOID = const void*;
using HANDLE = void*;
using LPBOOL = BOOL*;
using LPDWORD = DWORD*;
using LPLONG = LONG*;
using PLONG = LONG*;
using HWND = struct HWND__*;
using HINSTANCE = struct HINSTANCE__*;
using HMODULE = HINSTANCE;
using errno_t = int;

struct RECT {
  LONG left, top, right, bottom;
};
using COLORREF = DWORD;
struct SIZE {
  LONG cx, cy;
};
struct SYSTEMTIME {
  WORD wYear, wMonth, wDayOfWeek, wDay, wHour, wMinute, wSecond, wMilliseconds;
};
struct FILETIME {
  DWORD dwLowDateTime, dwHighDateTime;
};
struct LARGE_INTEGER {
  LONGLONG QuadPart;
};
struct WIN32_FILE_ATTRIBUTE_DATA {
  DWORD dwFileAttributes;
  FILETIME ftCreationTime, ftLastAccessTime, ftLastWriteTime;
  DWORD nFileSizeHigh, nFileSizeLow;
};
struct SECURITY_ATTRIBUTES;
struct OVERLAPPED;

enum GET_FILEEX_INFO_LEVELS { GetFileExInfoStandard };

using WNDPROC = LRESULT(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);
using DLGPROC = INT_PTR(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);

#define MAKEINTRESOURCEW(id) (reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(id))))

#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))
inline constexpr DWORD GENERIC_READ = 0x80000000;
inline constexpr DWORD GENERIC_WRITE = 0x40000000;
inline constexpr DWORD FILE_APPEND_DATA = 4;
inline constexpr DWORD FILE_SHARE_READ = 1;
inline constexpr DWORD FILE_SHARE_WRITE = 2;
inline constexpr DWORD FILE_SHARE_DELETE = 4;
inline constexpr DWORD CREATE_NEW = 1;
inline constexpr DWORD CREATE_ALWAYS = 2;
inline constexpr DWORD OPEN_EXISTING = 3;
inline constexpr DWORD OPEN_ALWAYS = 4;
inline constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
inline constexpr DWORD FILE_BEGIN = 0;
inline constexpr DWORD FILE_CURRENT = 1;
inline constexpr DWORD FILE_END = 2;
inline constexpr DWORD INVALID_SET_FILE_POINTER = 0xFFFFFFFF;
inline constexpr DWORD INFINITE = 0xFFFFFFFF;
inline constexpr DWORD WAIT_OBJECT_0 = 0;
inline constexpr DWORD WAIT_ABANDONED = 0x80;
inline constexpr DWORD WAIT_TIMEOUT = 258;
inline constexpr DWORD WAIT_FAILED = 0xFFFFFFFF;
inline constexpr UINT CP_ACP = 0;
inline constexpr int MAX_PATH = 260;
inline constexpr DWORD DLL_PROCESS_DETACH = 0;
inline constexpr DWORD DLL_PROCESS_ATTACH = 1;
inline constexpr DWORD DLL_THREAD_ATTACH = 2;
inline constexpr DWORD DLL_THREAD_DETACH = 3;
inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOW = 5;
inline constexpr int GWLP_WNDPROC = -4;
inline constexpr int GWLP_USERDATA = -21;
inline constexpr UINT WM_INITDIALOG = 0x0110;
inline constexpr UINT WM_USER = 0x0400;
inline constexpr UINT WM_APP = 0x8000;

#define FAKES_WINDOWS_CALL(result, name, parameters, arguments, failure) result name parameters;
#include "windows_calls.inc"
#undef FAKES_WINDOWS_CALL

// The runtime's bounded wide functions, which the platform's own headers bring along. Where the runtime would call its
// invalid-parameter handler, and so end the process, these fail the running test.
inline constexpr std::size_t _TRUNCATE = static_cast<std::size_t>(-1);
inline constexpr errno_t STRUNCATE = 80;

errno_t wcscpy_s(wchar_t* buffer, std::size_t size, const wchar_t* source);
errno_t wcsncpy_s(wchar_t* buffer, std::size_t size, const wchar_t* source, std::size_t count);
errno_t wcscat_s(wchar_t* buffer, std::size_t size, const wchar_t* source);
int _snwprintf_s(wchar_t* buffer, std::size_t size, std::size_t count, const wchar_t* format, ...);
int _vsnwprintf_s(wchar_t* buffer, std::size_t size, std::size_t count, const wchar_t* format, std::va_list arguments);
