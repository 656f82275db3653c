#include "sql/char_format.h"

#include "text/upper.h"

namespace kodra::sql {

CharFormat CharFormatOf(text::Piece format) noexcept {
  if (text::EqualIgnoringCase(format, L"DD/MM/YYYY HH24")) return CharFormat::kDateAndHour;
  if (text::EqualIgnoringCase(format, L"DD/MM/YYYY")) return CharFormat::kDate;
  if (text::EqualIgnoringCase(format, L"HH24")) return CharFormat::kHour;
  return CharFormat::kOther;
}

}  // namespace kodra::sql
