#include "siblings/database.h"

#include <gtest/gtest.h>

#include "sql/tipo_banco.h"
#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"

namespace kodra::siblings {
namespace {

using recorder::Lines;

constexpr const wchar_t* kMySql = L"Driver={MariaDB Unicode};Database=arq";
constexpr const wchar_t* kSqlite = L"Driver={SQLite3};Database=a.db";

TEST(Database, OpensAConnectionOfItsOwnForAStatement) {
  recorder::FakeSurroundings around;
  around.ado.results.push_back({{L"NUM", L"DESCR"}, {{1, L"um"}, {2, Null()}}});
  EXPECT_EQ(Database(around, kSqlite).Read(L"SELECT NUM, DESCR FROM T", {L"DESCR", L"NUM"}),
            (std::vector<Row>{{L"um", 1}, {Null(), 2}}));
  EXPECT_EQ(around.journal.Calls(), Lines({
                                        "NewConnection() -> Connection1",
                                        "Connection1.SetConnectionString(\"Driver={SQLite3};Database=a.db\")",
                                        "Connection1.Open(\"\", \"\", -1)",
                                        "NewRecordset() -> Recordset1",
                                        "Recordset1.SetCacheSize(100)",
                                        "Recordset1.Open(\"SELECT NUM, DESCR FROM T\", Connection1, 0, 1, 1)",
                                        "Recordset1.FieldByName(\"DESCR\")",
                                        "Recordset1.FieldByName(\"NUM\")",
                                        "Recordset1.Eof() -> False",
                                        "Recordset1.Field(DESCR).Get() -> \"um\"",
                                        "Recordset1.Field(NUM).Get() -> 1",
                                        "Recordset1.MoveNext()",
                                        "Recordset1.Eof() -> False",
                                        "Recordset1.Field(DESCR).Get() -> Null",
                                        "Recordset1.Field(NUM).Get() -> 2",
                                        "Recordset1.MoveNext()",
                                        "Recordset1.Eof() -> True",
                                        "~Recordset1",
                                        "~Connection1",
                                    }));
  EXPECT_EQ(around.journal.LiveObjects(), 0);
}

// A client's connection whose only row has one column.
ObjectRef ClientConnection(recorder::FakeSurroundings& around) {
  const ObjectRef field = around.NewObject(L"Field", {{L"Value", {L"Fundo"}}});
  const ObjectRef fields = around.NewObject(L"Fields", {{L"Item", {field}}});
  const ObjectRef rows = around.NewObject(
      L"Rows", {{L"Fields", {fields}}, {L"EOF", {false, true}}, {L"MoveNext", {Value()}}, {L"Close", {Value()}}});
  return around.NewObject(L"Client", {{L"ConnectionString", {kMySql}}, {L"Execute", {rows}}});
}

TEST(Database, ReadsThroughTheClientsConnectionWhenItHasOne) {
  recorder::FakeSurroundings around;
  const ObjectRef client = ClientConnection(around);
  const Database database(around, kSqlite, client);
  EXPECT_EQ(database.Code(), sql::tbMySQL);
  EXPECT_EQ(database.Read(L"SELECT NOME FROM T", {L"NOME"}), (std::vector<Row>{{L"Fundo"}}));
  EXPECT_EQ(around.journal.Calls(), Lines({
                                        "Client.Get(ConnectionString) -> \"Driver={MariaDB Unicode};Database=arq\"",
                                        "Client.Call(Execute, \"SELECT NOME FROM T\") -> Rows",
                                        "Rows.Get(Fields) -> Fields",
                                        "Fields.Call(Item, \"NOME\") -> Field",
                                        "Rows.Get(EOF) -> False",
                                        "Field.Get(Value) -> \"Fundo\"",
                                        "Rows.Call(MoveNext) -> Empty",
                                        "Rows.Get(EOF) -> True",
                                        "Rows.Call(Close) -> Empty",
                                    }));
}

TEST(Database, LeavesNothingBehindWhenACallFails) {
  for (int call = 1;; ++call) {
    recorder::FakeSurroundings around;
    around.ado.results.push_back({{L"NUM"}, {{1}, {2}}});
    around.journal.FailAt(call, recorder::Failure(Erro(-2147467259, L"Driver", L"Sem rede")));
    const recorder::Raised raised =
        recorder::RaisedBy([&] { Database(around, kSqlite).Read(L"SELECT NUM FROM T", {L"NUM"}); });
    EXPECT_EQ(around.journal.LiveObjects(), 0);
    if (around.journal.FailedCall().empty()) {
      EXPECT_GT(call, 10);
      break;
    }
    EXPECT_EQ(raised, (recorder::Raised{-2147467259, "Driver", "Sem rede"})) << call;
  }
}

TEST(Database, QuotesATextForItsSystem) {
  recorder::FakeSurroundings around;
  EXPECT_EQ(Database(around, kSqlite).Quoted(L"Caixa d'Água \\ 1"), L"'Caixa d''Água \\ 1'");
  EXPECT_EQ(Database(around, kMySql).Quoted(L"Caixa d'Água \\ 1"), L"'Caixa d''Água \\\\ 1'");
  EXPECT_EQ(Database(around, kMySql).Quoted(L""), L"''");
}

}  // namespace
}  // namespace kodra::siblings
