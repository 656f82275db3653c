// Keeps the DLL's exceptions its own in a process that has loaded the shared library of the compiler's runtime.
//
// The compiler's start code (crtbegin) asks GetModuleHandleA for that library. When it finds the library, it registers
// the DLL's unwind tables there; the runtime linked into the DLL does not find them, and the first exception ends the
// process. No option of the linker removes this call. So the DLL implements GetModuleHandleA itself and reports that
// the library is not loaded. Nothing else in the DLL calls GetModuleHandleA, and 64-bit Windows registers nothing.
#ifndef _WIN64
#include <windows.h>

static HMODULE WINAPI NoSharedRuntime(LPCSTR) { return nullptr; }
HMODULE(WINAPI* getModuleHandleImport)(LPCSTR) __asm__("__imp__GetModuleHandleA@4") = &NoSharedRuntime;
#endif
