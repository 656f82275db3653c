// The pages in a browser: nothing is cut off, each label is in its cell, sheets are counted, barcodes are read.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "console/formats/html/html_writer.h"
#include "console/formats/pages/chart.h"
#include "tests/console/formats/html/browser.h"

namespace kodra::console::html {
namespace {

using labels::FindLabelSheet;
using labels::LabelPlace;
using labels::LabelSheet;
using labels::LabelSheets;
using labels::PlaceOf;

using tests::Browser;

// The longest texts that the archive's columns take, of the widest letters and of ordinary ones.
const std::vector<std::wstring> kDescriptions = {
    std::wstring(100, L'W'),
    L"CORRESPONDÊNCIA EXPEDIDA E RECEBIDA PELO DEPARTAMENTO DE ADMINISTRAÇÃO E PELA SECRETARIA GERAL 2019 A 2",
    L"Contratos",
    L"i",
    L"",
};

std::string LabelsOn(const LabelSheet& sheet, int rows, int firstLabel = 1, int copies = 1) {
  TextOutput output;
  HtmlOptions options;
  options.labels = {.sheet = &sheet, .firstLabel = firstLabel, .copies = copies};
  HtmlWriter writer(output, options);
  const std::vector<Column> columns = {{L"DESC_CAIXA"},      {L"NUM_CAIXA"},   {L"DOC_INICIAL"}, {L"DOC_FINAL"},
                                       {L"DATA_VENCIMENTO"}, {L"TIPO_GUARDA"}, {L"Nome_Empresa"}};
  writer.Begin({L"CCaixaRpt", L"EtiquetaFechamento", L"Etiquetas de fechamento", {}}, columns);
  for (int i = 0; i < rows; ++i) {
    const auto at = static_cast<std::size_t>(i);
    writer.Row(std::vector<Value>{kDescriptions[at % kDescriptions.size()], i % 2 == 0 ? L"WW999" : L"AB00107",
                                  std::wstring(10, L'W'), std::wstring(10, L'9'), Date{45291}, L"T",
                                  i % 3 == 0 ? std::wstring(100, L'M') : L"Arquivo Geral do Município"});
  }
  writer.End();
  return output.Text();
}

// Every label of a page with its place on its sheet in millimetres, and how many of its parts are cut off: content
// larger than its box, or a part that reaches beyond the label.
constexpr const char* kMeasureLabels = R"(document => {
  const mm = 96 / 25.4;
  return [...document.querySelectorAll('.etiqueta')].map(label => {
    const box = label.getBoundingClientRect();
    const sheet = label.parentElement.getBoundingClientRect();
    const parts = [...label.querySelectorAll('*')].filter(part => part.namespaceURI.endsWith('xhtml'));
    const cut = [label, ...parts].filter(part =>
        getComputedStyle(part).display != 'inline' &&
        (part.scrollWidth > part.clientWidth + 1 || part.scrollHeight > part.clientHeight + 1)).length;
    const beyond = [...label.querySelectorAll('*')].filter(part => {
      const r = part.getBoundingClientRect();
      return r.left < box.left - .5 || r.top < box.top - .5 || r.right > box.right + .5 || r.bottom > box.bottom + .5;
    }).length;
    return {sheet: [...document.querySelectorAll('.folha')].indexOf(label.parentElement), cut, beyond,
            left: (box.left - sheet.left) / mm, top: (box.top - sheet.top) / mm,
            width: box.width / mm, height: box.height / mm, inside: box.right <= sheet.right + 1 && box.bottom <= sheet.bottom + 1};
  });
})";

TEST(LabelLayout, CutsNothingOffAndPutsOneLabelInEachCellOfEverySheet) {
  Browser browser;
  std::vector<std::string> pages;
  for (const LabelSheet& sheet : LabelSheets()) pages.push_back(LabelsOn(sheet, sheet.Labels() + 2));
  const nlohmann::json measured = browser.Evaluate(pages, kMeasureLabels);
  ASSERT_EQ(measured.size(), LabelSheets().size());
  for (std::size_t i = 0; i < measured.size(); ++i) {
    const LabelSheet& sheet = LabelSheets()[i];
    ASSERT_EQ(measured[i].size(), static_cast<std::size_t>(sheet.Labels() + 2)) << sheet.name;
    std::set<std::pair<int, int>> cells;
    for (std::size_t index = 0; index < measured[i].size(); ++index) {
      const nlohmann::json& label = measured[i][index];
      const LabelPlace place = PlaceOf(sheet, static_cast<int>(index));
      EXPECT_EQ(label["cut"], 0) << sheet.name << " " << index;
      EXPECT_EQ(label["beyond"], 0) << sheet.name << " " << index;
      EXPECT_TRUE(label["inside"].get<bool>()) << sheet.name << " " << index;
      EXPECT_EQ(label["sheet"], place.page) << sheet.name << " " << index;
      EXPECT_NEAR(label["left"], place.left, 0.1) << sheet.name << " " << index;
      EXPECT_NEAR(label["top"], place.top, 0.1) << sheet.name << " " << index;
      EXPECT_NEAR(label["width"], sheet.labelWidth, 0.1) << sheet.name << " " << index;
      EXPECT_NEAR(label["height"], sheet.labelHeight, 0.1) << sheet.name << " " << index;
      cells.emplace(static_cast<int>(label["sheet"]), static_cast<int>(index) % sheet.Labels());
    }
    EXPECT_EQ(cells.size(), measured[i].size()) << sheet.name;
  }
}

// The smallest label there is, so that the bars are as close as they get.
TEST(LabelLayout, PrintsBarcodesThatAScannerReads) {
  Browser browser;
  TextOutput output;
  HtmlOptions options;
  options.labels = {.sheet = FindLabelSheet("carta-3x10")};
  HtmlWriter writer(output, options);
  writer.Begin({L"CCaixaRpt", L"EtiquetaAbertura", L"x", {}}, std::vector<Column>{{L"NUM_CAIXA"}});
  for (const wchar_t* number : {L"AB001", L"AB00107", L"WW99912", L"00123"}) writer.Row(std::vector<Value>{number});
  writer.End();
  Browser::Print print = browser.PrintToPdf(output.Text(), true);
  EXPECT_EQ(print.pages, 1);
  EXPECT_EQ(print.size, "612 x 792 pts (letter)");
  std::ranges::sort(print.barcodes);
  EXPECT_EQ(print.barcodes, (std::vector<std::string>{"00123", "AB001", "AB00107", "WW99912"}));
}

// Fourteen labels a sheet: three free on the first, then as many sheets as the copies take.
TEST(LabelLayout, PrintsAsManySheetsAsTheLabelsTake) {
  Browser browser;
  const LabelSheet& sheet = *FindLabelSheet("a4-2x7");
  EXPECT_EQ(browser.PrintToPdf(LabelsOn(sheet, 3, 12)).pages, 1);
  const Browser::Print print = browser.PrintToPdf(LabelsOn(sheet, 16, 12, 2));
  EXPECT_EQ(print.pages, 4);
  EXPECT_EQ(print.size, "594.96 x 841.92 pts (A4)");
}

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
