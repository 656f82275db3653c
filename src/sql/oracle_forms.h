// Oracle's forms, for the dialects that use them.
#pragma once

#include <cstdint>
#include <string>

namespace kodra::sql::oracle_forms {

std::wstring DateAdd(const std::wstring& interval, const std::wstring& number, const std::wstring& date);
std::wstring ToDate(const std::wstring& text, std::int32_t layout);
std::wstring ToChar(const std::wstring& expr, const std::wstring& format);

}  // namespace kodra::sql::oracle_forms
