/// The maker's libraries: every function succeeds at once and does nothing, so that what is measured is the module's own. On
/// the host a program may define one of its own instead.

#include "AppMgr.h"
#include "AppPrinterSdk.h"
#include "AppSdk.h"

// Windows objects know no weak definitions that another object replaces.
#if defined(_WIN32)
#define REPLACEABLE
#else
#define REPLACEABLE __attribute__((weak))
#endif

#pragma GCC diagnostic ignored "-Wunused-parameter"
#define FAKES_MAKER_CALL(result, name, parameters, arguments, failure) \
  extern "C" REPLACEABLE result name parameters { return result(); }
#include "tests/fakes/maker_calls.inc"
#undef FAKES_MAKER_CALL
