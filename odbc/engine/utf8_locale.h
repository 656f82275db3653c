// UTF-8 as the character set of this thread while it lives.
//
// unixODBC gives drivers without wide functions (SQLite's is one) narrow text in the character set of the thread that
// allocates the connection handle; in the "C" locale every accent would be lost. Elsewhere this does nothing.
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
