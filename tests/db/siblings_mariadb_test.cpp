// The siblings' SQL on a MariaDB server that contains the sample archive.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "odbc/engine/surroundings.h"
#include "siblings/sibling_classes.h"
#include "testbed/archive/archive.h"
#include "testbed/archive/writer.h"
#include "tests/db/mariadb.h"
#include "tests/db/temporary_folder.h"
#include "values/convert.h"

namespace kodra::siblings {
namespace {

using testbed::CaixaSubordinada;
using testbed::Evento;

constexpr testbed::Size kSize{.documents = 600};

Value CallOf(const ObjectRef& object, std::wstring_view member, const Value& argument) {
  return object->Call(member, {&argument, 1});
}

class SiblingsOnMariaDb : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    archive = new testbed::Archive(testbed::Generate(kSize));
    const tests::TemporaryFolder folder;
    const std::string script = folder / "arquivo.sql";
    std::ofstream file(script, std::ios::binary);
    testbed::WriteMySql(file, kSize);
    file.close();
    tests::MariaDb().CreateDatabase(L"irmaos");
    tests::MariaDb().RunScript(L"irmaos", script);
  }
  static void TearDownTestSuite() { delete archive; }

  SiblingsOnMariaDb() { RegisterSiblings(machine); }

  ObjectRef CreateReader(const std::wstring& progId) {
    ObjectRef object = machine.CreateObject(progId);
    object->Let(L"StringConexao", tests::MariaDb().ConnectionString(L"irmaos"));
    return object;
  }
  // A member's texts for the items of a collection, in its order; empty without a collection.
  static std::vector<std::wstring> Texts(const Value& collection, const wchar_t* member) {
    std::vector<std::wstring> texts;
    if (const ObjectRef items = ObjectIn(collection)) {
      items->ForEach([&](const Value& item) { texts.push_back(values::ToText(RequiredObject(item).Get(member))); });
    }
    return texts;
  }
  std::vector<std::wstring> ActionsFound(std::initializer_list<std::pair<const wchar_t*, Value>> settings) {
    const ObjectRef filter = machine.CreateObject(L"KodraRegEvt.RegEvtFind");
    for (const auto& [member, value] : settings) filter->Let(member, value);
    return Texts(CallOf(CreateReader(L"KodraRegEvt.RegEvtDAO"), L"Localiza", filter), L"Acao");
  }
  // The actions of the archive's events that satisfy a predicate, in the order of time and code.
  template <class Predicate>
  static std::vector<std::wstring> ActionsExpected(Predicate isSo) {
    std::vector<Evento> events = archive->Of<Evento>();
    std::stable_sort(events.begin(), events.end(),
                     [](const Evento& a, const Evento& b) { return a.dataInicial < b.dataInicial; });
    std::vector<std::wstring> actions;
    for (const Evento& event : events) {
      if (isSo(event)) actions.push_back(event.acao.value_or(L""));
    }
    return actions;
  }

  inline static testbed::Archive* archive = nullptr;
  odbc::Surroundings machine;
};

TEST_F(SiblingsOnMariaDb, ReturnSevenCharactersForEverySubordinate) {
  std::size_t compared = 0;
  for (const testbed::Caixa& parent : archive->Of<testbed::Caixa>()) {
    std::vector<std::wstring> closed;
    std::vector<std::wstring> latest;
    testbed::MaybeDay last;
    for (const CaixaSubordinada& module : archive->Of<CaixaSubordinada>()) {
      if (module.numCaixa == parent.numCaixa) last = std::max(last, module.dataFechamento);
    }
    for (const CaixaSubordinada& module : archive->Of<CaixaSubordinada>()) {
      if (module.numCaixa != parent.numCaixa || !module.dataFechamento) continue;
      const std::wstring code = module.numCaixa + testbed::Padded(module.numSeq, 2);
      closed.push_back(code);
      if (module.dataFechamento == last) latest.push_back(code);
    }
    const ObjectRef filter = machine.CreateObject(L"KodraBsnV3.ModulosFiltro");
    filter->Let(L"NumCaixa", parent.numCaixa);
    filter->Let(L"Fechados", 1);
    const ObjectRef reader = CreateReader(L"KodraBsnV3.ObtedorDeModulos");
    EXPECT_EQ(Texts(CallOf(reader, L"ObtemSubordinados", filter), L"NumCaixa"), closed);
    EXPECT_EQ(Texts(CallOf(reader, L"ObtemUltimosSubordinadosFechados", parent.numCaixa), L"NumCaixa"), latest);
    compared += closed.size();
  }
  EXPECT_GT(compared, 0U);
}

TEST_F(SiblingsOnMariaDb, FindTheEventsThatMatchAFilter) {
  EXPECT_EQ(ActionsFound({}), ActionsExpected([](const Evento&) { return true; }));
  const Evento& sample = archive->Of<Evento>()[20];
  const auto ofOneMachine = ActionsExpected(
      [&](const Evento& event) { return event.maquina == sample.maquina && event.tipoEvento == L"EXC"; });
  EXPECT_GT(ofOneMachine.size(), 0U);
  EXPECT_EQ(ActionsFound({{L"Maquina", *sample.maquina}, {L"Tipo_Evento", L"EXC"}}), ofOneMachine);
  const auto ofOneAction =
      ActionsExpected([](const Evento& event) { return event.acao && event.acao->starts_with(L"Exclusão da imagem"); });
  EXPECT_GT(ofOneAction.size(), 0U);
  EXPECT_EQ(ActionsFound({{L"Acao", L"Exclusão da imagem"}}), ofOneAction);
}

TEST_F(SiblingsOnMariaDb, IncludeBothBoundsOfTheTime) {
  const auto moment = archive->Of<Evento>()[30].dataInicial.value();
  const auto isThen = [&](const Evento& event) { return event.dataInicial == moment; };
  const std::string iso = testbed::IsoText(moment);
  const Value bound = values::ToDate(std::wstring(iso.begin(), iso.end()));
  EXPECT_EQ(ActionsFound({{L"DataInicial", bound}, {L"DataFinal", bound}}), ActionsExpected(isThen));
}

TEST_F(SiblingsOnMariaDb, MatchQuotesBackslashesAndWildcardsLiterally) {
  const auto connection = machine.NewConnection();
  connection->SetConnectionString(tests::MariaDb().ConnectionString(L"irmaos"));
  connection->Open(L"", L"", platform::ad::kUnspecified);
  // In a literal of the server two backslashes are one.
  connection->Execute(
      L"INSERT INTO EVENTO (COD_EVENTO, DATA_INICIAL, TIPO_EVENTO, MAQUINA, ACAO) "
      L"VALUES (900001, '2020-01-01', 'ZZZ', '\\\\PC d''Ávila', '100%_! \\\\ de ''tudo''')",
      platform::ad::kCmdText);
  const std::vector<std::wstring> stored = {L"100%_! \\ de 'tudo'"};
  const std::vector<std::wstring> none;
  EXPECT_EQ(ActionsFound({{L"Tipo_Evento", L"ZZZ"}}), stored);
  EXPECT_EQ(ActionsFound({{L"Maquina", L"\\PC d'Ávila"}}), stored);
  EXPECT_EQ(ActionsFound({{L"Maquina", L"PC d'Ávila"}}), none);
  EXPECT_EQ(ActionsFound({{L"Acao", L"%_! \\ de 'tudo'"}}), stored);
  EXPECT_EQ(ActionsFound({{L"Acao", L"0%%! "}}), none);
  connection->Execute(L"DELETE FROM EVENTO WHERE COD_EVENTO = 900001", platform::ad::kCmdText);
}

}  // namespace
}  // namespace kodra::siblings
