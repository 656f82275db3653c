// The dialect translator, for every database code.
//
// Input: an interval or format, a number or default, an expression or date, parts of a concatenation, one per line.
#include <cwchar>
#include <functional>
#include <limits>

#include "sql/tradutor_sql.h"
#include "tests/fuzz/target.h"
#include "tests/recorder/journal.h"
#include "tests/recorder/raised.h"
#include "values/dates.h"
#include "values/numbers.h"
#include "values/upper.h"

namespace kodra::fuzz {
namespace {

using namespace kodra::sql;
using recorder::Raised;
using recorder::RaisedBy;
using recorder::Utf8;

constexpr std::int32_t kDialects[] = {tbOracle, tbSQLServer, tbMySQL, tbDB2, tbSQLite};
constexpr std::int32_t kWithoutDialect[] = {
    tbOther4, 0, -1, 8, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
// The last layout and the last kind have no name.
constexpr std::int32_t kLayouts[] = {fdDDMMYYYY, fdYYYYMMDD, fdDateTime, 3};
constexpr std::int32_t kKinds[] = {nvNumero, nvTexto, nvData, -1};

// Two characters without a meaning for the translator: placeholders for arguments.
constexpr wchar_t kFirst = L'\ue000';
constexpr wchar_t kSecond = L'\ue001';
const std::wstring kFirstPlace(1, kFirst);
const std::wstring kSecondPlace(1, kSecond);

struct Input {
  std::wstring word, number, expression;
  std::vector<std::wstring> parts;
};

// Whether each quote and parenthesis that is opened is closed.
bool IsBalanced(std::wstring_view sql) {
  int depth = 0;
  bool quoted = false;
  for (const wchar_t c : sql) {
    if (c == L'\'') quoted = !quoted;
    if (quoted) continue;
    if (c == L'(') ++depth;
    if (c == L')' && --depth < 0) return false;
  }
  return depth == 0 && !quoted;
}

// A function of the translator returns the same text for any expression, except for the expression itself.
void RequireVerbatim(const std::function<std::wstring(const std::wstring&, const std::wstring&)>& translate,
                     const std::wstring& one, const std::wstring& other) {
  const std::wstring form = translate(kFirstPlace, kSecondPlace);
  Require(IsBalanced(form), "the translator's own text has balanced quotes and parentheses");
  std::wstring expected;
  for (const wchar_t c : form) {
    if (c == kFirst) {
      expected += one;
    } else if (c == kSecond) {
      expected += other;
    } else {
      expected += c;
    }
  }
  RequireEqual(translate(one, other), expected, "expressions are in the SQL as they were passed");
}

// Some databases get the interval and the format as the caller spelled them, with their quotes.
bool IsPlain(std::wstring_view word) { return word.find_first_of(L"'()\ue000\ue001") == word.npos; }

void CheckDateAdd(const Input& in, std::int32_t code) {
  if (!IsPlain(in.word)) return;
  RequireVerbatim([&](const auto& number, const auto& date) { return SQLDateAdd(in.word, number, date); }, in.number,
                  in.expression);
  if (code == tbSQLServer || code == tbMySQL) return;  // they get a word that is not one of their units unchanged
  RequireEqual(SQLDateAdd(values::UpperCase(in.word), in.number, in.expression),
               SQLDateAdd(in.word, in.number, in.expression), "the letter case of an interval is ignored");
}

void CheckToChar(const Input& in, std::int32_t code) {
  if (!IsPlain(in.word)) return;
  RequireVerbatim([&](const auto& date, const auto&) { return SQLToChar(date, in.word); }, in.expression, L"");
  Require(code != tbSQLite || SQLToChar(in.expression, in.word).empty(), "SQLite's dialect has no text for a date");
}

std::wstring Printed(const wchar_t* format, std::int32_t a, std::int32_t b, std::int32_t c,
                     const values::Calendar& time) {
  wchar_t buffer[64];
  std::swprintf(buffer, std::size(buffer), format, a, b, c, time.hour, time.minute, time.second);
  return buffer;
}

// A recognised date in the form that each database needs.
std::wstring DateLiteral(const values::Calendar& d, std::int32_t code, std::int32_t layout) {
  if (code == tbSQLServer) {
    const wchar_t* format = layout == fdDateTime ? L"'%d-%02d-%02dT%02d:%02d:%02d'" : L"'%d%02d%02d'";
    return Printed(format, d.year, d.month, d.day, d);
  }
  const bool mysql = code == tbMySQL;
  switch (layout) {
    case fdDDMMYYYY:
      return Printed(mysql ? L"STR_TO_DATE('%02d/%02d/%d','%%d/%%m/%%Y')" : L"TO_DATE('%02d/%02d/%d','DD/MM/YYYY')",
                     d.day, d.month, d.year, d);
    case fdYYYYMMDD:
      return Printed(mysql ? L"STR_TO_DATE('%d/%02d/%02d','%%Y/%%m/%%d')" : L"TO_DATE('%d/%02d/%02d','YYYY/MM/DD')",
                     d.year, d.month, d.day, d);
    default:
      return Printed(mysql ? L"STR_TO_DATE('%d/%02d/%02d %02d:%02d:%02d','%%Y/%%m/%%d %%T')"
                           : L"TO_DATE('%d/%02d/%02d %02d:%02d:%02d','YYYY/MM/DD HH24:MI:SS')",
                     d.year, d.month, d.day, d);
  }
}

void CheckToDate(const Input& in, std::int32_t code) {
  const auto date = values::ParseDate(in.expression);
  for (const std::int32_t layout : kLayouts) {
    if (!date || code == tbSQLite) {
      RequireVerbatim([&](const auto& expression, const auto&) { return SQLToDate(expression, layout); }, in.expression,
                      L"");
    } else if (layout <= fdDateTime) {
      RequireEqual(SQLToDate(in.expression, layout), DateLiteral(values::ToCalendar(*date), code, layout),
                   "a date becomes the literal of the database");
    }
  }
}

void CheckToInt(const Input& in) {
  RequireVerbatim([&](const auto& expression, const auto&) { return SQLToInt(expression); }, in.expression, L"");
}

// The default number, which is read with a decimal point and written with a comma.
void CheckNumberDefault(const Input& in) {
  constexpr std::int32_t kOverflow = static_cast<std::int32_t>(RuntimeError::kOverflow);
  std::wstring translated;
  const Raised raised = RaisedBy([&] { translated = SQLNVL(in.expression, nvNumero, in.number); });
  if (raised.number != 0) {
    Require(raised.number == kOverflow && raised.source == L"KodraRpt",
            "a default fails only for a number that is too large");
    return;
  }
  const std::wstring number = values::NumberToText(values::LeadingNumber(in.number));
  Require(number.find_first_not_of(L"0123456789,-+E") == number.npos,
          "a number contains only digits, signs, a comma and an exponent");
  Require(translated.ends_with(in.expression + L", " + number + L")"), "a default number follows its expression");
}

void CheckNVL(const Input& in) {
  CheckNumberDefault(in);
  for (const std::int32_t kind : {nvTexto, nvData}) {
    // An empty default has its own text.
    if (in.number.empty()) continue;
    RequireVerbatim([&](const auto& expression, const auto& value) { return SQLNVL(expression, kind, value); },
                    in.expression, in.number);
  }
  RequireEqual(SQLNVL(in.expression, -1, in.number), SQLNVL(in.expression, nvData, in.number),
               "a default of an unknown kind is treated as a date");
  RequireEqual(SQLNVL(in.expression, nvData, L""), SQLNVL(in.expression, nvData, L"1932-01-30"),
               "an empty default date becomes the date that stands for none");
}

std::vector<Value> AsValues(const std::vector<std::wstring>& texts) { return {texts.begin(), texts.end()}; }

void CheckStrConcat(const Input& in, std::int32_t code) {
  std::vector<std::wstring> places;
  for (std::size_t i = 0; i < in.parts.size(); ++i) places.push_back(kFirstPlace);
  const std::wstring form = SQLStrConcat(AsValues(places));
  Require(IsBalanced(form), "a concatenation has balanced parentheses");
  std::wstring expected;
  std::size_t next = 0;
  for (const wchar_t c : form) {
    if (c == kFirst) {
      expected += in.parts[next++];
    } else {
      expected += c;
    }
  }
  // For MySQL the function is left out when there is nothing to join.
  if (code == tbMySQL && in.parts.size() == 1 && in.parts.front().empty()) expected.clear();
  Require(next == in.parts.size(), "every part is concatenated once");
  RequireEqual(SQLStrConcat(AsValues(in.parts)), expected, "the parts are in the SQL as they were passed");

  std::vector<Value> withNull = AsValues(in.parts);
  withNull.emplace_back(Null());
  RequireEqual(SQLStrConcat(withNull), L"", "a null part makes the concatenation empty");
}

void CheckRefused(const Input& in, std::int32_t code) {
  const auto require = [&](const char* function, const Raised& raised) {
    Require(raised == Raised{kErrBase + 1, "TradutorSQL." + std::string(function),
                             "Não há entrada para o banco tipo " + std::to_string(code)},
            "a database without a dialect is refused with the function's name and the code");
  };
  require("SQLDateAdd", RaisedBy([&] { SQLDateAdd(in.word, in.number, in.expression); }));
  require("SQLDataAtual", RaisedBy([&] { SQLDataAtual(); }));
  require("SQLToInt", RaisedBy([&] { SQLToInt(in.expression); }));
  require("SQLToChar", RaisedBy([&] { SQLToChar(in.expression, in.word); }));
  for (const std::int32_t layout : kLayouts) require("SQLToDate", RaisedBy([&] { SQLToDate(in.expression, layout); }));
  for (const std::int32_t kind : kKinds) require("SQLNVL", RaisedBy([&] { SQLNVL(in.expression, kind, in.number); }));
  RequireEqual(SQLStrConcat(AsValues(in.parts)), L"", "a concatenation without a dialect is empty");
}

void CheckDialect(const Input& in, std::int32_t code) {
  DefineTipoBanco(code);
  CheckDateAdd(in, code);
  CheckToChar(in, code);
  CheckToDate(in, code);
  CheckToInt(in);
  CheckNVL(in);
  CheckStrConcat(in, code);
}

// The results of all functions of the translator for an input and the current code.
std::wstring Everything(const Input& in) {
  std::wstring all = SQLDateAdd(in.word, in.number, in.expression) + SQLDataAtual() + SQLToInt(in.expression) +
                     SQLToChar(in.expression, in.word) + SQLStrConcat(AsValues(in.parts));
  for (const std::int32_t layout : kLayouts) all += SQLToDate(in.expression, layout);
  for (const std::int32_t kind : {nvTexto, nvData}) all += SQLNVL(in.expression, kind, in.number);
  return all;
}

}  // namespace
}  // namespace kodra::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kodra::fuzz;
  const std::vector<std::wstring> fields = Fields(TextOf(data, size), 4);
  Input in{fields[0], fields[1], fields[2], {}};
  for (std::wstring rest = fields[3]; !rest.empty();) {
    const std::vector<std::wstring> split = Fields(rest, 2);
    in.parts.push_back(split[0]);
    rest = split[1];
  }
  for (const std::int32_t code : kDialects) CheckDialect(in, code);
  for (const std::int32_t code : kWithoutDialect) {
    DefineTipoBanco(code);
    CheckRefused(in, code);
  }
  DefineTipoBanco(tbOracle);
  const std::wstring oracle = Everything(in);
  DefineTipoBanco(tbOracleAlt);
  RequireEqual(Everything(in), oracle, "both Oracle codes have the same dialect");
  return 0;
}
