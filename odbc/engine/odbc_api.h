// ODBC's own headers, the way each system wants them included. For .cpp files and this folder's inner headers only:
// on Windows it brings in windows.h and its macros.
#pragma once

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <cstdint>

namespace kodra::odbc {

// ODBC passes the numbers of its attributes as pointers.
inline SQLPOINTER AsAttribute(std::uintptr_t number) {
  return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr): the interface is what it is
}

}  // namespace kodra::odbc
