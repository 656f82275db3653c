// The pages as text: what a listing and a statistic contain.
#include <gtest/gtest.h>

#include "console/command_line/usage_error.h"
#include "console/formats/html/html_writer.h"
#include "console/reports/report_methods.h"

namespace kodra::console::html {
namespace {

using Rows = std::vector<std::vector<Value>>;

std::string Page(const Heading& heading, const std::vector<Column>& columns, const Rows& rows,
                 HtmlOptions options = {}) {
  TextOutput output;
  HtmlWriter writer(output, std::move(options));
  writer.Begin(heading, columns);
  for (const std::vector<Value>& row : rows) writer.Row(row);
  writer.End();
  return output.Text();
}

// The content of the page's body.
std::string Body(const std::string& page) {
  const auto begin = page.find("<body>\n") + 7;
  return page.substr(begin, page.find("</body>") - begin);
}

TEST(HtmlWriter, HasAPageForEveryReport) {
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    const std::string page = Page({std::wstring(method.className), std::wstring(method.method), L"", {}}, {}, {});
    EXPECT_TRUE(page.ends_with("</html>\n")) << std::string(method.method.begin(), method.method.end());
  }
}

TEST(HtmlWriter, RefusesAReportItDoesNotKnow) {
  TextOutput output;
  HtmlWriter writer(output, {});
  try {
    writer.Begin({L"COutroRpt", L"Relatorio", L"", {}}, {});
    FAIL() << "nothing was raised";
  } catch (const UsageError& error) {
    EXPECT_STREQ(error.what(), "o relatório COutroRpt.Relatorio não tem página");
  }
}

TEST(ListingWriter, PrintsRowsUnderTheirCaptionsAndDetailsBelow) {
  const std::string page = Page(
      {L"CLogRpt", L"RelatorioLog", L"", {{L"Operador", L"ANA"}, {L"Evento", L""}}},
      {{L"DATA"}, {L"HORA"}, {L"DESCR_OPERADOR"}, {L"MAQUINA"}, {L"COD_DOCTO"}, {L"COD_ACAO"}, {L"ACAO1"}, {L"ACAO2"}},
      {{Date{45291}, L"10:00:00", L"ANA", L"PC-1", L"1", L"INC", L"Incluiu <x> ", L"e saiu"}});
  EXPECT_EQ(
      Body(page),
      "<main>\n<section class=\"via\">\n<h1>Registro de eventos</h1>\n"
      "<p class=\"detalhe\">Operador ANA</p>\n"
      "<table>\n<thead><tr><th>Data</th><th>Operador</th><th>Máquina</th><th>Documento</th><th>Evento</th>"
      "</tr></thead>\n"
      "<tbody><tr><td class=\"inteiro\">31/12/2023</td><td "
      "class=\"inteiro\">ANA</td><td class=\"inteiro\">PC-1</td><td class=\"inteiro\">1</td><td "
      "class=\"inteiro\">INC</td>"
      "</tr><tr><td class=\"detalhe\" colspan=\"5\"><b>Ação:</b> Incluiu &lt;x&gt; e saiu</td></tr></tbody>\n"
      "<tbody class=\"total\"><tr><td colspan=\"5\">1 registro</td></tr></tbody>\n</table>\n</section>\n</main>\n");
}

TEST(ListingWriter, TakesItsTitleAndItsCaptionsFromTheRowsWhereTheyAreThere) {
  const std::string page = Page({L"CModeloRpt", L"RelatorioModelos", L"", {}},
                                {{L"GRUPO"},
                                 {L"SUBGRUPO"},
                                 {L"SERIE"},
                                 {L"DESCR_CHAVE1"},
                                 {L"DESCR_CHAVE2"},
                                 {L"CHAVE1"},
                                 {L"CHAVE2"},
                                 {L"VALIDADE"}},
                                {{L"G", L"S", L"X", L"Nome", L"", L"Ana", L"Lisboa", std::int32_t(5)}});
  EXPECT_NE(page.find("<b>Nome:</b> Ana · <b>Chave 2:</b> Lisboa</td>"), page.npos);
  const std::string media =
      Page({L"CCDRpt", L"RelatorioMidias", L"", {}}, {{L"NUM_CD"}, {L"RELATORIO"}}, {{L"1", L"Mídias Vencidas"}});
  EXPECT_NE(media.find("<h1>Mídias Vencidas</h1>"), media.npos);
}

TEST(ListingWriter, PutsNumbersOfEveryTypeToTheRight) {
  for (const auto& [number, text] : std::vector<std::pair<Value, std::string>>{
           {0.1F, "0,1"}, {Currency{-1}, "-0,0001"}, {Decimal{.low = 1250, .scale = 2}, "12,5"}}) {
    const std::string page = Page({L"CDeptoRpt", L"RelatorioDeptos", L"", {}}, {{L"DESCR_DEPTO"}}, {{number}});
    EXPECT_NE(page.find("<td class=\"numero\">" + text + "</td>"), page.npos) << text;
  }
}

TEST(ListingWriter, SaysThatThereIsNothing) {
  const std::string page = Page({L"CDeptoRpt", L"RelatorioDeptos", L"", {}}, {{L"DESCR_DEPTO"}}, {});
  EXPECT_NE(page.find("<h1>Departamentos</h1>"), page.npos);
  EXPECT_NE(page.find("Nenhum registro"), page.npos);
}

TEST(ListingWriter, PrintsWhenItWasIssuedAndThePageNumbersAtTheFoot) {
  const std::string page = Page({L"CDeptoRpt", L"RelatorioDeptos", L"", {}}, {{L"DESCR_DEPTO"}}, {},
                                {.letterhead = {.issued = L"20/11/2026 12:00"}});
  EXPECT_NE(page.find("@bottom-left{content:\"Departamentos · emitido em 20/11/2026 12:00\""), page.npos);
  EXPECT_NE(page.find("@bottom-right{content:\"Página \" counter(page) \" de \" counter(pages)"), page.npos);
}

TEST(StatisticsWriter, PrintsGroupsSumsAndAChart) {
  const std::string body = Body(Page({L"CEstatSuporteRpt", L"RelatorioEstatisticas", L"", {}},
                                     {{L"TIT"}, {L"COD_DOCTO"}, {L"DESCR_SUPORTE"}},
                                     {{L"Período: x", L"1", L"Papel"}, {L"Período: x", L"2", L"Papel"}}));
  EXPECT_TRUE(body.starts_with(
      "<main>\n<section class=\"via\">\n<h1>Estatísticas por suporte</h1>\n<p class=\"detalhe\">Período: x</p>\n"
      "<table>\n<thead><tr><th>Suporte</th><th class=\"numero\">Documentos</th></tr></thead>\n"
      "<tbody><tr><td>Papel</td><td class=\"numero\">2</td></tr></tbody>\n"
      "<tbody class=\"total\"><tr><td>Total geral</td><td class=\"numero\">2</td></tr></tbody>\n"
      "</table>\n<figure class=\"grafico\" role=\"img\" aria-label=\"Documentos por Suporte\">\n<svg "));
}

// 60 days from 1 January 2024 to 29 February: too many bars for days.
TEST(StatisticsWriter, DrawsMonthsInPlaceOfTooManyDays) {
  Rows rows;
  for (int day = 0; day < 60; ++day) rows.push_back({Date{45292.0 + day}, L"1"});
  const std::string page = Page({L"CEstatIndexRpt", L"RelatorioEstatisticasPorDocumento", L"", {}},
                                {{L"DATA_INDEXACAO"}, {L"COD_DOCTO"}}, rows);
  EXPECT_NE(page.find(">Documentos por mês</text>"), page.npos);
  EXPECT_NE(page.find(">01/2024</text>"), page.npos);
  EXPECT_NE(page.find(">02/2024</text>"), page.npos);
  EXPECT_NE(page.find("<td>29/02/2024</td>"), page.npos);
}

}  // namespace
}  // namespace kodra::console::html
