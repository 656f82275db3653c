// The engines that are reached through ODBC.
#include <algorithm>

#include "demo/utf8.h"
#include "engines/answers.h"
#include "engines/fields.h"
#include "platform/odbc/command.h"
#include "platform/odbc/connection.h"
#include "platform/odbc/recordset.h"
#include "text/format_date.h"
#include "text/numbers.h"

namespace kodra::engines {
namespace {

namespace odbc = platform::odbc;
namespace ad = platform::ad;
using platform::Value;
using support::demo::ToUtf8;

struct TextOf {
  std::string operator()(platform::Null) const { return kNull; }
  std::string operator()(std::int32_t number) const { return "n" + std::to_string(number); }
  std::string operator()(std::int64_t number) const { return "n" + std::to_string(number); }
  std::string operator()(float number) const { return Number(text::NumberToText(number)); }
  std::string operator()(double number) const { return Number(text::NumberToText(number)); }
  std::string operator()(const platform::Decimal& number) const { return Number(text::NumberToText(number)); }
  std::string operator()(platform::Date date) const {
    return "d" + ToUtf8(text::FormatDate<L"yyyy-mm-dd hh:nn:ss">(date));
  }
  std::string operator()(const std::wstring& text) const { return "t" + Escaped(ToUtf8(text)); }
  template <class Other>
  std::string operator()(const Other&) const {
    return "?";  // no engine gives it; never equal to another's value
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
  } catch (const platform::Erro& erro) {
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
