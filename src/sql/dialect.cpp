#include "sql/dialect.h"

namespace kodra::sql {

const Dialect* FindDialect(std::int32_t code) noexcept {
  switch (code) {
#define KODRA_DIALECT(NAME, CODE) \
  case CODE:                      \
    return &NAME();
#include "sql/dialects.def"
    default:
      return nullptr;
  }
}

}  // namespace kodra::sql
