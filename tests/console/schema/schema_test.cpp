// Compares what the program states about tables, indexes and limits with the reports, the sample archive and the list
// of behaviours.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "console/command_line/report_name.h"
#include "console/schema/grants.h"
#include "console/schema/indexes.h"
#include "console/schema/limits.h"
#include "console/schema/tables.h"
#include "console/statements/every_statement.h"
#include "console/statements/needs.h"
#include "sql/tipo_banco.h"
#include "testbed/archive/schema.h"
#include "tests/console/failing.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::ToUtf8;

const reports::ReportMethod& MethodNamed(std::string_view name) {
  const reports::ReportMethod& method = FindReport(name);
  EXPECT_EQ(NameOf(method), name);
  return method;
}

TEST(SchemaTables, AreTheTablesAndColumnsThatTheReportsRead) {
  std::set<std::string> needed;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    const Needs needs = NeedsOf(method);
    for (const auto& tables : {needs.tables, needs.siblingTables})
      for (const TableNeed& need : tables)
        for (const std::wstring& column : need.columns) needed.insert(ToUtf8(need.table + L"." + column));
  }
  std::set<std::string> stated;
  for (const schema::Table& table : schema::Tables())
    for (const schema::Column& column : table.columns) stated.insert(ToUtf8(table.name) + "." + ToUtf8(column.name));
  EXPECT_EQ(stated, needed);
}

TEST(SchemaTables, HaveTheTypesOfTheSampleArchive) {
  const std::map<testbed::ColumnType, schema::Kind> kinds = {{testbed::ColumnType::kText, schema::Kind::kText},
                                                             {testbed::ColumnType::kLongText, schema::Kind::kLongText},
                                                             {testbed::ColumnType::kInteger, schema::Kind::kNumber},
                                                             {testbed::ColumnType::kDate, schema::Kind::kDate},
                                                             {testbed::ColumnType::kMoment, schema::Kind::kMoment}};
  const std::vector<testbed::TableShape> shapes = testbed::AllShapes();
  for (const schema::Table& table : schema::Tables()) {
    const auto shape = std::ranges::find(shapes, table.name, &testbed::TableShape::name);
    ASSERT_NE(shape, shapes.end()) << ToUtf8(table.name);
    for (const schema::Column& column : table.columns) {
      const auto sample = std::ranges::find(shape->columns, column.name, &testbed::Column::name);
      ASSERT_NE(sample, shape->columns.end()) << ToUtf8(column.name);
      EXPECT_EQ(column.kind, kinds.at(sample->type)) << ToUtf8(column.name);
      EXPECT_EQ(column.length, sample->length) << ToUtf8(column.name);
    }
  }
}

TEST(SchemaTables, WriteEachTypeInTheWordsOfTheDatabase) {
  const schema::Column text = {L"A", schema::Kind::kText, 10};
  const schema::Column longText = {L"B", schema::Kind::kLongText};
  const schema::Column number = {L"C", schema::Kind::kNumber};
  const schema::Column date = {L"D", schema::Kind::kDate};
  const schema::Column moment = {L"E", schema::Kind::kMoment};
  const auto typesOn = [&](std::int32_t code) {
    std::string types;
    for (const schema::Column& column : {text, longText, number, date, moment})
      types += schema::TypeName(column, code) + " ";
    return types;
  };
  EXPECT_EQ(typesOn(sql::tbOracle), "VARCHAR2(10) CLOB NUMBER(10) DATE DATE ");
  EXPECT_EQ(typesOn(sql::tbSQLServer), "VARCHAR(10) VARCHAR(MAX) INT DATE DATETIME ");
  EXPECT_EQ(typesOn(sql::tbMySQL), "VARCHAR(10) TEXT INT DATE DATETIME ");
  EXPECT_EQ(typesOn(sql::tbDB2), "VARCHAR(10) CLOB INTEGER DATE TIMESTAMP ");
  EXPECT_EQ(typesOn(sql::tbSQLite), "VARCHAR(10) TEXT INTEGER DATE TIMESTAMP ");
}

// A report can use an index only if it names its first column.
TEST(SchemaIndexes, AreOnColumnsThatTheirReportsRead) {
  for (const schema::Index& index : schema::Indexes()) {
    EXPECT_FALSE(index.reports.empty()) << schema::Described(index);
    for (const std::string_view report : index.reports) {
      const Needs needs = NeedsOf(MethodNamed(report));
      const bool isRead = std::ranges::any_of(std::vector{needs.tables, needs.siblingTables}, [&](const auto& tables) {
        const auto table = std::ranges::find(tables, index.table, &TableNeed::table);
        return table != tables.end() &&
               std::ranges::find(table->columns, index.columns.front()) != table->columns.end();
      });
      EXPECT_TRUE(isRead) << schema::Described(index) << " " << report;
    }
  }
}

TEST(SchemaIndexes, HaveNamesOfTheirOwnThatEveryOracleAccepts) {
  std::set<std::string> names;
  for (const schema::Index& index : schema::Indexes()) {
    EXPECT_LE(schema::NameOf(index).size(), 30U);
    EXPECT_TRUE(names.insert(schema::NameOf(index)).second) << schema::NameOf(index);
  }
}

TEST(SchemaLimits, NameReportsAndEntriesOfTheListOfBehaviours) {
  std::ostringstream behaviours;
  behaviours << std::ifstream(KODRA_SOURCE_DIR "/docs/behaviours.md").rdbuf();
  for (const schema::Limit& limit : schema::Limits()) {
    EXPECT_NE(behaviours.str().find("\n**" + std::string(limit.entry)), std::string::npos) << limit.entry;
    EXPECT_FALSE(limit.text.ends_with('.')) << limit.text;
    for (const std::string_view report : limit.reports) MethodNamed(report);
  }
}

// Otherwise the limit would excuse no refusal.
TEST(SchemaLimits, OfAFailureNameAPartOfAStatementOfEachReport) {
  for (const schema::Limit& limit : schema::Limits()) {
    if (limit.extent == schema::Extent::kFindsNothing) continue;
    for (const std::string_view report : limit.reports) {
      const EveryStatement every = EveryStatementOf(MethodNamed(report), limit.databaseCode);
      EXPECT_TRUE(std::ranges::any_of(every.ofReport, [&](const Statement& statement) {
        return statement.text.find(limit.inStatement) != std::wstring::npos;
      })) << report;
    }
  }
}

TEST(SchemaGrants, NameTheUserInTheQuotesOfTheDatabase) {
  const auto first = [](const char* user, std::int32_t code) { return schema::Grants(user, code).front(); };
  EXPECT_EQ(first("LEITURA", sql::tbOracle), "GRANT SELECT ON PARAMETRO TO \"LEITURA\"");
  EXPECT_EQ(first("LEITURA", sql::tbDB2), "GRANT SELECT ON PARAMETRO TO \"LEITURA\"");
  EXPECT_EQ(first("EMPRESA\\joão", sql::tbSQLServer), "GRANT SELECT ON PARAMETRO TO [EMPRESA\\joão]");
  EXPECT_EQ(first("ana", sql::tbMySQL), "GRANT SELECT ON PARAMETRO TO 'ana'@'%'");
  EXPECT_EQ(first("ana@10.0.%", sql::tbMySQL), "GRANT SELECT ON PARAMETRO TO 'ana'@'10.0.%'");
}

TEST(SchemaGrants, CoverEveryTableAndNothingElse) {
  const std::vector<std::string> grants = schema::Grants("ANA", sql::tbOracle);
  ASSERT_EQ(grants.size(), schema::Tables().size());
  for (std::size_t i = 0; i < grants.size(); ++i)
    EXPECT_EQ(grants[i], "GRANT SELECT ON " + ToUtf8(schema::Tables()[i].name) + " TO \"ANA\"");
  EXPECT_EQ(schema::Grants("ANA", sql::tbSQLite), std::vector<std::string>());
}

TEST(SchemaGrants, RefuseNamesThatWouldLeaveTheirQuotes) {
  const auto expectRefusal = [](const std::string& user, std::int32_t code) {
    EXPECT_EQ(RefusalOf([&] { schema::Grants(user, code); }),
              "o usuário \"" + user + "\" não é um nome que possa ir para uma instrução SQL")
        << code;
  };
  for (const std::int32_t code : {sql::tbOracle, sql::tbSQLServer, sql::tbMySQL, sql::tbDB2, sql::tbSQLite}) {
    for (const char* user : {"", "a\"b", "a'b", "a]b", "a`b", "a b", "a;b", "a\nb", "a--(b)"})
      expectRefusal(user, code);
    expectRefusal(std::string(129, 'a'), code);
  }
  // In MySQL's quotes a backslash begins an escape.
  expectRefusal("a\\", sql::tbMySQL);
  expectRefusal("ana@", sql::tbMySQL);
  expectRefusal("@%", sql::tbMySQL);
}

}  // namespace
}  // namespace kodra::console
