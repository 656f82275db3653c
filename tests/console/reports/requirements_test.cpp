// The table of what reports need, against the statements that they send and against the sample archive's schema.
#include "console/reports/requirements.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "console/command_line/databases.h"
#include "console/statements/capture.h"
#include "testbed/archive/schema.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::ToUtf8;
using Columns = std::map<std::wstring, std::set<std::wstring>>;  // by table

Columns Schema() {
  Columns schema;
  for (const testbed::TableShape& table : testbed::AllShapes()) {
    for (const testbed::Column& column : table.columns)
      schema[std::wstring(table.name)].insert(std::wstring(column.name));
  }
  return schema;
}

Columns Required(std::wstring_view list) {
  Columns required;
  for (const TableNeed& need : TablesIn(list)) required[need.table].insert(need.columns.begin(), need.columns.end());
  return required;
}

std::string Shown(const Columns& columns) {
  std::string text;
  for (const auto& [table, names] : columns) {
    for (const std::wstring& name : names) text += ToUtf8(table) + "." + ToUtf8(name) + "\n";
  }
  return text;
}

// The words of a statement outside of quotes: names, with the alias before the point, and numbers.
std::vector<std::wstring> WordsOf(const std::wstring& statement) {
  std::vector<std::wstring> words(1);
  bool quoted = false;
  for (const wchar_t c : statement) {
    if (c == L'\'') quoted = !quoted;
    const bool inWord =
        (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || (c >= L'0' && c <= L'9') || c == L'_' || c == L'.';
    if (!quoted && inWord) {
      words.back() += c;
    } else if (!words.back().empty()) {
      words.emplace_back();
    }
  }
  return words;
}

// Adds the columns that a statement mentions, by the tables that its FROM and JOIN words bring in.
void AddMentioned(const std::wstring& statement, const Columns& schema, Columns& mentioned) {
  const std::vector<std::wstring> words = WordsOf(statement);
  std::map<std::wstring, std::wstring> tableOf;  // by alias, or by the table's own name
  std::set<std::wstring> withoutAlias;
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    if ((words[i] != L"FROM" && words[i] != L"JOIN") || !schema.contains(words[i + 1])) continue;
    const std::wstring& table = words[i + 1];
    tableOf[table] = table;
    mentioned[table];
    const std::wstring next = i + 2 < words.size() ? words[i + 2] : L"";
    const bool alias = !next.empty() && next[0] >= L'a' && next[0] <= L'z';
    if (alias) {
      tableOf[next] = table;
    } else {
      withoutAlias.insert(table);
    }
  }
  for (const std::wstring& word : words) {
    const std::size_t point = word.find(L'.');
    if (point != std::wstring::npos) {
      const auto table = tableOf.find(word.substr(0, point));
      if (table != tableOf.end()) mentioned[table->second].insert(word.substr(point + 1));
      continue;
    }
    for (const std::wstring& table : withoutAlias) {
      if (schema.at(table).contains(word)) mentioned[table].insert(word);
    }
  }
}

// A parameter object that fills in everything, in a way that reaches other branches for each variant.
frame::ParameterObject Filled(const reports::ReportMethod& method, const wchar_t* kind) {
  frame::ParameterObject object(frame::ParameterClassNamed(method.parameterClass));
  for (const frame::Property& property : frame::ParameterClassNamed(method.parameterClass).properties) {
    const bool isKind = property.name == L"TipoRpt" || property.name == L"Tipo" || property.name == L"Ordenacao";
    const bool isModule = property.name.starts_with(L"Modulo");
    if (property.rule == frame::PropertyRule::kDate) {
      object.Let(property.name, Date{45291});
    } else if (property.rule == frame::PropertyRule::kFlag) {
      object.Let(property.name, *kind != L'\0');
    } else if (isKind) {
      object.Let(property.name, kind);
    } else {
      object.Let(property.name, isModule ? (*kind == L'\0' ? L"AB001" : L"AB00101") : L"1");
    }
  }
  return object;
}

struct Sent {
  Columns columns;
  std::set<std::wstring> siblings;
};

// What the report sends and asks for, over all databases and variants.
Sent SentBy(const reports::ReportMethod& method) {
  const Columns schema = Schema();
  Sent sent;
  for (const Database& database : Databases()) {
    for (const wchar_t* kind : {L"", L"S", L"V", L"P", L"F", L"N"}) {
      frame::ParameterObject parameters = Filled(method, kind);
      const Captured captured = Capture(method, database.code, parameters);
      for (const Statement& statement : captured.statements) AddMentioned(statement.text, schema, sent.columns);
      sent.siblings.insert(captured.components.begin(), captured.components.end());
    }
  }
  return sent;
}

TEST(Requirements, StandInTheOrderOfTheReports) {
  ASSERT_EQ(Requirements().size(), reports::ReportMethods().size());
  for (std::size_t i = 0; i < Requirements().size(); ++i) {
    EXPECT_EQ(Requirements()[i].className, reports::ReportMethods()[i].className);
    EXPECT_EQ(Requirements()[i].method, reports::ReportMethods()[i].method);
  }
}

TEST(Requirements, AreTheColumnsThatTheStatementsMentionAndNoOthers) {
  for (std::size_t i = 0; i < Requirements().size(); ++i) {
    const Sent sent = SentBy(reports::ReportMethods()[i]);
    EXPECT_EQ(Shown(Required(Requirements()[i].tables)), Shown(sent.columns))
        << ToUtf8(Requirements()[i].className) << "." << ToUtf8(Requirements()[i].method);
  }
}

TEST(Requirements, AreTheSiblingsThatTheReportsAskFor) {
  for (std::size_t i = 0; i < Requirements().size(); ++i) {
    const std::vector<std::wstring> listed = WordsIn(Requirements()[i].siblings);
    std::set<std::wstring> siblings(listed.begin(), listed.end());
    // Asked once for each operator, and without a database there is none.
    siblings.erase(L"KodraBsnV3.ObtedorDeTiposOperadores");
    // Only the sub-report without a frame gets along without it.
    const bool isFrameless = Requirements()[i].method == L"DocsNoModuloSubRpt";
    if (!isFrameless) siblings.insert(std::wstring(kConnectionSibling));
    EXPECT_EQ(siblings, SentBy(reports::ReportMethods()[i]).siblings)
        << ToUtf8(Requirements()[i].className) << "." << ToUtf8(Requirements()[i].method);
  }
}

TEST(Requirements, AreInTheSampleArchive) {
  const Columns schema = Schema();
  for (const Requirement& requirement : Requirements()) {
    for (const std::wstring_view list : {requirement.tables, requirement.siblingTables}) {
      for (const auto& [table, columns] : Required(list)) {
        ASSERT_TRUE(schema.contains(table)) << ToUtf8(table);
        for (const std::wstring& column : columns)
          EXPECT_TRUE(schema.at(table).contains(column)) << ToUtf8(table) << "." << ToUtf8(column);
      }
    }
  }
}

TEST(TablesIn, TakesAListApart) {
  EXPECT_EQ(TablesIn(L"A: B C; D: E"), (std::vector<TableNeed>{{L"A", {L"B", L"C"}}, {L"D", {L"E"}}}));
  EXPECT_EQ(TablesIn(L""), std::vector<TableNeed>());
  EXPECT_EQ(WordsIn(L"  um  dois "), (std::vector<std::wstring>{L"um", L"dois"}));
}

}  // namespace
}  // namespace kodra::console
