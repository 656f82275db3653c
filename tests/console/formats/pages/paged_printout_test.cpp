// How a printout is divided into A4 pages.
#include "console/formats/pages/paged_printout.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/console/formats/pages/recording_canvas.h"

namespace kodra::console::pages {
namespace {

using Page = RecordingCanvas::Page;

constexpr Length kLeft = 12_mm, kRight = 198_mm, kBottom = 281_mm;

template <class Describe>
std::vector<Page> Pages(Describe describe, const Letterhead& letterhead = {}, bool landscape = false) {
  RecordingCanvas canvas;
  PagedPrintout printout(canvas, letterhead);
  printout.Begin(L"Título", landscape);
  describe(printout);
  printout.End();
  EXPECT_TRUE(canvas.IsFinished());
  return canvas.Pages();
}

// Rows "n1", "n2" and so on under the caption "Número".
void PrintNumbers(Printout& printout, int rows) {
  printout.OpenTable({{L"Número"}, {L"Nome"}});
  for (int i = 1; i <= rows; ++i) printout.Row({.cells = {{L"n" + std::to_wstring(i)}, {L"x"}}});
  printout.CloseTable();
}

std::wstring FootOf(const Page& page) {
  const auto number =
      std::ranges::find_if(page.texts, [](const auto& each) { return each.text.starts_with(L"Página "); });
  return number == page.texts.end() ? L"" : number->text;
}

TEST(PagedPrintout, PutsTheTitleAndTheTimeOfIssueInTheFootOfEachPage) {
  const std::vector<Page> pages =
      Pages([](Printout& printout) { PrintNumbers(printout, 200); }, {.issued = L"22/11/2026 10:50"});
  ASSERT_EQ(pages.size(), 5U);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    EXPECT_EQ(FootOf(pages[i]), L"Página " + std::to_wstring(i + 1) + L" de 5");
    EXPECT_NE(pages[i].Find(L"Título · emitido em 22/11/2026 10:50"), nullptr);
    EXPECT_EQ(pages[i].size, kA4);
  }
}

TEST(PagedPrintout, RepeatsTheCaptionsOnEachPage) {
  const std::vector<Page> pages = Pages([](Printout& printout) { PrintNumbers(printout, 200); });
  int rows = 0;
  for (const Page& page : pages) {
    const auto caption = std::ranges::find(page.texts, L"Número", &RecordingCanvas::Drawn::text);
    ASSERT_NE(caption, page.texts.end());
    EXPECT_EQ(caption->style.face, Face::kBold);
    const std::wstring first = (caption + 2)->text;
    EXPECT_EQ(first, L"n" + std::to_wstring(rows + 1));
    rows += static_cast<int>(std::ranges::count(page.texts, L"x", &RecordingCanvas::Drawn::text));
  }
  EXPECT_EQ(rows, 200);
}

TEST(PagedPrintout, KeepsEverythingWithinTheMargins) {
  const std::vector<Page> pages = Pages([](Printout& printout) {
    printout.Head({.title = std::wstring(200, L'W'), .facts = {{L"Operador", std::wstring(300, L'i')}}});
    printout.OpenTable({{L"Código"}, {L"Descrição"}, {L"Folhas", true}});
    for (int i = 0; i < 60; ++i) {
      printout.Row({.cells = {{std::wstring(30, L'W')},
                              {L"texto de várias palavras " + std::wstring(90, L'm')},
                              {L"1.234", true}},
                    .details = {{L"Arquivo", std::wstring(250, L'a')}, {L"Chave", L"x"}}});
    }
    printout.CloseTable();
    printout.Note({L"Guarda", std::wstring(200, L'W')});
    printout.Signatures({L"Entregue por", std::wstring(100, L'W')});
  });
  ASSERT_GT(pages.size(), 3U);
  for (const Page& page : pages) {
    for (const RecordingCanvas::Drawn& drawn : page.texts) {
      EXPECT_GE(drawn.start.x, kLeft) << page.Words();
      EXPECT_LE(drawn.Right(), kRight);
      EXPECT_GE(drawn.start.y, 14_mm);
      EXPECT_LE(drawn.start.y, drawn.text.starts_with(L"Página ") || drawn.text == L"Título" ? 290_mm : kBottom);
    }
    for (const Rectangle& area : page.areas) EXPECT_LE(area.Bottom(), kBottom);
  }
}

TEST(PagedPrintout, SplitsNoRowThatFitsOnAPage) {
  const std::vector<Page> pages = Pages([](Printout& printout) {
    printout.OpenTable({{L"Número"}, {L"Texto"}});
    for (int i = 0; i < 9; ++i) {
      std::wstring text;
      for (int word = 0; word < 300; ++word) text += L"r" + std::to_wstring(i) + L"palavra ";
      printout.Row({.cells = {{L"n"}, {text}}});
    }
    printout.CloseTable();
  });
  ASSERT_GT(pages.size(), 1U);
  for (int i = 0; i < 9; ++i) {
    const std::wstring word = L"r" + std::to_wstring(i) + L"palavra";
    EXPECT_EQ(
        std::ranges::count_if(pages, [&](const Page& page) { return page.Words().find(word) != std::wstring::npos; }),
        1)
        << i;
  }
}

TEST(PagedPrintout, GoesOnOnTheNextPageWithARowThatIsHigherThanAPage) {
  std::wstring text;
  for (int word = 0; word < 3000; ++word) text += L"p" + std::to_wstring(word) + L" ";
  const std::vector<Page> pages = Pages([&](Printout& printout) {
    PrintNumbers(printout, 1);
    printout.OpenTable({{L"Longo"}});
    printout.Row({.cells = {{text}}});
    printout.CloseTable();
  });
  ASSERT_EQ(pages.size(), 3U);
  EXPECT_NE(pages[0].Find(L"n1"), nullptr);
  std::wstring words;
  for (const Page& page : pages) words += page.Words() + L" ";
  EXPECT_NE(pages[0].Words().find(L" p0 "), std::wstring::npos);
  EXPECT_NE(pages[2].Words().find(L" p2999"), std::wstring::npos);
  for (int word = 0; word < 3000; ++word)
    ASSERT_NE(words.find(L"p" + std::to_wstring(word) + L" "), std::wstring::npos) << word;
}

// 45 rows fill the page up to where the heading would be its last line.
TEST(PagedPrintout, KeepsABlockHeadingWithItsFirstRow) {
  for (int rows = 35; rows < 50; ++rows) {
    const std::vector<Page> pages = Pages([&](Printout& printout) {
      printout.OpenTable({{L"Série"}, {L"Total", true}});
      for (int i = 0; i < rows; ++i) printout.Row({.cells = {{L"x"}, {L"1", true}}});
      printout.Row({.cells = {{L"Bloco"}}, .style = RowStyle::kBlock});
      printout.Row({.cells = {{L"Primeira"}, {L"1", true}}});
      printout.CloseTable();
    });
    const Page& page = pages.back();
    EXPECT_NE(page.Find(L"Bloco"), nullptr) << rows;
    EXPECT_NE(page.Find(L"Primeira"), nullptr) << rows;
  }
}

TEST(PagedPrintout, BreaksNoWordThatFitsOnThePage) {
  const std::vector<Page> pages = Pages([](Printout& printout) {
    printout.OpenTable({{L"Um"}, {L"Dois"}, {L"Três"}});
    printout.Row({.cells = {{L"a b c d e f g h i j k l m n o p q r s t u v w x y z"},
                            {L"tecnologia.da.informacao@memoria.example"},
                            {L"uma frase longa com palavras curtas e também compridas, como documentação"}}});
    printout.CloseTable();
  });
  EXPECT_NE(pages[0].Find(L"tecnologia.da.informacao@memoria.example"), nullptr);
  EXPECT_NE(pages[0].Words().find(L"documentação"), std::wstring::npos);
}

TEST(PagedPrintout, PutsNumbersAtTheRightOfTheirColumn) {
  const std::vector<Page> pages = Pages([](Printout& printout) {
    printout.OpenTable({{L"Nome"}, {L"Folhas", true}});
    printout.Row({.cells = {{L"a"}, {L"7", true}}});
    printout.Row({.cells = {{L"b"}, {L"1.234", true}}});
    printout.CloseTable();
  });
  const Length right = kRight - 1.5_mm;
  EXPECT_EQ(pages[0].Find(L"7")->Right(), right);
  EXPECT_EQ(pages[0].Find(L"1.234")->Right(), right);
  EXPECT_EQ(pages[0].Find(L"Folhas")->Right(), right);
}

TEST(PagedPrintout, TurnsThePage) {
  const std::vector<Page> pages = Pages([](Printout& printout) { PrintNumbers(printout, 1); }, {}, true);
  EXPECT_EQ(pages[0].size, (Size{297_mm, 210_mm}));
}

TEST(PagedPrintout, PutsTheLetterheadAboveTheTitle) {
  const auto logo = std::make_shared<const Picture>(Picture{400, 100, {}, ""});
  const std::vector<Page> pages = Pages([](Printout& printout) { printout.Head({.title = L"Módulos"}); },
                                        {.organisation = L"Arquivo Público", .logo = logo});
  ASSERT_EQ(pages[0].pictures.size(), 1U);
  const Rectangle place = pages[0].pictures[0];
  EXPECT_EQ(place.width, 50_mm);
  EXPECT_EQ(place.height, 12.5_mm);
  EXPECT_EQ(pages[0].Find(L"Arquivo Público")->start.x, place.Right() + 4_mm);
  EXPECT_GT(pages[0].Find(L"Módulos")->start.y, place.Bottom());
}

TEST(PagedPrintout, PutsTwoShortCopiesOnOnePageWithALineToCutBetweenThem) {
  const std::vector<Page> pages = Pages([](Printout& printout) {
    printout.Head({.title = L"1ª via"});
    printout.NextCopy();
    printout.Head({.title = L"2ª via"});
  });
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_EQ(FootOf(pages[0]), L"Página 1 de 1");
  ASSERT_EQ(pages[0].lines.size(), 1U);
  EXPECT_EQ(pages[0].lines[0].first.y, 148.5_mm);
  EXPECT_LT(pages[0].Find(L"1ª via")->start.y, 148.5_mm);
  EXPECT_GT(pages[0].Find(L"2ª via")->start.y, 148.5_mm);
}

TEST(PagedPrintout, NumbersThePagesOfEachCopyThatDoesNotFitOnHalfAPage) {
  const std::vector<Page> pages = Pages([](Printout& printout) {
    PrintNumbers(printout, 60);
    printout.NextCopy();
    PrintNumbers(printout, 60);
  });
  ASSERT_EQ(pages.size(), 4U);
  for (std::size_t i = 0; i < pages.size(); ++i)
    EXPECT_EQ(FootOf(pages[i]), L"Página " + std::to_wstring(i % 2 + 1) + L" de 2") << i;
}

// Wherever the table ends, the signatures are on a page with its last row.
TEST(PagedPrintout, LeavesNoSignaturesAloneOnAPage) {
  for (int rows = 30; rows < 50; ++rows) {
    for (int notes = 0; notes < 5; ++notes) {
      const std::vector<Page> pages = Pages([&](Printout& printout) {
        for (int i = 0; i < notes; ++i) printout.Note({L"Nota", L"x"});
        PrintNumbers(printout, rows);
        printout.Paragraph(L"Devolução em 22/11/2026.");
        printout.Signatures({L"Entregue por"});
      });
      EXPECT_NE(pages.back().Find(L"Entregue por"), nullptr) << rows << " " << notes;
      EXPECT_NE(pages.back().Find(L"n" + std::to_wstring(rows)), nullptr) << rows << " " << notes;
    }
  }
}

TEST(PagedPrintout, PrintsAnEmptyTable) {
  const std::vector<Page> pages = Pages([](Printout& printout) { PrintNumbers(printout, 0); });
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_EQ(pages[0].Words(), L"Título Página 1 de 1 Número Nome");
}

TEST(PagedPrintout, ReplacesWhatItsLettersCannotShow) {
  const std::vector<Page> pages = Pages([](Printout& printout) { printout.Paragraph(L"日本\tcafé"); });
  EXPECT_EQ(pages[0].Words(), L"Título Página 1 de 1 ?? café");
}

}  // namespace
}  // namespace kodra::console::pages
