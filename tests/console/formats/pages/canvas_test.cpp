// What the canvases write. How the pages look is checked on real ones, by "./kodra test console".
#include <gtest/gtest.h>
#include <fstream>
#include <string>

#include "console/formats/pages/base64.h"
#include "console/formats/pages/html_canvas.h"
#include "console/formats/pages/pdf_canvas.h"
#include "tests/console/pdf.h"
#include "tests/db/temporary_folder.h"

namespace kodra::console::pages {
namespace {

const Picture kDot = {1, 1, {255, 0, 0}, "PNG"};

void DrawExample(Canvas& canvas) {
  canvas.BeginPage({100_mm, 50_mm});
  canvas.Text({10_mm, 20.5_mm}, L"Módulo <1>", {.face = Face::kBold, .size = 2048, .colour = 0x1F4E5F});
  canvas.Line({0, 1_mm}, {5_mm, 1_mm}, {.width = 0.3_mm, .dashed = true});
  const Rectangle areas[] = {{1_mm, 2_mm, 3_mm, 4_mm}, {5_mm, 2_mm, 0.25_mm, 4_mm}};
  canvas.Fill(areas, kBlack);
  canvas.Draw(kDot, {90_mm, 0, 10_mm, 10_mm});
  canvas.BeginPage({100_mm, 50_mm});
  canvas.Text({10_mm, 20_mm}, L"Página 2: Dvořák", {.size = 1000});
  canvas.Finish();
}

// The texts are as wide as their letters in Arial, in 2048ths of the size:
// "Módulo <1>", bold: 1706+1251+1251+1251+569+1251+569+1196+1139+1196;
// "Página 2: Dvořák": 1366+1139+1139+455+1139+1139+569+1139+569+569+1479+1024+1139+682+1139+1024.
TEST(HtmlCanvas, WritesADrawingPerPage) {
  TextOutput output;
  HtmlCanvas canvas(output, L"Título");
  DrawExample(canvas);
  const std::string& text = output.Text();
  const std::size_t body = text.find("<body>\n");
  ASSERT_NE(body, std::string::npos);
  EXPECT_NE(text.find("<title>Título</title>"), std::string::npos);
  EXPECT_NE(text.find("@page{size:100.000mm 50.000mm;margin:0}"), std::string::npos);
  EXPECT_EQ(text.substr(body),
            "<body>\n"
            "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 100.000 50.000\">\n"
            "<text x=\"10.000\" y=\"20.500\" font-size=\"2.048\" font-weight=\"bold\" fill=\"#1f4e5f\" "
            "textLength=\"11.379\" lengthAdjust=\"spacingAndGlyphs\">Módulo &lt;1&gt;</text>\n"
            "<path d=\"M0.000 1.000L5.000 1.000\" stroke=\"#000000\" stroke-width=\"0.300\" "
            "stroke-dasharray=\"1.058\"/>\n"
            "<path fill=\"#000000\" "
            "d=\"M1.000 2.000h3.000v4.000h-3.000zM5.000 2.000h0.250v4.000h-0.250z\"/>\n"
            "<image x=\"90.000\" y=\"0.000\" width=\"10.000\" height=\"10.000\" preserveAspectRatio=\"none\" "
            "href=\"data:image/png;base64,UE5H\"/>\n"
            "</svg>\n"
            "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 100.000 50.000\">\n"
            "<text x=\"10.000\" y=\"20.000\" font-size=\"1.000\" textLength=\"7.671\" "
            "lengthAdjust=\"spacingAndGlyphs\">Página 2: Dvořák</text>\n"
            "</svg>\n"
            "</body>\n"
            "</html>\n");
}

std::string Pdf() {
  TextOutput output;
  PdfCanvas canvas(output, L"Título");
  DrawExample(canvas);
  return output.Text();
}

// What a tool prints about the example.
std::string Answer(const std::string& tool) {
  const tests::TemporaryFolder folder;
  const auto path = folder / "pagina.pdf";
  std::ofstream(path, std::ios::binary) << Pdf();
  return tests::AnswerOf(tool, path);
}

TEST(PdfCanvas, WritesTheSameBytesEachTime) {
  EXPECT_EQ(Pdf().substr(0, 5), "%PDF-");
  EXPECT_EQ(Pdf(), Pdf());
}

TEST(PdfCanvas, HasPagesOfTheirSizeAndATitle) {
  const std::string info = Answer("pdfinfo");
  EXPECT_NE(info.find("Title:           Título\n"), std::string::npos) << info;
  EXPECT_NE(info.find("Producer:        kodrarpt\n"), std::string::npos) << info;
  EXPECT_NE(info.find("Pages:           2\n"), std::string::npos) << info;
  EXPECT_NE(info.find("Page size:       283.465 x 141.732 pts\n"), std::string::npos) << info;
}

TEST(PdfCanvas, HasTextsThatCanBeSearched) { EXPECT_EQ(Answer("pdftotext"), "Módulo <1>\n\n\fPágina 2: Dvořák\n\n\f"); }

// The columns after the encoding: embedded, subset.
TEST(PdfCanvas, EmbedsTheUsedPartOfTheFonts) {
  const std::string fonts = Answer("pdffonts");
  EXPECT_NE(fonts.find("KODRAA+LiberationSans                TrueType          WinAnsi          yes yes"),
            std::string::npos)
      << fonts;
  EXPECT_NE(fonts.find("KODRAB+LiberationSans-Bold"), std::string::npos) << fonts;
}

TEST(Base64, PadsItsLastGroup) {
  EXPECT_EQ(Base64(""), "");
  EXPECT_EQ(Base64("f"), "Zg==");
  EXPECT_EQ(Base64("fo"), "Zm8=");
  EXPECT_EQ(Base64("foobar"), "Zm9vYmFy");
  EXPECT_EQ(Base64("\xFF\xEF"), "/+8=");
}

TEST(Base64, IsReadAgain) {
  EXPECT_EQ(FromBase64(""), "");
  EXPECT_EQ(FromBase64("Zg=="), "f");
  EXPECT_EQ(FromBase64("Zm8="), "fo");
  EXPECT_EQ(FromBase64("Zm9vYmFy"), "foobar");
  EXPECT_EQ(FromBase64("/+8="), "\xFF\xEF");
}

TEST(Base64, IsNoOtherText) {
  for (const char* const text : {"Zg", "Zg=", "Z===", "Zm 9", "Zm9v\n", "=Zm9"})
    EXPECT_EQ(FromBase64(text), std::nullopt) << text;
}

}  // namespace
}  // namespace kodra::console::pages
