// The slips of withdrawn originals, their list and the event log from the sample archive, compared with rows worked out
// from its tables.
#include "tests/wine/report_rows.h"

namespace kodra::face {
namespace {

constexpr const wchar_t* kReport = L"CSolicitacaoRpt";
const Names kSlipColumns = {L"OPERADOR", L"DOCUMENTOS", L"DEVOLUCAO", L"OBS_SOLICIT"};
const Names kListColumns = {L"TITULO", L"COD_DOCTO", L"DESCR_OPERADOR", L"DT_RETIRADA", L"DEVOLVIDO", L"DT_DEVOLUCAO"};

std::wstring ReturnSentence(const Row& request, bool several) {
  const Cell& mode = request[L"DEVOLVIDO"];
  if (mode == L"P")
    return several ? L"Os documentos serão retirados permanentemente." : L"O documento será retirado permanentemente.";
  if (mode == L"I")
    return several ? L"As devoluções não têm data determinada para ocorrer."
                   : L"A devolução não tem data determinada para ocorrer.";
  if (mode != L"D") return L"";
  const std::wstring date = Brazilian(*request[L"DT_DEVOLUCAO"]);
  return several ? L"As devoluções destes documentos deverão ser realizadas em " + date + L"."
                 : L"A devolução deste documento deverá ser realizada em " + date + L".";
}

// What slips and list are made of.
class Requests : protected ArchiveClient {
 public:
  using ArchiveClient::ArchiveClient;

  Cell Person(const Cell& code) const {
    const Row person = RowOf(L"OPERADOR", L"COD_OPERADOR", code);
    return OrEmpty(person[L"NOME_COMPLETO"]).empty() ? person[L"DESCR_OPERADOR"] : person[L"NOME_COMPLETO"];
  }

  // The line of a document; none for one that stands in no module.
  std::optional<std::wstring> Line(const Cell& code) const {
    const auto module = Find(L"CAIXA", L"NUM_CAIXA", RowOf(L"DOCUMENTO", L"COD_DOCTO", code)[L"NUM_CAIXA"]);
    if (!module) return std::nullopt;
    std::wstring place;
    for (const auto& [name, column] : {std::pair(L"fileira ", L"COORD_X"), std::pair(L"estante ", L"COORD_Y"),
                                       std::pair(L"prateleira ", L"COORD_Z")}) {
      const std::wstring value = OrEmpty((*module)[column]);
      if (!value.empty()) place += (place.empty() ? L"" : L", ") + (name + value);
    }
    const std::wstring line = L"* " + *code + L", no módulo de guarda " + *(*module)[L"NUM_CAIXA"];
    return place.empty() ? line : line + L" (" + place + L")";
  }
  std::multiset<std::wstring> Lines(const Names& requests) const {
    std::multiset<std::wstring> lines;
    for (const auto& request : requests)
      for (const Row& row : RowsOfRequest(request))
        if (const auto line = Line(row[L"COD_DOCTO"])) lines.insert(*line);
    return lines;
  }
  std::vector<Row> RowsOfRequest(const std::wstring& request) const {
    return TableOf(L"SOLICITACAO").Where(L"COD_SOLICIT", request);
  }

  // What stands beside each line of a slip that speaks of this request.
  Cells Head(const std::wstring& request, bool several) const {
    const Row row = RowsOfRequest(request).front();  // a request's rows differ in their document only
    const std::wstring remark = OrEmpty(row[L"OBS_SOLICIT"]);
    return {Person(row[L"COD_OPERADOR"]), ReturnSentence(row, several), remark.empty() ? L"-" : remark};
  }
  Rows Slip(const std::wstring& request) const {
    Rows slip{kSlipColumns, {}};
    const auto lines = Lines({request});
    const Cells head = Head(request, lines.size() >= 2);
    for (const auto& line : lines) slip.rows.push_back({head[0], line, head[1], head[2]});
    return slip;
  }
};

class RequestRows : public OnBothDatabases {
 protected:
  Ref<IDispatch> OpenSlip(const std::wstring& requests) const {
    return Open(kReport, L"RelatorioRetiradaOriginal", {{L"CodSolicit", requests}});
  }
  const Requests requests_{GetParam()};
};
KODRA_ON_BOTH_DATABASES(RequestRows);

TEST_P(RequestRows, OfASlipAreItsDocumentsWithPlaceReturnAndRemark) {
  std::set<Cell> modes;
  std::set<std::size_t> lengths;
  for (int number = 1; number <= 20; ++number) {
    const std::wstring request = std::to_wstring(number);
    SCOPED_TRACE(number);
    const Rows expected = requests_.Slip(request);
    if (expected.rows.empty()) continue;
    modes.insert(requests_.RowsOfRequest(request).front()[L"DEVOLVIDO"]);
    lengths.insert(expected.rows.size());
    ExpectRows(expected, ReadFromFirst(OpenSlip(request)), {});
  }
  EXPECT_EQ((std::set<Cell>{L"P", L"I", L"D", L"S", L"X", {}}), modes);
  EXPECT_TRUE(lengths.contains(1) && lengths.contains(3));
}

TEST_P(RequestRows, OfASlipEndOnTheOneThatWasAddedLast) {
  const auto slip = OpenSlip(L"2");
  const Rows rest = ReadAll(slip);
  const Rows whole = ReadFromFirst(slip);
  ASSERT_LT(1U, whole.rows.size());
  EXPECT_EQ(std::vector<Cells>{whole.rows.back()}, rest.rows);
}

TEST_P(RequestRows, OfASlipForSeveralRequestsHaveAllTheirDocumentsAndOneOfTheirHeads) {
  const Rows slip = ReadFromFirst(OpenSlip(L"1,2,4,8"));
  std::multiset<std::wstring> lines;
  std::set<Cells> heads;
  Names modules;
  for (const Cells& cells : slip.rows) {
    const std::wstring line = *cells[1];
    lines.insert(line);
    heads.insert({cells[0], cells[2], cells[3]});
    modules.push_back(line.substr(line.find(L"guarda ") + 7, 5));
  }
  EXPECT_EQ(requests_.Lines({L"1", L"2", L"4", L"8"}), lines);
  EXPECT_TRUE(std::is_sorted(modules.begin(), modules.end()));
  EXPECT_NE(modules.front(), modules.back());
  // Which of the requests the slip speaks of, the database decides; none of these returns by a set date.
  ASSERT_EQ(1U, heads.size());
  EXPECT_TRUE((std::set<Cells>{requests_.Head(L"1", true), requests_.Head(L"2", true), requests_.Head(L"4", true),
                               requests_.Head(L"8", true)})
                  .contains(*heads.begin()));
}

TEST_P(RequestRows, OfASlipThatNobodyAskedForAreAnError) {
  EXPECT_EQ(Framed(L"CSolicitacaoRpt::RelatorioRetiradaOriginal",
                   L"A variável do objeto ou a variável do bloco 'With' não foi definida"),
            ErrorOf(kReport, L"RelatorioRetiradaOriginal", {{L"CodSolicit", L"99999"}}));
}

class RequestRowsOnMariaDb : public OnMariaDb {};

TEST_F(RequestRowsOnMariaDb, OfTheListHaveTheirDatesAsTexts) {
  const Requests requests(Engine::kMariaDb);
  const auto day = [](const Cell& moment) { return moment ? Cell(Brazilian(*moment)) : Cell(); };
  for (const bool all : {false, true}) {
    Rows expected{kListColumns, {}};
    for (const Row& s : All(L"SOLICITACAO")) {
      // A row without a mode is neither returned nor withdrawn.
      if (!all && (!s[L"DEVOLVIDO"] || s[L"DEVOLVIDO"] == L"S")) continue;
      expected.rows.push_back(
          {all ? L"Listagem De Originais Retirados E Originais Devolvidos" : L"Listagem De Originais Retirados",
           s[L"COD_DOCTO"], requests.Person(s[L"COD_OPERADOR"]), day(s[L"DT_RETIRADA"]), s[L"DEVOLVIDO"],
           day(s[L"DT_DEVOLUCAO"])});
    }
    EXPECT_EQ(all, expected.rows.size() == All(L"SOLICITACAO").size());
    ExpectRows(expected, RowsOf(kReport, L"RelatorioDevolucaoOriginal", {{L"ListarJaDevolvidos", all}}), {});
  }
}

class RequestRowsOnSQLite : public OnSQLite {};

// In SQLite's dialect a date as text is nothing at all: the column's name stands alone.
TEST_F(RequestRowsOnSQLite, OfTheListAreRefusedByTheDatabase) {
  for (const bool all : {false, true})
    EXPECT_EQ(Framed(L"CSolicitacaoRpt::RelatorioDevolucaoOriginal", RefusedBySQLite(L"near \"AS\": syntax error")),
              ErrorOf(kReport, L"RelatorioDevolucaoOriginal", {{L"ListarJaDevolvidos", all}}));
}

class EventRows : public OnBothDatabases {
 protected:
  // The events that pass a filter, by their moment, with the action in pieces of 250 characters.
  Rows Expected(const std::function<bool(const Row&)>& filter) const {
    Rows expected{{L"DATA", L"HORA", L"DESCR_OPERADOR", L"MAQUINA", L"COD_DOCTO", L"COD_ACAO"}, {}};
    for (int piece = 1; piece <= 32; ++piece) expected.columns.push_back(L"ACAO" + std::to_wstring(piece));
    for (const Row& e : All(L"EVENTO")) {
      if (!filter(e)) continue;
      Cells cells = {e[L"DATA_INICIAL"],
                     e[L"DATA_INICIAL"]->substr(11),
                     e[L"NOME_OPERADOR"]->substr(0, 250),
                     e[L"MAQUINA"]->substr(0, 250),
                     OrEmpty(e[L"COD_DOCTO"]),
                     e[L"TIPO_EVENTO"]};
      const std::wstring action = OrEmpty(e[L"ACAO"]);
      for (std::size_t from = 0; from < 8000; from += 250)
        cells.push_back(from < action.size() ? action.substr(from, 250) : L"");
      expected.rows.push_back(cells);
    }
    std::sort(expected.rows.begin(), expected.rows.end());  // no two events have the same moment
    return expected;
  }
  Rows Events(const Properties& properties = {}) const { return RowsOf(L"CLogRpt", L"RelatorioLog", properties); }
};
KODRA_ON_BOTH_DATABASES(EventRows);

TEST_P(EventRows, AreAllEventsByTheirMomentWithLongActionsInPieces) {
  const Rows expected = Expected([](const Row&) { return true; });
  EXPECT_EQ(All(L"EVENTO").size(), expected.rows.size());
  // The archive has an action that fills every piece, and texts that are longer than their fields.
  EXPECT_TRUE(std::any_of(expected.rows.begin(), expected.rows.end(), [](const Cells& c) { return c.back() != L""; }));
  EXPECT_TRUE(
      std::any_of(expected.rows.begin(), expected.rows.end(), [](const Cells& c) { return c[2]->size() == 250; }));
  ExpectExactly(expected, Events());
}

TEST_P(EventRows, OfAPeriodHaveItsLastDayWhole) {
  const std::wstring first = RowOf(L"EVENTO", L"COD_EVENTO", L"11")[L"DATA_INICIAL"]->substr(0, 10);
  const std::wstring last = RowOf(L"EVENTO", L"COD_EVENTO", L"31")[L"DATA_INICIAL"]->substr(0, 10);
  const Rows expected = Expected([&](const Row& e) {
    const std::wstring day = e[L"DATA_INICIAL"]->substr(0, 10);
    return day >= first && day <= last;
  });
  EXPECT_EQ(21U, expected.rows.size());
  ExpectExactly(expected, Events({{L"DataInicial", DayOf(first)}, {L"DataFinal", DayOf(last)}}));
}

TEST_P(EventRows, OfAKindAreFoundByItsFirstThreeLettersInAnyCase) {
  const Rows expected = Expected([](const Row& e) { return e[L"TIPO_EVENTO"] == L"EXC"; });
  EXPECT_FALSE(expected.rows.empty());
  for (const wchar_t* kind : {L"exc", L"Exclusão"}) ExpectExactly(expected, Events({{L"Evento", kind}}));
}

TEST_P(EventRows, OfAKindOfFewerLettersAreLookedForAsItStands) {
  EXPECT_FALSE(Open(L"CLogRpt", L"RelatorioLog", {{L"Evento", L"ex"}}));
}

TEST_P(EventRows, OfADocumentAPersonAMachineAndAnActionAreFound) {
  const Row some = RowOf(L"EVENTO", L"COD_EVENTO", L"3");
  const Rows expected = Expected([&](const Row& e) { return e[L"COD_EVENTO"] == L"3"; });
  ExpectExactly(expected, Events({{L"CodDocto", some[L"COD_DOCTO"].value()},
                                  {L"Operador", some[L"NOME_OPERADOR"].value()},
                                  {L"MaquinaOrigem", some[L"MAQUINA"].value()},
                                  {L"Acao", L"Exclusão da imagem"}}));
}

TEST_P(EventRows, HaveAMomentAndLeaveThePiecesBeyondTheActionEmpty) {
  const auto events = Open(L"CLogRpt", L"RelatorioLog", {{L"Evento", L"LOG"}});  // short actions first
  const auto typeOf = [&](const wchar_t* field) {
    return Got(Get(Got(Call(events, L"Fields", {field})).object(), L"Value")).type();
  };
  EXPECT_EQ(VT_DATE, typeOf(L"DATA"));
  EXPECT_EQ(VT_BSTR, typeOf(L"HORA"));
  EXPECT_EQ(VT_BSTR, typeOf(L"COD_DOCTO"));
  EXPECT_EQ(VT_BSTR, typeOf(L"ACAO1"));
  EXPECT_EQ(VT_EMPTY, typeOf(L"ACAO2"));
  EXPECT_EQ(VT_EMPTY, typeOf(L"ACAO32"));
}

TEST_P(EventRows, ThatAreNotThereGiveNothing) {
  const Outcome outcome = OutcomeOf(L"CLogRpt", L"RelatorioLog", {{L"Acao", L"nunca aconteceu"}});
  EXPECT_EQ(S_OK, outcome.hr);
  EXPECT_EQ(VT_DISPATCH, outcome.value.type());
  EXPECT_FALSE(outcome.value.object());
}

TEST(EventRowsOfOwnArchive, WithAnActionOfMoreThan32PiecesAreAnError) {
  const OwnArchive archive({L"DELETE FROM EVENTO WHERE COD_EVENTO <> 12", L"UPDATE EVENTO SET ACAO = ACAO || 'z'"});
  const auto parameters = ParametersOf(L"CLogRpt");
  const Outcome outcome = RunReport(L"CLogRpt", L"RelatorioLog", Var(parameters.get()), archive.Connection());
  EXPECT_EQ(Framed(L"CLogRpt::RelatorioLog",
                   L"Item cannot be found in the collection corresponding to the requested name or ordinal."),
            outcome.failure);
}

}  // namespace
}  // namespace kodra::face
