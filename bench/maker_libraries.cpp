/// The maker's libraries: every function succeeds at once and does nothing, so that what is measured is the module's own.

#include "AppMgr.h"
#include "AppPrinterSdk.h"
#include "AppSdk.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
#define FAKES_MAKER_CALL(result, name, parameters, arguments, failure) \
  extern "C" result name parameters { return result(); }
#include "tests/fakes/maker_calls.inc"
#undef FAKES_MAKER_CALL
