#include "sql/char_format.h"

#include "values/upper.h"

namespace kodra::sql {

CharFormat CharFormatOf(std::wstring_view format) noexcept {
  if (values::EqualIgnoringCase(format, L"DD/MM/YYYY HH24")) return CharFormat::kDateAndHour;
  if (values::EqualIgnoringCase(format, L"DD/MM/YYYY")) return CharFormat::kDate;
  if (values::EqualIgnoringCase(format, L"HH24")) return CharFormat::kHour;
  return CharFormat::kOther;
}

}  // namespace kodra::sql
