// Parts of the C++ runtime library that the DLL brings itself, so that the linker does not take the library's own:
// those make texts for a console and for std::exception::what(), which nobody reads here, and carry a demangler and two
// kinds of narrow strings along, together a sixth of the DLL.
//
// The library's headers declare these functions, and its generated code calls them. Should a new release of the library
// need one more of them, the linker takes the library's file too and reports each function here as defined twice.
#include <windows.h>

#include <cstdlib>
#include <exception>
#include <new>

#include "com/lean_threads.h"

// The library asks for these names.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl58-cpp)

namespace __gnu_cxx {

// What the runtime does with an exception that nothing caught.
void __verbose_terminate_handler() { std::abort(); }

// The library's: frees the memory that it keeps for exceptions when there is no other.
void __freeres();

}  // namespace __gnu_cxx

namespace std {

void __throw_bad_alloc() { throw bad_alloc(); }
void __throw_bad_array_new_length() { throw bad_array_new_length(); }

// A call with arguments that the library does not allow. Only its being an exception matters: the client gets the
// component's "Erro interno".
void __throw_logic_error(const char*) { throw exception(); }
void __throw_length_error(const char*) { throw exception(); }
void __throw_out_of_range_fmt(const char*, ...) { throw exception(); }
void __throw_bad_function_call() { throw exception(); }

}  // namespace std
// NOLINTEND(bugprone-reserved-identifier,cert-dcl58-cpp)

#ifndef _WIN64
// The compiler's start code looks for the shared library of its runtime. Where a client has loaded that, it registers
// the DLL's unwind tables there, the DLL's own runtime does not find them, and the first exception ends the process. So
// the DLL tells the start code, which alone calls GetModuleHandleA, that nothing is loaded. 64-bit Windows registers
// nothing.
static HMODULE WINAPI NoSharedRuntime(LPCSTR) { return nullptr; }
HMODULE(WINAPI* getModuleHandleImport)(LPCSTR) __asm__("__imp__GetModuleHandleA@4") = &NoSharedRuntime;
#endif

extern "C" BOOL WINAPI DllMainCRTStartup(HINSTANCE module, DWORD reason, LPVOID reserved);

// The entry point of the DLL: the C library's own and, when the DLL goes before the process does, the return of what
// the libraries took and would not give back.
extern "C" BOOL WINAPI DllEntry(HINSTANCE module, DWORD reason, LPVOID reserved) {
  const BOOL done = DllMainCRTStartup(module, reason, reserved);
  if (reason == DLL_PROCESS_DETACH && reserved == nullptr) {
    kodra::com::ReleaseThreadValues();
    __gnu_cxx::__freeres();
  }
  return done;
}
