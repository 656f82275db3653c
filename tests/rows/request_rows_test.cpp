// Withdrawal slips and the list of withdrawn originals.
#include <algorithm>
#include <set>

#include "tests/rows/cases.h"
#include "tests/rows/sample.h"

namespace kodra::rows {
namespace {

using namespace testbed;

const Report kSlip{L"CSolicitacaoRpt", L"RelatorioRetiradaOriginal"};
const Report kList{L"CSolicitacaoRpt", L"RelatorioDevolucaoOriginal"};

using Requests = std::set<std::int64_t>;

std::vector<Solicitacao> RowsOfRequests(const Requests& requests) {
  std::vector<Solicitacao> rows;
  for (const Solicitacao& row : All<Solicitacao>()) {
    if (requests.contains(row.codSolicit)) rows.push_back(row);
  }
  return rows;
}

// The line of a document; empty for one without a module.
Text Line(const Text& code) {
  const Documento& document = *Find(&Documento::codDocto, code);
  const Caixa* module = Find(&Caixa::numCaixa, document.numCaixa);
  if (module == nullptr) return {};
  Text place;
  for (const auto& [name, value] : {std::pair(L"fileira ", module->coordX), std::pair(L"estante ", module->coordY),
                                    std::pair(L"prateleira ", module->coordZ)}) {
    if (value && !value->empty()) place += (place.empty() ? L"" : L", ") + Text(name) + *value;
  }
  const Text line = L"* " + code + L", no módulo de guarda " + module->numCaixa;
  return place.empty() ? line : line + L" (" + place + L")";
}

std::multiset<Text> Lines(const Requests& requests) {
  std::multiset<Text> lines;
  for (const Solicitacao& row : RowsOfRequests(requests)) {
    if (const Text line = Line(row.codDocto); !line.empty()) lines.insert(line);
  }
  return lines;
}

Text Person(const Operador& person) {
  return person.nomeCompleto.value_or(L"").empty() ? *person.descrOperador : *person.nomeCompleto;
}

Text ReturnSentence(const Solicitacao& request, bool several) {
  if (request.devolvido == L"P")
    return several ? L"Os documentos serão retirados permanentemente." : L"O documento será retirado permanentemente.";
  if (request.devolvido == L"I")
    return several ? L"As devoluções não têm data determinada para ocorrer."
                   : L"A devolução não tem data determinada para ocorrer.";
  if (request.devolvido != L"D") return L"";
  const Text date = BrazilianDate(DayOf(*request.dtDevolucao));
  return several ? L"As devoluções destes documentos deverão ser realizadas em " + date + L"."
                 : L"A devolução deste documento deverá ser realizada em " + date + L".";
}

// Adds a line about this request to a slip.
void AddLine(Table& slip, const Solicitacao& request, const Text& line, bool several) {
  const Text remark = request.obsSolicit.value_or(L"");
  slip.Add(Person(*Find(&Operador::codOperador, request.codOperador)), line, ReturnSentence(request, several),
           remark.empty() ? L"-" : remark);
}

const std::vector<std::wstring> kSlipColumns{L"OPERADOR", L"DOCUMENTOS", L"DEVOLUCAO", L"OBS_SOLICIT"};

// The slip of one request: its rows differ only in the document.
Table Slip(std::int64_t request) {
  Table slip(kSlipColumns);
  const std::multiset<Text> lines = Lines({request});
  for (const Text& line : lines) AddLine(slip, RowsOfRequests({request}).front(), line, lines.size() >= 2);
  return slip;
}

// The slip of every request with documents in modules. The recordset is on the row that was added last.
std::vector<Case> Slips() {
  std::vector<Case> cases;
  for (std::int64_t request = 1; request <= 20; ++request) {
    if (Lines({request}).empty()) continue;
    cases.push_back({"SlipOfRequest" + std::to_string(request),
                     kSlip,
                     {{L"CodSolicit", std::to_wstring(request)}},
                     [=] { return Slip(request); },
                     {},
                     OnNoEngine,
                     From::kFirstRow});
  }
  return cases;
}
INSTANTIATE_TEST_SUITE_P(Requests, ReportRows, testing::Combine(testing::ValuesIn(Slips()), BothEngines()), CaseName);

TEST(RequestArchive, HasSlipsOfEveryWayToReturnAndOfOneAndOfThreeDocuments) {
  std::set<MaybeText> modes;
  std::set<std::size_t> lengths;
  for (std::int64_t request = 1; request <= 20; ++request) {
    const std::size_t lines = Lines({request}).size();
    if (lines != 0) modes.insert(RowsOfRequests({request}).front().devolvido);
    lengths.insert(lines);
  }
  EXPECT_EQ(modes, (std::set<MaybeText>{L"P", L"I", L"D", L"S", L"X", std::nullopt}));
  EXPECT_TRUE(lengths.contains(1) && lengths.contains(3));
}

class RequestRows : public OnBothEngines {
 protected:
  static Table SlipOf(const std::wstring& requests, From from = From::kFirstRow) {
    return RowsOf(kSlip, {{L"CodSolicit", requests}}, from);
  }
};
INSTANTIATE_TEST_SUITE_P(, RequestRows, BothEngines(), EngineName);

// The modules that the lines of a slip name, in their order.
std::vector<Text> ModulesOf(const Table& slip) {
  std::vector<Text> modules;
  for (const Value& line : slip.Column(L"DOCUMENTOS")) {
    const auto& text = line.As<std::wstring>();
    modules.push_back(text.substr(text.find(L"guarda ") + 7, 5));
  }
  return modules;
}

TEST_P(RequestRows, OfASlipAreSortedByModule) {
  const std::vector<Text> modules = ModulesOf(SlipOf(L"2,4,6,8,10,12"));
  ASSERT_GT(modules.size(), 6U);
  EXPECT_TRUE(std::is_sorted(modules.begin(), modules.end()));
  EXPECT_NE(modules.front(), modules.back());
}

// The documents are of different modules, so that their order is the same in both calls.
TEST_P(RequestRows, OfASlipEndOnTheOneThatWasAddedLast) {
  const std::vector<Value> lines = SlipOf(L"1,3,5").Column(L"DOCUMENTOS");
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(SlipOf(L"1,3,5", From::kCurrentRow).Column(L"DOCUMENTOS"), std::vector<Value>{lines.back()});
}

// The database decides which of the requests a slip describes. None of these requests has a date of return.
TEST_P(RequestRows, OfASlipOfSeveralRequestsAreAllDocumentsAndTheSentenceOfOneRequest) {
  for (const auto& [codes, requests] : {std::pair(L"1,2", Requests{1, 2}), std::pair(L"1,3", Requests{1, 3}),
                                        std::pair(L"1,2,4,8", Requests{1, 2, 4, 8})}) {
    const Table slip = SlipOf(codes);
    const std::vector<Text> modules = ModulesOf(slip);
    EXPECT_TRUE(std::is_sorted(modules.begin(), modules.end()));
    ASSERT_FALSE(slip.rows.empty());
    std::vector<std::vector<Table::Row>> possible;
    for (const Solicitacao& request : RowsOfRequests(requests)) {
      ASSERT_NE(request.devolvido, L"D");
      Table speaking(kSlipColumns);
      for (const Value& line : slip.Column(L"DOCUMENTOS")) AddLine(speaking, request, line.As<std::wstring>(), true);
      possible.push_back(speaking.rows);
    }
    EXPECT_NE(std::find(possible.begin(), possible.end(), slip.rows), possible.end());
    std::multiset<Text> lines;
    for (const Value& line : slip.Column(L"DOCUMENTOS")) lines.insert(line.As<std::wstring>());
    EXPECT_EQ(lines, Lines(requests));
  }
}

TEST_P(RequestRows, OfASlipOfAnUnknownRequestAreAnError) {
  EXPECT_EQ(ErrorAt(Sample(), kSlip, {{L"CodSolicit", L"99999"}}),
            Framed(L"CSolicitacaoRpt::RelatorioRetiradaOriginal",
                   L"A variável do objeto ou a variável do bloco 'With' não foi definida"));
}

// The dates are texts. The list of withdrawn originals alone leaves out the requests without a mode of return.
Table Originals(bool returnedToo) {
  Table expected({L"TITULO", L"COD_DOCTO", L"DESCR_OPERADOR", L"DT_RETIRADA", L"DEVOLVIDO", L"DT_DEVOLUCAO"});
  const auto text = [](const MaybeMoment& moment) {
    return moment ? MaybeText(BrazilianDate(DayOf(*moment))) : MaybeText();
  };
  for (const Solicitacao& s : All<Solicitacao>()) {
    if (!returnedToo && (!s.devolvido || s.devolvido == L"S")) continue;
    expected.Add(
        returnedToo ? L"Listagem De Originais Retirados E Originais Devolvidos" : L"Listagem De Originais Retirados",
        s.codDocto, Person(*Find(&Operador::codOperador, s.codOperador)), text(s.dtRetirada), s.devolvido,
        text(s.dtDevolucao));
  }
  EXPECT_EQ(expected.rows.size() == All<Solicitacao>().size(), returnedToo);
  return expected;
}

INSTANTIATE_TEST_SUITE_P(Originals, ReportRows,
                         testing::Combine(testing::Values(Case{"WithdrawnOriginals",
                                                               kList,
                                                               {{L"ListarJaDevolvidos", false}},
                                                               [] { return Originals(false); }},
                                                          Case{"WithdrawnAndReturnedOriginals",
                                                               kList,
                                                               {{L"ListarJaDevolvidos", true}},
                                                               [] { return Originals(true); }}),
                                          testing::Values(Engine::kMariaDb)),
                         CaseName);

// SQLite's dialect has no text for a date, so that the name of the column has no expression before it.
TEST(SolicitacaoOnSqlite, TheListOfOriginalsIsAnErrorOfTheStatement) {
  for (const Properties& properties :
       {Properties{}, Properties{{L"ListarJaDevolvidos", false}}, Properties{{L"ListarJaDevolvidos", true}}})
    EXPECT_EQ(ErrorAt(SampleOn(Engine::kSqlite), kList, properties),
              Framed(L"CSolicitacaoRpt::RelatorioDevolucaoOriginal", RefusedBySqlite(L"near \"AS\": syntax error")));
}

}  // namespace
}  // namespace kodra::rows
