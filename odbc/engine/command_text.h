// The statement that a source text means under ADO's command types.
#pragma once

#include <cstdint>
#include <string>

namespace kodra::odbc {

// A table's name becomes "select * from <name>", a procedure's "{call <name>(?,…)}" with a mark for each parameter;
// every other text is the statement itself. `options` is the argument of an Open or Execute; where it names no type,
// `commandType` is used. An empty text raises 80040E0C.
std::wstring StatementText(const std::wstring& text, std::int32_t options, std::int32_t commandType,
                           std::size_t parameterCount);

}  // namespace kodra::odbc
