// The engines that are used through ODBC.
#include <algorithm>

#include "odbc/engine/command.h"
#include "odbc/engine/connection.h"
#include "odbc/engine/recordset.h"
#include "tests/engines/answers.h"
#include "tests/engines/fields.h"
#include "values/format_date.h"
#include "values/numbers.h"
#include "values/utf8.h"

namespace kodra::engines {
namespace {

namespace ad = platform::ad;
using values::ToUtf8;

struct TextOf {
  std::string operator()(Null) const { return kNull; }
  std::string operator()(std::int32_t number) const { return "n" + std::to_string(number); }
  std::string operator()(std::int64_t number) const { return "n" + std::to_string(number); }
  std::string operator()(float number) const { return Number(values::NumberToText(number)); }
  std::string operator()(double number) const { return Number(values::NumberToText(number)); }
  std::string operator()(const Decimal& number) const { return Number(values::NumberToText(number)); }
  std::string operator()(Date date) const { return "d" + ToUtf8(values::FormatDate(date, L"yyyy-mm-dd hh:nn:ss")); }
  std::string operator()(const std::wstring& text) const { return "t" + Escaped(ToUtf8(text)); }
  template <class Other>
  std::string operator()(const Other&) const {
    return "?";  // no engine returns it; never equal to another's value
  }

 private:
  static std::string Number(const std::wstring& text) {
    std::string digits = ToUtf8(text);
    std::ranges::replace(digits, ',', '.');
    return "n" + digits;
  }
};

Answer Read(odbc::Recordset& recordset) {
  Answer answer;
  for (std::int32_t i = 0; i < recordset.FieldCount(); ++i) answer.columns.push_back(ToUtf8(recordset.FieldAt(i).name));
  if (recordset.Eof()) return answer;
  for (const std::vector<Value>& values : recordset.GetRows(-1)) {
    Row& row = answer.rows.emplace_back();
    for (const Value& value : values) row.push_back(std::visit(TextOf{}, value.Held()));
  }
  return answer;
}

Answer Ask(const Statement& statement, odbc::Connection& connection) {
  try {
    odbc::Command command;
    command.SetActiveConnection(&connection);
    command.SetCommandText(statement.text);
    command.SetCommandType(ad::kCmdText);
    if (statement.parameter)
      command.AppendParameter(L"P", ad::kVarChar, ad::kParamInput,
                              static_cast<std::int32_t>(statement.parameter->size()), *statement.parameter);
    odbc::Recordset recordset;
    recordset.SetCursorLocation(ad::kUseClient);
    recordset.Open(&command, {}, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified);
    return Read(recordset);
  } catch (const Erro& erro) {
    return {.error = ToUtf8(erro.Description())};
  }
}

}  // namespace

std::vector<Answer> AnswersThroughOdbc(std::span<const Statement> statements, const std::wstring& connectionString) {
  odbc::Connection connection;
  connection.Open(connectionString, L"", L"", ad::kUnspecified);
  std::vector<Answer> answers;
  for (const Statement& statement : statements) answers.push_back(Ask(statement, connection));
  return answers;
}

}  // namespace kodra::engines
