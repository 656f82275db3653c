#include "siblings/obtedor_de_modulos.h"

#include <algorithm>

#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"
#include "tests/siblings/archive_on_sqlite.h"
#include "tests/siblings/connection_object.h"
#include "values/dates.h"

namespace kodra::siblings {
namespace {

using recorder::kObjectNotSet;
using recorder::kObjectRequired;
using recorder::RaisedBy;
using testbed::CaixaSubordinada;

std::wstring CodeOf(const CaixaSubordinada& module) {
  return module.numCaixa + (module.numSeq < 10 ? L"0" : L"") + std::to_wstring(module.numSeq);
}

// The codes of a collection in its order.
std::vector<std::wstring> CodesIn(const Value& collection) {
  std::vector<std::wstring> codes;
  RequiredObject(collection).ForEach([&](const Value& module) {
    codes.push_back(values::ToText(RequiredObject(module).Get(L"NumCaixa")));
  });
  return codes;
}

class ObtedorDeModulosTest : public ArchiveOnSqlite {
 protected:
  // The archive's subordinates of a module that satisfy a predicate, in the order of their numbers.
  template <class Predicate>
  static std::vector<std::wstring> Expected(const std::wstring& parent, Predicate isSo) {
    std::vector<std::wstring> codes;
    for (const CaixaSubordinada& module : archive->Of<CaixaSubordinada>()) {
      if (module.numCaixa == parent && isSo(module)) codes.push_back(CodeOf(module));
    }
    std::sort(codes.begin(), codes.end());
    return codes;
  }
  static bool IsClosed(const CaixaSubordinada& module) { return module.dataFechamento.has_value(); }

  Value Subordinates(const ObjectRef& reader, const std::wstring& parent, std::int32_t closed) {
    const ObjectRef filter = Create(L"KodraBsnV3.ModulosFiltro");
    filter->Let(L"NumCaixa", parent);
    filter->Let(L"Fechados", closed);
    return CallOf(reader, L"ObtemSubordinados", {filter});
  }
  Value Subordinates(const std::wstring& parent, std::int32_t closed) {
    return Subordinates(CreateReader(L"KodraBsnV3.ObtedorDeModulos"), parent, closed);
  }
};

TEST_F(ObtedorDeModulosTest, FindsTheSubordinatesOfEveryModule) {
  std::size_t closed = 0;
  std::size_t open = 0;
  for (const testbed::Caixa& module : archive->Of<testbed::Caixa>()) {
    const std::wstring& parent = module.numCaixa;
    const auto all = Expected(parent, [](const auto&) { return true; });
    const auto closedOnes = Expected(parent, IsClosed);
    const auto openOnes = Expected(parent, [](const auto& m) { return !IsClosed(m); });
    EXPECT_EQ(CodesIn(Subordinates(parent, 0)), all);
    EXPECT_EQ(CodesIn(Subordinates(parent, 1)), closedOnes);
    EXPECT_EQ(CodesIn(Subordinates(parent, 2)), openOnes);
    closed += closedOnes.size();
    open += openOnes.size();
  }
  EXPECT_GT(closed, 0U);
  EXPECT_GT(open, 0U);
}

TEST_F(ObtedorDeModulosTest, ReturnsNothingForAModuleThatTheArchiveDoesNotHave) {
  for (const wchar_t* none : {L"ZZ999", L"", L"AA00101", L"AA001' OR '1'='1"}) {
    EXPECT_EQ(Subordinates(none, 1), Value(ObjectRef())) << none;
    EXPECT_EQ(CallOf(CreateReader(L"KodraBsnV3.ObtedorDeModulos"), L"ObtemUltimosSubordinadosFechados", {none}),
              Value(ObjectRef()));
  }
}

TEST_F(ObtedorDeModulosTest, ReturnsAnEmptyCollectionForAModuleWithoutSuchSubordinates) {
  EXPECT_EQ(RequiredObject(Subordinates(L"AA000", 1)).Get(L"Count"), Value(0));
}

TEST_F(ObtedorDeModulosTest, ReturnsEachSubordinateAsItsRowHasIt) {
  std::size_t compared = 0;
  for (const CaixaSubordinada& row : archive->Of<CaixaSubordinada>()) {
    RequiredObject(Subordinates(row.numCaixa, 0)).ForEach([&](const Value& value) {
      AutomationObject& module = RequiredObject(value);
      if (module.Get(L"NumCaixa") != Value(CodeOf(row))) return;
      const auto expect = [&](const wchar_t* member, const std::wstring& expected) {
        EXPECT_EQ(values::ToTextOrEmpty(module.Get(member)), expected) << CodeOf(row).c_str();
      };
      const auto dateText = [](const testbed::MaybeDay& day) {
        return day ? testbed::BrazilianDate(*day) : std::wstring();
      };
      expect(L"NumSeq", std::to_wstring(row.numSeq));
      expect(L"DocInicial", row.docInicial.value_or(L""));
      expect(L"DocFinal", row.docFinal.value_or(L""));
      expect(L"DataVencimento", dateText(row.dataVencimento));
      expect(L"DataFechamento", dateText(row.dataFechamento));
      expect(L"TipoGuarda", row.tipoGuarda.value_or(L""));
      expect(L"AnosVencimento", row.anosVencimento ? std::to_wstring(*row.anosVencimento) : L"");
      ++compared;
    });
  }
  EXPECT_EQ(compared, archive->Of<CaixaSubordinada>().size());
}

TEST_F(ObtedorDeModulosTest, FindsThoseOfTheLatestClosingDay) {
  std::size_t found = 0;
  for (const testbed::Caixa& module : archive->Of<testbed::Caixa>()) {
    testbed::MaybeDay latest;
    for (const CaixaSubordinada& row : archive->Of<CaixaSubordinada>()) {
      if (row.numCaixa == module.numCaixa) latest = std::max(latest, row.dataFechamento);
    }
    const auto expected =
        Expected(module.numCaixa, [&](const auto& row) { return row.dataFechamento && row.dataFechamento == latest; });
    EXPECT_EQ(CodesIn(CallOf(CreateReader(L"KodraBsnV3.ObtedorDeModulos"), L"ObtemUltimosSubordinadosFechados",
                             {module.numCaixa})),
              expected);
    found += expected.size();
  }
  EXPECT_GT(found, 0U);
}

TEST_F(ObtedorDeModulosTest, ReadsThroughTheClientsConnection) {
  const auto client = std::make_shared<ConnectionObject>(machine, ConnectionString());
  const ObjectRef reader = Create(L"KodraBsnV3.ObtedorDeModulos");
  reader->Let(L"StringConexao", L"Driver={SQLite3};Database=/não/há.db");
  reader->Set(L"Conexao", client);
  const std::wstring parent = archive->Of<CaixaSubordinada>().front().numCaixa;
  EXPECT_EQ(CodesIn(Subordinates(reader, parent, 1)), Expected(parent, IsClosed));
  EXPECT_EQ(client->Executed(), 1);
  EXPECT_EQ(Subordinates(reader, L"ZZ999", 1), Value(ObjectRef()));
  EXPECT_EQ(client->Executed(), 3);
}

TEST_F(ObtedorDeModulosTest, NeedsAFilter) {
  const ObjectRef reader = CreateReader(L"KodraBsnV3.ObtedorDeModulos");
  EXPECT_EQ(RaisedBy([&] { CallOf(reader, L"ObtemSubordinados", {ObjectRef()}); }), kObjectNotSet);
  EXPECT_EQ(RaisedBy([&] { CallOf(reader, L"ObtemSubordinados", {L"AA001"}); }), kObjectRequired);
}

// The statements, for a database whose dialect differs from SQLite's.
class ObtedorDeModulosStatements : public testing::Test {
 protected:
  ObtedorDeModulosStatements() { reader.Let(L"StringConexao", L"Driver={MariaDB Unicode};Database=arq"); }

  // The statements opened so far.
  std::vector<std::string> Opened() {
    std::vector<std::string> statements;
    std::istringstream lines(around.journal.Calls());
    for (std::string line; std::getline(lines, line);) {
      const std::size_t start = line.find(".Open(\"SELECT");
      if (start == std::string::npos) continue;
      statements.push_back(line.substr(start + 7, line.find("\", Connection") - start - 7));
    }
    return statements;
  }

  recorder::FakeSurroundings around;
  ObtedorDeModulos reader{around};
};

const std::string kColumns =
    "SELECT CONCAT(s.NUM_CAIXA, LPAD(s.NUM_SEQ, 2, '0')) AS CODIGO, s.NUM_SEQ, s.DOC_INICIAL, s.DOC_FINAL, "
    "s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, s.TIPO_GUARDA, s.ANOS_VENCIMENTO FROM CAIXA_SUBORDINADA s ";

recorder::Rows NoSubordinates() {
  return {{L"CODIGO", L"NUM_SEQ", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO", L"DATA_FECHAMENTO", L"TIPO_GUARDA",
           L"ANOS_VENCIMENTO"},
          {}};
}

TEST_F(ObtedorDeModulosStatements, SelectTheClosedThenAskForTheModule) {
  around.ado.results = {NoSubordinates(), {{L"NUM_CAIXA"}, {{L"A'001"}}}};
  const ObjectRef filter = around.NewObject(L"Filter", {{L"NumCaixa", {L"A'001"}}, {L"Fechados", {1}}});
  const Value argument = filter;
  reader.Call(L"ObtemSubordinados", {&argument, 1});
  EXPECT_EQ(Opened(),
            (std::vector<std::string>{
                kColumns + "WHERE s.NUM_CAIXA = 'A''001' AND s.DATA_FECHAMENTO IS NOT NULL ORDER BY s.NUM_SEQ",
                "SELECT c.NUM_CAIXA FROM CAIXA c WHERE c.NUM_CAIXA = 'A''001'"}));
}

TEST_F(ObtedorDeModulosStatements, SelectTheLastClosed) {
  around.ado.results = {NoSubordinates(), {{L"NUM_CAIXA"}, {{L"AA001"}}}};
  const Value argument = L"AA001";
  reader.Call(L"ObtemUltimosSubordinadosFechados", {&argument, 1});
  EXPECT_EQ(Opened(), (std::vector<std::string>{
                          kColumns + "WHERE s.NUM_CAIXA = 'AA001' AND s.DATA_FECHAMENTO = (SELECT "
                                     "MAX(u.DATA_FECHAMENTO) FROM CAIXA_SUBORDINADA u WHERE u.NUM_CAIXA = s.NUM_CAIXA) "
                                     "ORDER BY s.NUM_SEQ",
                          "SELECT c.NUM_CAIXA FROM CAIXA c WHERE c.NUM_CAIXA = 'AA001'"}));
}

}  // namespace
}  // namespace kodra::siblings
