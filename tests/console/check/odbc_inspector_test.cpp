// What a database says about itself, on both databases.
#include "console/check/odbc_inspector.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/console/check/archive.h"
#include "tests/db/sqlite_file.h"
#include "values/erro.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using tests::Engine;
using Columns = std::vector<std::string>;

class OdbcInspectorTest : public testing::TestWithParam<Engine> {};

INSTANTIATE_TEST_SUITE_P(, OdbcInspectorTest, testing::Values(Engine::kSqlite, Engine::kMariaDb), tests::EngineName);

TEST_P(OdbcInspectorTest, RaisesTheDatabasesWordsForAStatementThatItRefuses) {
  const auto inspector = OdbcInspector::Open(tests::EmptyOn(GetParam()));
  inspector->Prepare(L"SELECT COD_DEPTO FROM DEPTO WHERE COD_DEPTO = ?");
  try {
    inspector->Prepare(L"SELECT COD_DEPTO FROM DEPTO WHERE NADA = 1");
    FAIL() << "the statement is accepted";
  } catch (const Erro& error) {
    EXPECT_NE(error.Description().find(L"NADA"), std::wstring::npos) << values::ToUtf8(error.Description());
  }
}

TEST_P(OdbcInspectorTest, RunsNoStatementThatItPrepares) {
  const std::wstring archive = NewArchiveOn(GetParam(), {});
  OdbcInspector::Open(archive)->Prepare(L"DROP TABLE DEPTO");
  EXPECT_EQ(OdbcInspector::Open(archive)->Lengths(L"DEPTO", {L"COD_DEPTO"}), std::vector<std::int64_t>{10});
}

TEST_P(OdbcInspectorTest, ListsTheColumnsOfKeysAndIndexesInTheirOrder) {
  const auto inspector =
      OdbcInspector::Open(NewArchiveOn(GetParam(), {L"CREATE INDEX LOCAL_DA_CAIXA ON CAIXA (COORD_Z, COORD_X)"}));
  const std::vector<Columns> ofModules = inspector->Indexes("CAIXA");
  EXPECT_TRUE(std::ranges::find(ofModules, Columns{"NUM_CAIXA"}) != ofModules.end());
  EXPECT_TRUE(std::ranges::find(ofModules, Columns({"COORD_Z", "COORD_X"})) != ofModules.end());
  EXPECT_TRUE(std::ranges::find(ofModules, Columns{"CONTAINER"}) == ofModules.end());
  const std::vector<Columns> ofSubordinates = inspector->Indexes("CAIXA_SUBORDINADA");
  EXPECT_TRUE(std::ranges::find(ofSubordinates, Columns({"NUM_CAIXA", "NUM_SEQ"})) != ofSubordinates.end());
}

TEST(OdbcInspectorKeys, AreListedBesideTheIndexesThatTheDriverHasForThem) {
  tests::SqliteFile file;
  file.Run(L"CREATE TABLE CAIXA (NUM_CAIXA INTEGER PRIMARY KEY, CONTAINER VARCHAR(10))");
  EXPECT_EQ(OdbcInspector::Open(file.ConnectionString())->Indexes("CAIXA"),
            (std::vector<Columns>{{"NUM_CAIXA"}, {"NUM_CAIXA"}}));
}

TEST_P(OdbcInspectorTest, ReturnsTheLengthsOfTextColumns) {
  const auto inspector = OdbcInspector::Open(tests::EmptyOn(GetParam()));
  EXPECT_EQ(inspector->Lengths(L"OPERADOR", {L"NOME_COMPLETO", L"CHAPA"}), (std::vector<std::int64_t>{300, 20}));
}

TEST(OdbcInspectorOpen, ReturnsNullForAnOleDbProvider) {
  EXPECT_EQ(OdbcInspector::Open(L"Provider=OraOLEDB.Oracle;Data Source=ACERVO"), nullptr);
  EXPECT_NE(OdbcInspector::Open(L"Provider=MSDASQL.1;" + tests::EmptyOn(Engine::kSqlite)), nullptr);
}

}  // namespace
}  // namespace kodra::console
