#pragma once

/// How the simulation's names cross its library's border. `SIMULATOR_EXPORTS` is defined while the library itself is compiled.
/// `SIMULATOR_VISIBLE` is for classes that are defined in a header alone: an ELF system must be told that both sides mean the
/// same one, Windows needs nothing.
#if !defined(_WIN32)
#define SIMULATOR_API __attribute__((visibility("default")))
#define SIMULATOR_VISIBLE __attribute__((visibility("default")))
#elif defined(SIMULATOR_EXPORTS)
#define SIMULATOR_API __declspec(dllexport)
#define SIMULATOR_VISIBLE
#else
#define SIMULATOR_API __declspec(dllimport)
#define SIMULATOR_VISIBLE
#endif
