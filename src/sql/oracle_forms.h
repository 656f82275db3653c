// Oracle's forms, for the dialects that say they use them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace kodra::sql::oracle_forms {

std::wstring DateAdd(std::wstring_view interval, std::wstring_view number, std::wstring_view date);
std::wstring ToDate(std::wstring_view text, std::int32_t layout);
std::wstring DateLiteral(platform::Date date, std::int32_t layout);
std::wstring ToChar(std::wstring_view expr, std::wstring_view format);

}  // namespace kodra::sql::oracle_forms
