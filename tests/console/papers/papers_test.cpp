// What each paper says, from the rows of its reports.
#include "console/papers/papers.h"

#include <gtest/gtest.h>

#include "tests/console/failing.h"
#include "tests/console/formats/pages/recording_printout.h"

namespace kodra::console::papers {
namespace {

using Lines = std::vector<std::wstring>;
using Tables = std::vector<std::pair<std::wstring, ReportTable>>;

// 22 November 2026.
constexpr Date kToday{46348};

// The lines of a paper that is made from these reports, by the names of their methods.
Lines Printed(std::string_view paper, const std::wstring& subject, const Tables& tables) {
  pages::RecordingPrintout printout;
  const auto read = [&](std::wstring_view, std::wstring_view method) {
    for (const auto& [name, table] : tables)
      if (name == method) return table;
    throw std::runtime_error("another report was read");
  };
  PaperNamed(paper).print({read, subject, kToday}, printout);
  return printout.Lines();
}

ReportTable Slip(std::vector<std::vector<Value>> rows) {
  return {{{L"OPERADOR"}, {L"DOCUMENTOS"}, {L"DEVOLUCAO"}, {L"OBS_SOLICIT"}}, std::move(rows)};
}

TEST(WithdrawalSlip, HasACopyForTheArchiveAndOneForTheReader) {
  const Lines copy = {
      L"Solicitações: 17,18",
      L"Retirado por: Ana Sá",
      L"Emitido em: 22/11/2026",
      L"tabela: [Documentos]",
      L"| 0000000001, no módulo de guarda AB001 (fileira 1, estante 2) ",
      L"| 0000000002, no módulo de guarda AB002 ",
      L"fim da tabela",
      L"parágrafo: Os documentos serão retirados permanentemente.",
      L"parágrafo: Observação: urgente",
      L"nota: Nota: quem retirou, a devolução e a observação são os de uma das solicitações.",
      L"assinaturas: [Entregue por] [Recebido por] [Devolvido em]",
  };
  Lines expected = {L"retrato: Comprovante de retirada de originais", L"título: Comprovante de retirada de originais",
                    L"linha: 1ª via: fica no arquivo"};
  expected.insert(expected.end(), copy.begin(), copy.end());
  expected.insert(expected.end(), {L"corte", L"título: Comprovante de retirada de originais",
                                   L"linha: 2ª via: acompanha os originais"});
  expected.insert(expected.end(), copy.begin(), copy.end());
  expected.push_back(L"fim");
  const Value sentence = L"Os documentos serão retirados permanentemente.";
  EXPECT_EQ(
      Printed(
          "retirada", L"17,18",
          {{L"RelatorioRetiradaOriginal",
            Slip({{L"Ana Sá", L"* 0000000001, no módulo de guarda AB001 (fileira 1, estante 2)", sentence, L"urgente"},
                  {L"Ana Sá", L"* 0000000002, no módulo de guarda AB002", sentence, L"urgente"}})}}),
      expected);
}

TEST(WithdrawalSlip, LeavesOutARemarkThatThereIsNot) {
  const Lines lines =
      Printed("retirada", L"17",
              {{L"RelatorioRetiradaOriginal", Slip({{L"Ana", L"* 1, no módulo de guarda AB001", L"", L"-"}})}});
  EXPECT_EQ(lines[3], L"Solicitação: 17");
  EXPECT_EQ(lines[6], L"tabela: [Documento]");
  EXPECT_EQ(lines[9], L"assinaturas: [Entregue por] [Recebido por] [Devolvido em]");
}

ReportTable Originals(std::vector<std::vector<Value>> rows) {
  return {{{L"TITULO"}, {L"COD_DOCTO"}, {L"DESCR_OPERADOR"}, {L"DT_RETIRADA"}, {L"DEVOLVIDO"}, {L"DT_DEVOLUCAO"}},
          std::move(rows)};
}

TEST(OriginalsList, PutsTheOverdueFirstAndTheReturnedLast) {
  EXPECT_EQ(
      Printed("originais", L"",
              {{L"RelatorioDevolucaoOriginal", Originals({{L"t", L"1", L"Ana", L"01/02/2024", L"S", L"05/02/2024"},
                                                          {L"t", L"2", L"Ana", L"01/11/2026", L"D", L"22/11/2026"},
                                                          {L"t", L"3", L"Rui", L"02/11/2026", L"D", L"21/11/2026"},
                                                          {L"t", L"4", L"Rui", L"02/11/2026", L"P", Null()},
                                                          {L"t", L"5", L"Rui", L"02/11/2026", L"I", Null()}})}}),
      (Lines{
          L"retrato: Originais retirados e devolvidos",
          L"título: Originais retirados e devolvidos",
          L"linha: Situação em 22/11/2026",
          L"tabela: [Documento] [Retirado por] [Retirada] [Devolução]",
          L"bloco| Vencidos (1) ",
          L"| 3 | Rui | 02/11/2026 | VENCIDO em 21/11/2026 ",
          L"bloco| Fora do arquivo (3) ",
          L"| 2 | Ana | 01/11/2026 | até 22/11/2026 ",
          L"| 4 | Rui | 02/11/2026 | retirado permanentemente ",
          L"| 5 | Rui | 02/11/2026 | sem data para voltar ",
          L"bloco| Devolvidos (1) ",
          L"| 1 | Ana | 01/02/2024 | devolvido em 05/02/2024 ",
          L"total| 5 registros ",
          L"fim da tabela",
          L"fim",
      }));
}

TEST(OriginalsList, SaysThatThereIsNone) {
  EXPECT_EQ(Printed("originais", L"", {{L"RelatorioDevolucaoOriginal", Originals({})}}),
            (Lines{L"retrato: Originais retirados", L"título: Originais retirados", L"linha: Situação em 22/11/2026",
                   L"tabela: [Documento] [Retirado por] [Retirada] [Devolução]", L"total| Nenhum registro ",
                   L"fim da tabela", L"fim"}));
}

const ReportTable kHeader = {
    {{L"NUM_CAIXA"}, {L"DESC_CAIXA"}, {L"OBS_CAIXA"}, {L"DATA_VENCIMENTO"}, {L"FILEIRA"}, {L"DEPOSITO"}},
    {{L"AB001", L"Contratos", L"", Date{45291}, L"3", L"Central"}}};

ReportTable Codes(std::size_t count, bool withTotals) {
  ReportTable table = {{{L"COD_DOCTO"}}, {}};
  if (withTotals) table.columns.insert(table.columns.end(), {{L"TOTAL_DOCS"}, {L"TOTAL_PAGINAS"}});
  for (std::size_t i = 1; i <= count; ++i) {
    std::vector<Value> row = {Value(L"d" + std::to_wstring(i))};
    if (withTotals) row.insert(row.end(), {Value(std::int32_t(1200)), Value(std::int32_t(1))});
    table.rows.push_back(std::move(row));
  }
  return table;
}

TEST(DiscardAuthorisation, NamesTheModuleItsDocumentsAndWhoSigns) {
  EXPECT_EQ(
      Printed("descarte", L"AB001", {{L"DocsNoModulo", kHeader}, {L"AutorizacaoDescarteModuloSubRpt", Codes(8, true)}}),
      (Lines{
          L"retrato: Autorização de descarte do módulo AB001",
          L"título: Autorização de descarte do módulo AB001",

          L"Descrição: Contratos",
          L"Vencimento: 31/12/2023",
          L"Fileira: 3",
          L"Depósito: Central",
          L"parágrafo: Autorizo o descarte dos documentos deste módulo, relacionados abaixo.",
          L"tabela: [] [] [] [] [] [] []",
          L"bloco| Documentos ",
          L"| d1 | d2 | d3 | d4 | d5 | d6 | d7 ",
          L"| d8 |  |  |  |  |  |  ",
          L"total| 1.200 documentos, 1 página ",
          L"fim da tabela",
          L"assinaturas: [Conferido por] [Autorizado por] [Data]",
          L"fim",
      }));
}

// A module without documents comes as one blank row.
TEST(DiscardAuthorisation, HasNoSignaturesForAModuleWithoutDocuments) {
  const ReportTable blank = {{{L"COD_DOCTO"}, {L"TOTAL_DOCS"}, {L"TOTAL_PAGINAS"}},
                             {{L" ", std::int32_t(0), std::int32_t(0)}}};
  const Lines lines =
      Printed("descarte", L"AB001", {{L"DocsNoModulo", kHeader}, {L"AutorizacaoDescarteModuloSubRpt", blank}});
  EXPECT_EQ(lines[6], L"parágrafo: O módulo não tem documentos.");
  EXPECT_EQ(lines[7], L"fim");
}

TEST(DiscardAuthorisation, IsForMainModulesThatExist) {
  EXPECT_EQ(RefusalOf([] { Printed("descarte", L"AB00101", {}); }),
            "a autorização de descarte é de um módulo principal: Modulo1 tem 5 caracteres");
  EXPECT_EQ(RefusalOf([] {
              Printed("descarte", L"ZZ999", {{L"DocsNoModulo", {}}});
            }),
            "nenhum módulo tem o código \"ZZ999\"; confira Modulo1");
}

TEST(ModuleSheet, ListsWhatIsInTheModule) {
  EXPECT_EQ(Printed("modulo", L"AB001", {{L"DocsNoModulo", kHeader}, {L"DocsNoModuloSubRpt", Codes(1, false)}}),
            (Lines{
                L"retrato: Módulo AB001",
                L"título: Módulo AB001",
                L"Descrição: Contratos",
                L"Vencimento: 31/12/2023",
                L"Fileira: 3",
                L"Depósito: Central",
                L"tabela: [] [] [] [] [] [] []",
                L"bloco| Documentos ",
                L"| d1 |  |  |  |  |  |  ",
                L"total| 1 documento ",
                L"fim da tabela",
                L"fim",
            }));
}

TEST(ModuleSheet, SaysThatASubordinateHasTheDocumentsOfItsMainModule) {
  const Lines lines =
      Printed("modulo", L"AB00101", {{L"DocsNoModulo", kHeader}, {L"DocsNoModuloSubRpt", Codes(0, false)}});
  EXPECT_EQ(lines[lines.size() - 3], L"parágrafo: O módulo não tem documentos.");
  EXPECT_EQ(lines[lines.size() - 2], L"nota: Nota: a relação é a dos documentos do módulo principal.");
}

TEST(Papers, AreFoundByName) {
  EXPECT_EQ(PaperNamed("MÓDULO").name, "modulo");
  EXPECT_EQ(RefusalOf([] { PaperNamed("retirda"); }),
            "o papel \"retirda\" não existe (quis dizer \"retirada\"?); escolha entre retirada, originais, descarte, "
            "modulo");
}

}  // namespace
}  // namespace kodra::console::papers
