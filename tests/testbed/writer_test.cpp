#include "testbed/archive/writer.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "testbed/archive/archive.h"
#include "tests/testbed/sqlite_reader.h"
#include "values/utf8.h"

namespace kodra::testbed {
namespace {

std::string Stored(const Cell& cell) {
  if (const auto* number = std::get_if<std::int64_t>(&cell)) return std::to_string(*number);
  if (const auto* text = std::get_if<std::wstring_view>(&cell)) return values::ToUtf8(*text);
  if (const auto* day = std::get_if<Day>(&cell)) return IsoText(*day);
  if (const auto* moment = std::get_if<Moment>(&cell)) return IsoText(*moment);
  return "NULL";
}

// The part of a script from one mark to before another.
std::string Between(const std::string& script, const std::string& first, const std::string& last) {
  const std::size_t from = script.find(first);
  if (from == std::string::npos) return "no " + first;
  return script.substr(from, script.find(last, from) - from);
}

std::string MySqlScript(Size size) {
  std::ostringstream script;
  WriteMySql(script, size);
  return script.str();
}

TEST(SqliteWriter, StoresEveryRowOfEveryTableAsItWasGenerated) {
  const TemporaryFile file("rows.db");
  WriteSqlite(file.Path(), {.documents = 500});
  const Archive archive = Generate({.documents = 500});
  ForEachRecordType([&]<class Record>() {
    const auto& table = TableOf<Record>();
    std::vector<TextRow> expected;
    std::vector<Cell> cells;
    for (const Record& record : archive.Of<Record>()) {
      table.Read(record, cells);
      TextRow& row = expected.emplace_back();
      for (const Cell& cell : cells) row.push_back(Stored(cell));
    }
    EXPECT_EQ(Query(file.Path(), "SELECT * FROM " + values::ToUtf8(table.shape.name) + " ORDER BY rowid"), expected);
  });
}

TEST(SqliteWriter, ReplacesAnExistingFile) {
  const TemporaryFile file("replaced.db");
  std::ofstream(file.Path()) << "not a database";
  WriteSqlite(file.Path(), {.documents = 3});
  EXPECT_EQ(Query(file.Path(), "SELECT COUNT(*) FROM DOCUMENTO"), (std::vector<TextRow>{{"3"}}));
}

TEST(SqliteWriter, NamesWhatFailedAndLeavesNoFile) {
  const std::string path = testing::TempDir() + "no-such-folder/archive.db";
  EXPECT_THROW(WriteSqlite(path, {.documents = 3}), std::runtime_error);
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(SqliteWriter, IndexesTheColumnsThatReportsSearch) {
  const TemporaryFile file("indexes.db");
  WriteSqlite(file.Path(), {.documents = 0});
  EXPECT_EQ(Query(file.Path(), "SELECT sql FROM sqlite_master WHERE name = 'IX_DOCUMENTO_DT_ARMAZ'"),
            (std::vector<TextRow>{{"CREATE INDEX IX_DOCUMENTO_DT_ARMAZ ON DOCUMENTO (DT_ARMAZ)"}}));
}

TEST(MySqlWriter, BeginsWithTheSettingsForReadingTheScript) {
  EXPECT_EQ(Between(MySqlScript({.documents = 0}), "SET NAMES", "DROP TABLE"),
            "SET NAMES utf8mb4;\n"
            "SET SESSION sql_mode='STRICT_ALL_TABLES';\n"
            "START TRANSACTION;\n");
}

TEST(MySqlWriter, ReplacesATableAndFillsItInOneStatement) {
  EXPECT_EQ(Between(MySqlScript({.documents = 0}), "DROP TABLE IF EXISTS TIPO_CAIXA;", "DROP TABLE IF EXISTS CAIXA;"),
            "DROP TABLE IF EXISTS TIPO_CAIXA;\n"
            "CREATE TABLE TIPO_CAIXA (\n"
            "  COD_TIPO_CX VARCHAR(10) NOT NULL,\n"
            "  DESCR_TIPO_CX VARCHAR(50),\n"
            "  NUM_MAX_DOCS INT,\n"
            "  NUM_MAX_FOLHAS INT,\n"
            "  PRIMARY KEY (COD_TIPO_CX)\n"
            ") DEFAULT CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;\n"
            "INSERT INTO TIPO_CAIXA (COD_TIPO_CX, DESCR_TIPO_CX, NUM_MAX_DOCS, NUM_MAX_FOLHAS) VALUES\n"
            "('0','(reservado)',0,0),\n"
            "('1','Caixa-arquivo padrão',300,1500),\n"
            "('2','Caixa grande',900,4500),\n"
            "('3','Pasta suspensa',50,NULL),\n"
            "('4','Tubo para plantas',NULL,40);\n");
}

TEST(MySqlWriter, EscapesQuotesAndBackslashes) {
  const std::string script = MySqlScript({.documents = 64});
  EXPECT_NE(script.find(R"('\\\\SERVIDOR\\Imagens\\CD000001\\0000000002.)"), std::string::npos);
  EXPECT_NE(script.find(R"('Conferido por D\'Ávila; cópia "A" extraviada.')"), std::string::npos);
}

TEST(MySqlWriter, FillsATableWithoutRowsWithNothing) {
  EXPECT_EQ(MySqlScript({.documents = 0}).find("INSERT INTO DOCUMENTO"), std::string::npos);
}

TEST(MySqlWriter, EndsByCommitting) { EXPECT_TRUE(MySqlScript({.documents = 64}).ends_with(";\nCOMMIT;\n")); }

TEST(MySqlWriter, KeepsEveryStatementWithinAServersSmallestPacket) {
  std::istringstream script(MySqlScript({.documents = 20000}));
  std::size_t longest = 0;
  std::size_t statement = 0;
  for (std::string line; std::getline(script, line);) {
    statement += line.size() + 1;
    if (!line.ends_with(';')) continue;
    longest = std::max(longest, statement);
    statement = 0;
  }
  EXPECT_GT(longest, 200U * 1024);
  EXPECT_LT(longest, 1024U * 1024);
}

TEST(MySqlWriter, RaisesAnErrorForAStreamThatFails) {
  std::ostringstream script;
  script.setstate(std::ios::badbit);
  EXPECT_THROW(WriteMySql(script, {.documents = 1}), std::runtime_error);
}

}  // namespace
}  // namespace kodra::testbed
