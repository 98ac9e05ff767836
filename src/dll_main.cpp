#include "comm/EntryPoint.h"

// Called by the platform's loader, under its lock.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) comm::attachProcess(module);
  if (reason == DLL_PROCESS_DETACH) comm::detachProcess();
  return TRUE;
}
