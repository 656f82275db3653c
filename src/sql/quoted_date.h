// A date as a literal in quotes, which Oracle, DB2 and MySQL read back by a pattern.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace kodra::sql {

// A text that values::ParseDate recognises, in the order of the layout: '31/12/2023', '2023/12/31' or
// '2023/12/31 10:20:30'; nothing when it does not recognise the text and for an unknown layout.
std::optional<std::wstring> QuotedDate(const std::wstring& text, std::int32_t layout);

}  // namespace kodra::sql
