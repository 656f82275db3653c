#include "odbc/engine/utf8_locale.h"

namespace kodra::odbc {

#ifdef _WIN32

Utf8Locale::Utf8Locale() = default;
Utf8Locale::~Utf8Locale() = default;

#else

Utf8Locale::Utf8Locale() : utf8_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)) {
  if (utf8_ != nullptr) former_ = uselocale(utf8_);
}

Utf8Locale::~Utf8Locale() {
  if (utf8_ == nullptr) return;
  uselocale(former_);
  freelocale(utf8_);
}

#endif

}  // namespace kodra::odbc
