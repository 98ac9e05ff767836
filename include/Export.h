#pragma once

/// How the module's public names cross the library border.
///
/// - `APPCOMM_EXPORTS` is defined while the module's own objects are compiled: they export.
/// - `APPCOMM_STATIC` is defined where those objects are linked directly, as the tests do: nothing is imported.
/// - Neither is defined in an application: it imports from `AppCommunication.dll`.
#if !defined(_WIN32)
#define APPCOMM_API __attribute__((visibility("default")))
#elif defined(APPCOMM_EXPORTS)
// When g++ meets an exported class before this header, it exports the type information of every class that the file uses, also
// of the standard library's.
#include <typeinfo>
#define APPCOMM_API __declspec(dllexport)
#elif defined(APPCOMM_STATIC)
#define APPCOMM_API
#else
#define APPCOMM_API __declspec(dllimport)
#endif
