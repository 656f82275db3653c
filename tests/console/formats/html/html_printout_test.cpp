// A printout in HTML: what each block becomes, and how a browser prints the copies of a paper.
#include "console/formats/html/html_printout.h"

#include <gtest/gtest.h>

#include "tests/console/formats/html/browser.h"

namespace kodra::console::html {
namespace {

using pages::RowStyle;

template <class Describe>
std::string Page(Describe describe, const pages::Letterhead& letterhead = {}) {
  TextOutput output;
  HtmlPrintout printout(output, letterhead);
  printout.Begin(L"Título", false);
  describe(printout);
  printout.End();
  return output.Text();
}

// The content of the page.
template <class Describe>
std::string Content(Describe describe, const pages::Letterhead& letterhead = {}) {
  const std::string page = Page(describe, letterhead);
  const std::string begin = "<main>\n<section class=\"via\">\n", end = "</section>\n</main>\n</body>\n</html>\n";
  EXPECT_TRUE(page.ends_with(end));
  const auto at = page.find(begin) + begin.size();
  return page.substr(at, page.size() - end.size() - at);
}

TEST(HtmlPrintout, WritesTheLetterheadTheTitleAndWhatIsSaidBelow) {
  EXPECT_EQ(Content(
                [](pages::Printout& printout) {
                  printout.Head({.title = L"A & B", .lines = {L"Filtro <1>"}, .facts = {{L"Operador", L"Ana"}}});
                },
                {.organisation = L"Arquivo",
                 .logo = std::make_shared<const pages::Picture>(pages::Picture{1, 1, {}, "PNG"})}),
            "<div class=\"timbre\"><img alt=\"\" src=\"data:image/png;base64,UE5H\"><span>Arquivo</span></div>\n"
            "<h1>A &amp; B</h1>\n"
            "<p class=\"detalhe\">Filtro &lt;1&gt;</p>\n"
            "<p><b>Operador:</b> Ana</p>\n");
}

TEST(HtmlPrintout, WritesRowsOfEveryStyle) {
  EXPECT_EQ(Content([](pages::Printout& printout) {
              printout.OpenTable({{L"Nome"}, {L"Folhas", true}});
              printout.Row({.cells = {{L"Bloco"}}, .style = RowStyle::kBlock});
              printout.Row({.cells = {{L"a", false, true}, {L"1", true}}});
              printout.Row({.cells = {{L"b"}, {L"2", true}}, .details = {{L"Ano", L"2024"}, {L"Mês", L"1"}}});
              printout.Row({.cells = {{L"Soma"}, {L"3", true}}, .style = RowStyle::kSum});
              printout.Row({.cells = {{L"2 registros"}}, .style = RowStyle::kTotal});
              printout.CloseTable();
            }),
            "<table>\n<thead><tr><th>Nome</th><th class=\"numero\">Folhas</th></tr></thead>\n"
            "<tbody class=\"bloco\"><tr><td colspan=\"2\">Bloco</td></tr></tbody>\n"
            "<tbody><tr><td class=\"inteiro\">a</td><td class=\"numero\">1</td></tr></tbody>\n"
            "<tbody class=\"par\"><tr><td>b</td><td class=\"numero\">2</td></tr>"
            "<tr><td class=\"detalhe\" colspan=\"2\"><b>Ano:</b> 2024 · <b>Mês:</b> 1</td></tr></tbody>\n"
            "<tbody class=\"soma\"><tr><td>Soma</td><td class=\"numero\">3</td></tr></tbody>\n"
            "<tbody class=\"total\"><tr><td colspan=\"2\">2 registros</td></tr></tbody>\n"
            "</table>\n");
}

TEST(HtmlPrintout, WritesNoCaptionsOfATableThatHasNone) {
  EXPECT_EQ(Content([](pages::Printout& printout) {
              printout.OpenTable(std::vector<pages::TableColumn>(2));
              printout.CloseTable();
            }),
            "<table>\n</table>\n");
}

TEST(HtmlPrintout, WritesNotesSignaturesAndCopies) {
  EXPECT_EQ(Content([](pages::Printout& printout) {
              printout.Paragraph(L"Texto");
              printout.Note({L"Nota", L"x"});
              printout.Signatures({L"Entregue por", L"Data"});
              printout.NextCopy();
              printout.Chart(L"Nada", {});
            }),
            "<p>Texto</p>\n"
            "<p class=\"nota\"><b>Nota:</b> x</p>\n"
            "<div class=\"assinaturas\"><p>Entregue por</p><p>Data</p></div>\n"
            "</section>\n<section class=\"via\">\n");
}

std::string Copies(int rows) {
  return Page([&](pages::Printout& printout) {
    for (const wchar_t* const copy : {L"1ª via", L"2ª via"}) {
      if (copy[0] == L'2') printout.NextCopy();
      printout.Head({.title = copy});
      printout.OpenTable({{L"Documento"}});
      for (int i = 0; i < rows; ++i) printout.Row({.cells = {{L"0000000001, no módulo de guarda AB001"}}});
      printout.CloseTable();
      printout.Signatures({L"Entregue por"});
    }
  });
}

TEST(HtmlPrintoutLayout, PrintsTwoShortCopiesOnOnePageAndLongOnesOnTheirOwn) {
  tests::Browser browser;
  EXPECT_EQ(browser.PrintToPdf(Copies(5)).pages, 1);
  const tests::Browser::Print print = browser.PrintToPdf(Copies(30));
  EXPECT_EQ(print.pages, 2);
  EXPECT_EQ(print.texts[0].find("2ª via"), std::string::npos);
  EXPECT_NE(print.texts[1].find("2ª via"), std::string::npos);
}

}  // namespace
}  // namespace kodra::console::html
