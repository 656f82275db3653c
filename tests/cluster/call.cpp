#include "tests/cluster/call.h"

#include <algorithm>
#include <functional>
#include <vector>

#include "console/run/row_source.h"
#include "frame/parameter_object.h"
#include "siblings/sibling_classes.h"
#include "values/convert.h"

namespace kodra::tests {
namespace {

// One text for each value; a null has none that a value could have.
std::wstring TextOf(const Value& value) { return value.Is<Null>() ? L"\x1" : values::ToText(value); }

}  // namespace

Machine::Machine() { siblings::RegisterSiblings(*this); }

std::ostream& operator<<(std::ostream& out, const Answer& answer) {
  return out << answer.rows << " rows with hash " << answer.hash << "; " << answer.error;
}

frame::ReportRows Open(const engines::Case& wanted, const std::wstring& connectionString, Machine& machine) {
  frame::ParameterObject parameters(frame::ParameterClassNamed(wanted.method->parameterClass));
  for (const engines::Setting& setting : wanted.settings) parameters.Let(setting.property, setting.value);
  return wanted.method->call(machine, connectionString, &parameters);
}

Answer Call(const engines::Case& wanted, const std::wstring& connectionString) {
  Machine machine;
  Answer answer;
  std::wstring all;
  std::vector<std::wstring> texts;
  answer.error = RaisedBy([&] {
    frame::ReportRows rows = Open(wanted, connectionString, machine);
    console::RowSource source(std::move(rows), *wanted.method);
    for (const console::Column& column : source.Columns()) all += column.name + L'\x2';
    for (std::vector<Value> values; source.Next(values);) {
      std::wstring& text = texts.emplace_back();
      for (const Value& value : values) text += TextOf(value) + L'\x2';
    }
  });
  answer.rows = texts.size();
  std::ranges::sort(texts);
  for (const std::wstring& text : texts) all += text + L'\x3';
  answer.hash = std::hash<std::wstring>()(all);
  return answer;
}

}  // namespace kodra::tests
