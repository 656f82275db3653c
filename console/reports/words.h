// Phrases for the guide's entries, the same on the console and on the reference pages.
#pragma once

#include <string>
#include <string_view>

#include "console/reports/guide.h"
#include "frame/parameter_object.h"

namespace kodra::console::guide {

// "texto", "número", "data", "sim ou não".
std::string_view TypeWord(ValueType type);
// The type of a property and what an assignment keeps of a value: "texto, só a primeira letra, em maiúscula".
std::string_view RuleWords(frame::PropertyRule rule);
// What a property does in a report; empty for one that the report does not read.
std::string EffectWords(const reports::ReportMethod& method, const frame::Property& property);
// The report's parameters with the guide's examples, as they are typed: " --CodDepto 7"; empty for none.
std::string SampleArguments(const Report& report);
// A column's meaning, with the values of TipoRpt with which the recordset has it.
std::string MeaningWords(const Column& column);

// A sentence as it continues after a colon: its first letter in lower case, unless it begins with a name as "UID".
std::string Continued(std::string_view sentence);

}  // namespace kodra::console::guide
