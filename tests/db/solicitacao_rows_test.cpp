// Withdrawal slips and the list of withdrawn originals.
#include <algorithm>
#include <set>

#include "reports/documents/solicitacao_rpt.h"
#include "testbed/archive/generator.h"
#include "tests/db/reports_on.h"
#include "tests/odbc/print_value.h"

namespace kodra::tests {
namespace {

using namespace reports;
using namespace testbed;

class SolicitacaoRows : public OnBoth {};
KODRA_ON_BOTH_DATABASES(SolicitacaoRows);
class SolicitacaoOnSqlite : public OnSqlite {};
class SolicitacaoOnMariaDb : public OnMariaDb {};

const std::vector<std::wstring> kSlipColumns{L"OPERADOR", L"DOCUMENTOS", L"DEVOLUCAO", L"OBS_SOLICIT"};

std::vector<Solicitacao> Rows(const std::set<std::int64_t>& requests) {
  std::vector<Solicitacao> rows;
  for (const Solicitacao& row : Reports::All<Solicitacao>()) {
    if (requests.contains(row.codSolicit)) rows.push_back(row);
  }
  return rows;
}

// The line of a document; empty for one that stands in no module.
Text Line(const Text& code) {
  const Documento& document = *Reports::Find(&Documento::codDocto, code);
  const Caixa* module = Reports::Find(&Caixa::numCaixa, document.numCaixa);
  if (module == nullptr) return {};
  Text place;
  for (const auto& [name, value] : {std::pair(L"fileira ", module->coordX), std::pair(L"estante ", module->coordY),
                                    std::pair(L"prateleira ", module->coordZ)}) {
    if (value && !value->empty()) place += (place.empty() ? L"" : L", ") + Text(name) + *value;
  }
  const Text line = L"* " + code + L", no módulo de guarda " + module->numCaixa;
  return place.empty() ? line : line + L" (" + place + L")";
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
  const Text date = BrazilianDate(std::chrono::floor<std::chrono::days>(*request.dtDevolucao));
  return several ? L"As devoluções destes documentos deverão ser realizadas em " + date + L"."
                 : L"A devolução deste documento deverá ser realizada em " + date + L".";
}

// The slip of one request: all of its rows say the same but for the document.
Table Slip(std::int64_t request) {
  Table slip(kSlipColumns);
  std::vector<Text> lines;
  const std::vector<Solicitacao> rows = Rows({request});
  for (const Solicitacao& row : rows) {
    if (const Text line = Line(row.codDocto); !line.empty()) lines.push_back(line);
  }
  const Text remark = rows.front().obsSolicit.value_or(L"");
  for (const Text& line : lines) {
    slip.Add(Person(*Reports::Find(&Operador::codOperador, rows.front().codOperador)), line,
             ReturnSentence(rows.front(), lines.size() >= 2), remark.empty() ? L"-" : remark);
  }
  return slip;
}

frame::ParameterObject Obj(const Text& requests) {
  return Reports::Parameters(L"CSolicitacaoRptObj", {{L"CodSolicit", requests}});
}

// The recordset stands where its last row was added: a client moves to the first.
Table SlipRows(frame::ReportRows rows) {
  rows->MoveFirst();
  return Read(*rows);
}

TEST_P(SolicitacaoRows, ASlipHasALineADocumentAndTheSentenceOfItsReturn) {
  std::set<MaybeText> modes;
  std::set<std::size_t> lengths;
  for (std::int64_t request = 1; request <= 20; ++request) {
    const Table expected = Slip(request);
    if (expected.rows.empty()) continue;
    modes.insert(Rows({request}).front().devolvido);
    lengths.insert(expected.rows.size());
    SCOPED_TRACE(request);
    ExpectRows(SlipRows(Open(&CSolicitacaoRpt::RelatorioRetiradaOriginal, Obj(std::to_wstring(request)))), expected);
  }
  EXPECT_EQ(modes, (std::set<MaybeText>{L"P", L"I", L"D", L"S", L"X", std::nullopt}));
  EXPECT_TRUE(lengths.contains(1) && lengths.contains(3));
}

TEST_P(SolicitacaoRows, TheLinesOfASlipStandByModule) {
  const Table rows = SlipRows(Open(&CSolicitacaoRpt::RelatorioRetiradaOriginal, Obj(L"2,4,6,8,10,12")));
  std::vector<Text> modules;
  for (const Table::Row& row : rows.rows) {
    const auto& line = row[1].As<std::wstring>();
    modules.push_back(line.substr(line.find(L"guarda ") + 7, 5));
  }
  EXPECT_GT(modules.size(), 6U);
  EXPECT_TRUE(std::is_sorted(modules.begin(), modules.end()));
}

TEST_P(SolicitacaoRows, ASlipOfSeveralRequestsHasAllDocumentsAndOneOfTheRequestsSentences) {
  // Four documents, and two.
  for (const std::set<std::int64_t>& requests : {std::set<std::int64_t>{1, 2}, std::set<std::int64_t>{1, 3}}) {
    std::multiset<Text> lines;
    // Which of the requests a slip speaks of, the database decides. None of these returns by a set date.
    std::vector<Table::Row> heads;
    for (const Solicitacao& row : Rows(requests)) {
      if (const Text line = Line(row.codDocto); !line.empty()) lines.insert(line);
      ASSERT_NE(row.devolvido, L"D");
      const Text remark = row.obsSolicit.value_or(L"");
      heads.push_back({Person(*Find(&Operador::codOperador, row.codOperador)), ReturnSentence(row, true),
                       remark.empty() ? L"-" : remark});
    }
    const Text codes = std::to_wstring(*requests.begin()) + L"," + std::to_wstring(*requests.rbegin());
    const Table rows = SlipRows(Open(&CSolicitacaoRpt::RelatorioRetiradaOriginal, Obj(codes)));
    ASSERT_FALSE(rows.rows.empty());
    const auto headOf = [](const Table::Row& row) { return Table::Row{row[0], row[2], row[3]}; };
    EXPECT_NE(std::find(heads.begin(), heads.end(), headOf(rows.rows.front())), heads.end());
    std::multiset<Text> read;
    for (const Table::Row& row : rows.rows) {
      read.insert(row[1].As<std::wstring>());
      EXPECT_EQ(headOf(row), headOf(rows.rows.front()));
    }
    EXPECT_EQ(read, lines);
  }
}

TEST_P(SolicitacaoRows, ARequestThatNobodyMadeHasNoSlip) {
  EXPECT_EQ(ErrorOf(&CSolicitacaoRpt::RelatorioRetiradaOriginal, Obj(L"99999")),
            Framed(L"CSolicitacaoRpt::RelatorioRetiradaOriginal",
                   L"A variável do objeto ou a variável do bloco 'With' não foi definida"));
}

const std::vector<std::wstring> kListColumns{L"TITULO",      L"COD_DOCTO", L"DESCR_OPERADOR",
                                             L"DT_RETIRADA", L"DEVOLVIDO", L"DT_DEVOLUCAO"};

TEST_F(SolicitacaoOnMariaDb, TheListOfOriginalsHasTheirDatesAsTexts) {
  const auto text = [](const MaybeMoment& moment) {
    return moment ? MaybeText(BrazilianDate(std::chrono::floor<std::chrono::days>(*moment))) : MaybeText();
  };
  for (const bool returnedToo : {false, true}) {
    Table expected(kListColumns);
    for (const Solicitacao& s : All<Solicitacao>()) {
      // A row without a mode is neither returned nor withdrawn.
      if (!returnedToo && (!s.devolvido || s.devolvido == L"S")) continue;
      expected.Add(
          returnedToo ? L"Listagem De Originais Retirados E Originais Devolvidos" : L"Listagem De Originais Retirados",
          s.codDocto, Person(*Find(&Operador::codOperador, s.codOperador)), text(s.dtRetirada), s.devolvido,
          text(s.dtDevolucao));
    }
    ASSERT_EQ(expected.rows.size() == All<Solicitacao>().size(), returnedToo);
    ExpectRows(RowsOf(&CSolicitacaoRpt::RelatorioDevolucaoOriginal,
                      Parameters(L"CSolicitacaoRptObj", {{L"ListarJaDevolvidos", returnedToo}})),
               expected);
  }
}

// SQLite has no translation of a date into text: nothing stands before the column's name.
TEST_F(SolicitacaoOnSqlite, TheListOfOriginalsIsAnErrorOfTheStatement) {
  EXPECT_EQ(ErrorOf(&CSolicitacaoRpt::RelatorioDevolucaoOriginal, Parameters(L"CSolicitacaoRptObj")),
            Framed(L"CSolicitacaoRpt::RelatorioDevolucaoOriginal", RefusedBySqlite(L"near \"AS\": syntax error")));
}

}  // namespace
}  // namespace kodra::tests
