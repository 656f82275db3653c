// Makes UTF-8 the character set of the current thread for the lifetime of the object.
//
// unixODBC passes narrow text to drivers without wide functions (SQLite's is one), in the character set of the thread
// that allocates the connection handle; in the "C" locale every accent would be lost. On other systems this does
// nothing.
#pragma once

#ifndef _WIN32
#include <locale.h>
#endif

namespace kodra::odbc {

class Utf8Locale {
 public:
  Utf8Locale();
  ~Utf8Locale();
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;

#ifndef _WIN32
 private:
  locale_t utf8_;  // null where the system has no such locale
  locale_t former_ = nullptr;
#endif
};

}  // namespace kodra::odbc
