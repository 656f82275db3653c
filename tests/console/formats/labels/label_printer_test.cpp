// Labels on their pages: places, copies, outlines, and what a browser and a scanner make of them.
#include "console/formats/labels/label_printer.h"

#include <gtest/gtest.h>
#include <algorithm>

#include "console/formats/labels/label_writer.h"
#include "tests/console/formats/html/browser.h"
#include "tests/console/formats/labels/recording_canvas.h"

namespace kodra::console::labels {
namespace {

using namespace pages;
using Places = std::vector<std::pair<Length, Length>>;

Stock Named(const std::string& name) { return *std::ranges::find(BuiltInStocks(), name, &Stock::name); }

Label Numbered(const std::wstring& number) { return {.kind = L"DIVISÓRIA", .number = number}; }

void PrintNumbers(Canvas& canvas, const PrintOptions& options, const std::vector<std::wstring>& numbers) {
  LabelPrinter printer(canvas, options);
  for (const std::wstring& number : numbers) printer.Print(Numbered(number));
  printer.Finish();
}

// The upper left corners of the labels' numbers on a page.
Places PlacesOn(const RecordingCanvas& canvas, std::size_t page, const Stock& stock) {
  Places places;
  const LabelDesign design = DesignOf(stock.label, {.code = CodeKind::kNone});
  for (const Drawn& drawn : canvas.Pages().at(page).drawn) {
    if (drawn.letters == design.Number()) places.emplace_back(drawn.box.left, drawn.box.top);
  }
  return places;
}

// The padding is 2 mm, and the kind is beside the number on these labels.
TEST(LabelPrinter, PlacesCopiesFromTheFirstFreeLabel) {
  const Stock stock = Named("a4-2x7");
  RecordingCanvas canvas;
  PrintNumbers(canvas, {.stock = stock, .firstLabel = 14, .copies = 2, .code = CodeKind::kNone}, {L"AB001", L"AB002"});
  ASSERT_EQ(canvas.Pages().size(), 2U);
  EXPECT_EQ(PlacesOn(canvas, 0, stock), (Places{{108'250, 245'750}}));
  EXPECT_EQ(PlacesOn(canvas, 1, stock), (Places{{6'650, 17'150}, {108'250, 17'150}, {6'650, 55'250}}));
  EXPECT_EQ(canvas.Texts(1),
            (std::vector<std::wstring>{L"AB001", L"DIVISÓRIA", L"AB002", L"DIVISÓRIA", L"AB002", L"DIVISÓRIA"}));
  EXPECT_TRUE(canvas.IsFinished());
}

TEST(LabelPrinter, BeginsNoPageForALabelThatDoesNotCome) {
  const Stock roll = ParseStock("100x50mm", "100x50mm");
  RecordingCanvas canvas;
  PrintNumbers(canvas, {.stock = roll}, {L"1", L"2"});
  ASSERT_EQ(canvas.Pages().size(), 2U);
  EXPECT_EQ(canvas.Pages()[0].size, (Size{100'000, 50'000}));
}

TEST(LabelPrinter, ShiftsLabelsAndOutlines) {
  const Stock stock = Named("a4-1x2");
  RecordingCanvas canvas;
  PrintNumbers(canvas, {.stock = stock, .shift = {500, -1'000}, .outline = true, .code = CodeKind::kNone}, {L"1"});
  EXPECT_EQ(PlacesOn(canvas, 0, stock), (Places{{5'200 + 2'000 + 500, 5'000 + 2'000 - 1'000}}));
  std::vector<Length> tops;
  for (const Drawn& drawn : canvas.Pages()[0].drawn) {
    if (drawn.kind != Drawn::kLine || drawn.box.height != 0) continue;
    EXPECT_EQ(drawn.box.left, 5'700);
    EXPECT_EQ(drawn.box.width, 199'600);
    tops.push_back(drawn.box.top);
  }
  EXPECT_EQ(tops, (std::vector<Length>{4'000, 147'500, 147'500, 291'000}));
}

TEST(LabelPrinter, SaysThatThereIsNoLabel) {
  RecordingCanvas canvas;
  PrintNumbers(canvas, {.stock = Named("a4-2x7"), .firstLabel = 3}, {});
  ASSERT_EQ(canvas.Pages().size(), 1U);
  EXPECT_EQ(canvas.Texts(0), std::vector<std::wstring>{L"Nenhuma etiqueta."});
}

TEST(LabelPrinter, WarnsOnceAboutALabelWithTextsThatAreCut) {
  RecordingCanvas canvas;
  std::vector<std::string> warnings;
  LabelPrinter printer(canvas, {.stock = Named("carta-3x10"), .copies = 3, .warn = [&](const std::string& warning) {
                                  warnings.push_back(warning);
                                }});
  printer.Print({.kind = L"DIVISÓRIA", .organisation = std::wstring(99, L'W'), .number = L"AB001"});
  printer.Print(Numbered(L"AB002"));
  EXPECT_EQ(warnings, std::vector<std::string>{"na etiqueta AB001, não cabe por inteiro: o órgão"});
}

TEST(LabelWriter, WritesTheRowsOfAReportAsHtmlOrPdf) {
  for (const PageFormat format : {PageFormat::kHtml, PageFormat::kPdf}) {
    TextOutput output;
    LabelWriter writer(output, format, {});
    writer.Begin({L"CCaixaRpt", L"EtiquetaAbertura", L"Etiquetas de abertura", {}},
                 std::vector<Column>{{L"NUM_CAIXA"}});
    writer.Row(std::vector<Value>{L"AB001"});
    writer.End();
    if (format == PageFormat::kPdf) {
      EXPECT_EQ(output.Text().substr(0, 5), "%PDF-");
    } else {
      EXPECT_NE(output.Text().find("<title>Etiquetas de abertura</title>"), std::string::npos);
      EXPECT_NE(output.Text().find(">ABERTURA DE MÓDULO</text>"), std::string::npos);
    }
  }
}

// The smallest labels there are, so that the bars are as close as they get.
TEST(LabelPages, AreReadByAScannerWhenABrowserPrintsThem) {
  tests::Browser browser;
  TextOutput output;
  const std::unique_ptr<Canvas> canvas = NewCanvas(PageFormat::kHtml, output, L"Etiquetas");
  PrintNumbers(*canvas, {.stock = Named("carta-3x10"), .firstLabel = 29}, {L"AB001", L"AB00107", L"WW99912", L"00123"});
  tests::Browser::Print print = browser.PrintToPdf(output.Text(), true);
  EXPECT_EQ(print.pages, 2);
  EXPECT_EQ(print.size, "612 x 792 pts (letter)");
  std::ranges::sort(print.barcodes);
  EXPECT_EQ(print.barcodes, (std::vector<std::string>{"00123", "AB001", "AB00107", "WW99912"}));
}

}  // namespace
}  // namespace kodra::console::labels
