// ODBC's own headers, included as each system requires. For .cpp files and this folder's inner headers only: on Windows
// it includes windows.h with its macros.
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
  return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr): the interface requires it
}

}  // namespace kodra::odbc
