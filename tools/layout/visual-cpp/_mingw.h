#pragma once

// The platform's headers come from mingw-w64. For a compiler that is not GNU they take the attributes away; clang knows them,
// and needs them in the places where these macros are not.
#include_next <_mingw.h>
#undef __attribute__
#undef __MINGW_NOTHROW
#define __MINGW_NOTHROW
#undef __MINGW_ATTRIB_NORETURN
#define __MINGW_ATTRIB_NORETURN
#undef __MINGW_ATTRIB_DEPRECATED
#define __MINGW_ATTRIB_DEPRECATED
#undef __MINGW_ATTRIB_DEPRECATED_MSG
#define __MINGW_ATTRIB_DEPRECATED_MSG(message)
