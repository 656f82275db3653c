// The pages of listings and statistics in a browser: nothing is cut off, and pages are numbered.
#include <gtest/gtest.h>

#include "console/formats/html/html_writer.h"
#include "console/formats/pages/chart.h"
#include "tests/console/formats/html/browser.h"

namespace kodra::console::html {
namespace {

using tests::Browser;

std::string DocumentListing(int rows) {
  TextOutput output;
  HtmlWriter writer(output, {.letterhead = {.issued = L"20/11/2026 12:00"}});
  const std::vector<const wchar_t*> names = {
      L"COD_DOCTO",    L"DESCR_GRUPO",  L"DESCR_ASSUNTO",  L"DESCR_CHAVE1",  L"DESCR_CHAVE2", L"DESCR_CHAVE3",
      L"DESCR_CHAVE4", L"DESCR_CHAVE5", L"DESCR_OPERADOR", L"DESCR_SUPORTE", L"DT_ARMAZ",     L"ARQUIVO",
      L"OBS",          L"FRENTE",       L"NUM_CAIXA",      L"DT_VENC",       L"VERSO",        L"NUM_CD"};
  std::vector<Column> columns;
  for (const wchar_t* name : names) columns.push_back({name});
  writer.Begin({L"CDocumentoRpt", L"RelatorioAnalitico", L"x", {}}, columns);
  const std::wstring path = L"\\\\servidor\\digital\\" + std::wstring(230, L'a') + L".tif";
  for (int i = 0; i < rows; ++i) {
    writer.Row(std::vector<Value>{std::to_wstring(1000000000 + i), L"Administração de pessoal", std::wstring(60, L'W'),
                                  L"Nome", L"", L"", L"", L"", L"ANA", L"Papel", Date{45291.5}, path,
                                  std::wstring(255, L'x'), std::int32_t(12), L"AB001", Date{45657}, std::int32_t(0),
                                  L"CD0001"});
  }
  writer.End();
  return output.Text();
}

TEST(ListingLayout, KeepsEveryCellWithinThePage) {
  Browser browser;
  const nlohmann::json measured = browser.Evaluate({DocumentListing(30)}, R"(document => {
    const page = document.querySelector('main');
    const limit = page.getBoundingClientRect();
    return {cells: document.querySelectorAll('td').length,
            scrolls: page.scrollWidth > page.clientWidth + 1,
            beyond: [...document.querySelectorAll('td,th')].filter(cell =>
                cell.scrollWidth > cell.clientWidth + 1 || cell.getBoundingClientRect().right > limit.right + 1).length};
  })");
  EXPECT_EQ(measured[0]["cells"], 30 * 11 + 1);
  EXPECT_FALSE(measured[0]["scrolls"].get<bool>());
  EXPECT_EQ(measured[0]["beyond"], 0);
}

TEST(ListingLayout, RepeatsHeadingsAndNumbersThePagesInPrint) {
  Browser browser;
  const Browser::Print print = browser.PrintToPdf(DocumentListing(60));
  EXPECT_EQ(print.size, "841.92 x 594.96 pts (A4)");
  ASSERT_GT(print.pages, 3);
  ASSERT_EQ(print.texts.size(), static_cast<std::size_t>(print.pages));
  std::string all;
  for (int page = 1; page <= print.pages; ++page) {
    const std::string& text = print.texts[static_cast<std::size_t>(page) - 1];
    all += text;
    EXPECT_NE(text.find("Documentos: relatório analítico"), text.npos) << page;
    EXPECT_NE(text.find("Armazenamento"), text.npos) << page;
    EXPECT_NE(text.find("emitido em 20/11/2026 12:00"), text.npos) << page;
    EXPECT_NE(text.find("Página " + std::to_string(page) + " de " + std::to_string(print.pages)), text.npos) << page;
  }
  for (int i = 0; i < 60; ++i) EXPECT_NE(all.find(std::to_string(1000000000 + i)), all.npos) << i;
}

TEST(StatisticsLayout, PrintsItsTableAndItsChart) {
  Browser browser;
  TextOutput output;
  HtmlWriter writer(output, {});
  writer.Begin({L"CEstatSerieRpt", L"RelatorioEstatisticas", L"x", {}},
               std::vector<Column>{{L"Titulo"}, {L"Subtitulo"}, {L"Periodo"}, {L"Subgrupo"}, {L"Serie"}, {L"Total"}});
  for (int i = 0; i < 50; ++i) {
    writer.Row(std::vector<Value>{L"ESTATÍSTICAS POR SÉRIE", L"(por número de documentos)", L"Período: x",
                                  L"Subgrupo: A", L"Série " + std::to_wstring(i) + std::wstring(20, L'W'),
                                  std::int32_t(i)});
  }
  writer.End();
  const nlohmann::json measured = browser.Evaluate({output.Text()}, R"(document => {
    const limit = document.querySelector('.grafico').getBoundingClientRect();
    const texts = [...document.querySelectorAll('.grafico text')].map(text => text.getBoundingClientRect());
    return {bars: document.querySelectorAll('.grafico path').length,
            beyond: texts.filter(r => r.left < limit.left - 1 || r.right > limit.right + 1).length};
  })");
  EXPECT_EQ(measured[0]["bars"], pages::kMostBars);
  EXPECT_EQ(measured[0]["beyond"], 0);
  const Browser::Print print = browser.PrintToPdf(output.Text());
  EXPECT_EQ(print.pages, 3);
  EXPECT_NE(print.texts[0].find("ESTATÍSTICAS POR SÉRIE"), std::string::npos);
  EXPECT_NE(print.texts[2].find("demais"), std::string::npos);
}

}  // namespace
}  // namespace kodra::console::html
