#include "siblings/modulos_bsn.h"

#include <gtest/gtest.h>

#include "siblings/modulos_filtro.h"
#include "siblings/value_object.h"
#include "sql/tradutor_sql.h"
#include "tests/recorder/journal.h"
#include "tests/recorder/raised.h"
#include "tests/siblings/archive_on_sqlite.h"

namespace kodra::siblings {
namespace {

using recorder::Raised;
using recorder::RaisedBy;
using sql::tbDB2;
using sql::tbMySQL;
using sql::tbOracle;
using sql::tbOracleAlt;
using sql::tbOther4;
using sql::tbSQLite;
using sql::tbSQLServer;

Value CodeExpression(std::int32_t databaseCode, const wchar_t* alias) {
  ModulosBsn modules;
  const Value arguments[] = {databaseCode, alias};
  return modules.Call(L"NumCxSubordinadaSQL", arguments);
}

TEST(ModulosBsn, BuildTheSubordinateCodeInTheDialectOfEachDatabase) {
  const std::pair<std::int32_t, const wchar_t*> kExpressions[] = {
      {tbOracle, L"s.NUM_CAIXA || LPAD(TO_CHAR(s.NUM_SEQ), 2, '0')"},
      {tbSQLServer, L"s.NUM_CAIXA + RIGHT('0' + CAST(s.NUM_SEQ AS VARCHAR(10)), 2)"},
      {tbMySQL, L"CONCAT(s.NUM_CAIXA, LPAD(s.NUM_SEQ, 2, '0'))"},
      {tbOracleAlt, L"s.NUM_CAIXA || LPAD(TO_CHAR(s.NUM_SEQ), 2, '0')"},
      {tbDB2, L"s.NUM_CAIXA || SUBSTR(DIGITS(INTEGER(s.NUM_SEQ)), 9)"},
      {tbSQLite, L"s.NUM_CAIXA || substr('0' || s.NUM_SEQ, -2)"},
  };
  for (const auto& [code, expression] : kExpressions)
    EXPECT_EQ(CodeExpression(code, L"s"), Value(expression)) << "database code " << code;
}

TEST(ModulosBsn, TakeAnyAliasAndNone) {
  EXPECT_EQ(CodeExpression(tbSQLite, L"sub"), Value(L"sub.NUM_CAIXA || substr('0' || sub.NUM_SEQ, -2)"));
  EXPECT_EQ(CodeExpression(tbSQLite, L""), Value(L"NUM_CAIXA || substr('0' || NUM_SEQ, -2)"));
}

TEST(ModulosBsn, HaveNoExpressionForASystemWithoutADialect) {
  for (const std::int32_t code : {tbOther4, 0, -1, 8}) {
    EXPECT_EQ(RaisedBy([&] { CodeExpression(code, L"s"); }),
              (Raised{kErrBase + 1, "KodraBsnV3.ModulosBsn::NumCxSubordinadaSQL",
                      "Não há entrada para o banco tipo " + std::to_string(code)}));
  }
}

TEST(ModulosBsn, DoNotChangeTheTranslatorsCode) {
  sql::DefineTipoBanco(tbSQLServer);
  CodeExpression(tbSQLite, L"s");
  EXPECT_EQ(sql::SQLDataAtual(), L"DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))");
  sql::DefineTipoBanco(0);
}

TEST(ModulosBsn, KeepTheConnectionThatAClientSets) {
  ModulosBsn modules;
  EXPECT_EQ(modules.Get(L"Conexao"), Value(ObjectRef()));
  const ObjectRef connection = std::make_shared<ValueObject>(std::vector<ValueObject::Entry>{});
  modules.Set(L"Conexao", connection);
  modules.Let(L"StringConexao", L"Driver={SQLite3}");
  modules.Let(L"LogFile", L"/tmp/a.log");
  EXPECT_EQ(modules.Get(L"Conexao"), Value(connection));
  EXPECT_EQ(modules.Get(L"StringConexao"), Value(L"Driver={SQLite3}"));
  EXPECT_EQ(modules.Get(L"LogFile"), Value(L"/tmp/a.log"));
}

TEST(ModulosFiltro, SelectsAllModulesByDefault) {
  ModulosFiltro filter;
  EXPECT_EQ(filter.Get(L"NumCaixa"), Value(L""));
  EXPECT_EQ(filter.Get(L"Fechados"), Value(0));
  filter.Let(L"NumCaixa", L"AA001");
  filter.Let(L"Fechados", 1);
  EXPECT_EQ(filter.Get(L"NumCaixa"), Value(L"AA001"));
  EXPECT_EQ(filter.Get(L"Fechados"), Value(1));
}

// The expression on a real database.
using ModulosBsnOnSqlite = ArchiveOnSqlite;

TEST_F(ModulosBsnOnSqlite, BuildSevenCharactersForEverySubordinate) {
  std::vector<testbed::TextRow> expected;
  for (const testbed::CaixaSubordinada& module : archive->Of<testbed::CaixaSubordinada>()) {
    expected.push_back(
        {recorder::Utf8(module.numCaixa) + (module.numSeq < 10 ? "0" : "") + std::to_string(module.numSeq)});
  }
  std::sort(expected.begin(), expected.end());
  ASSERT_GT(expected.size(), 3U);
  EXPECT_EQ(testbed::Query(file->Path(), "SELECT " + recorder::Utf8(SubordinateCode(7, L"s")) +
                                             " AS C FROM CAIXA_SUBORDINADA s ORDER BY C"),
            expected);
}

}  // namespace
}  // namespace kodra::siblings
