// Where things are on a label: nothing touches anything else or leaves the label, whatever the texts, the stock and the
// code.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include "console/formats/labels/label_drawing.h"
#include "console/formats/labels/stock.h"
#include "tests/console/failing.h"
#include "tests/console/formats/labels/recording_canvas.h"

namespace kodra::console::labels {
namespace {

using namespace pages;

const Picture kLogo = {300, 200, {}, "PNG"};

std::vector<Stock> AllStock() {
  std::vector<Stock> stocks = BuiltInStocks();
  for (const char* const roll : {"100x50mm", "60x40mm", "62x29mm", "50x25mm"}) stocks.push_back(ParseStock(roll, roll));
  return stocks;
}

std::wstring ModulesUpTo(int last) {
  std::wstring text = L"Módulos: AB001";
  for (int module = 2; module <= last; ++module) text += L", AB" + std::to_wstring(1000 + module).substr(1);
  return text;
}

// Each kind of label, with usual, short and the longest texts that the archive's columns take.
std::vector<Label> AllLabels() {
  const std::wstring documents = L"documentos 0000000001 a 0000000090";
  return {
      {L"ABERTURA DE MÓDULO", L"Arquivo Geral do Município", L"AA001", L"Contratos", L"guarda por prazo, 10 anos"},
      {L"ABERTURA DE MÓDULO", L"", L"A", L"", L""},
      {L"ABERTURA DE MÓDULO", std::wstring(64, L'W'), L"WW99999", std::wstring(100, L'W'), L"conteúdo descartado"},
      {L"FECHAMENTO DE MÓDULO", L"Arquivo Público da Prefeitura de São João del-Rei", L"AB00107",
       L"CORRESPONDÊNCIA EXPEDIDA E RECEBIDA PELO DEPARTAMENTO DE ADMINISTRAÇÃO E PELA SECRETARIA GERAL 2019 A 2",
       documents + L" · guarda por prazo, até 31/12/2023"},
      {L"FECHAMENTO DE MÓDULO", L"i", L"11111", L"i", L""},
      {L"FECHAMENTO DE MÓDULO", std::wstring(64, L'M'), L"WW99999", std::wstring(100, L'M'),
       L"documentos WWWWWWWWWW a WWWWWWWWWW · guarda por prazo, até 31/12/2023"},
      {L"DIVISÓRIA", L"Arquivo Geral do Município", L"0000012345", L"", L"módulo AB001"},
      {L"DIVISÓRIA", std::wstring(64, L'W'), L"WWWWWWWWWW", L"", L"módulo WWWWW"},
      {L"ABERTURA DE CONTÊINER", L"Arquivo Geral do Município", L"CT01", L"Módulos: AB001",
       L"guarda por prazo, até 31/12/2023"},
      {L"ABERTURA DE CONTÊINER", std::wstring(64, L'W'), L"WWWWWWWWWW", ModulesUpTo(60), L"descarte após o fechamento"},
  };
}

// The box with the quiet zone that a scanner needs.
Rectangle WithQuietZone(const Drawn& drawn, CodeKind code) {
  const Length beside = (code == CodeKind::kCode128 ? 10 : 4) * drawn.narrowest;
  const Length above = code == CodeKind::kCode128 ? 0 : beside;
  return {drawn.box.left - beside, drawn.box.top - above, drawn.box.width + 2 * beside, drawn.box.height + 2 * above};
}

bool Overlap(const Rectangle& one, const Rectangle& other) {
  return one.left < other.Right() && other.left < one.Right() && one.top < other.Bottom() && other.top < one.Bottom();
}

// What is wrong with a drawn label; empty if all is well.
std::string Faults(const std::vector<Drawn>& drawn, const Rectangle& cell, CodeKind code) {
  std::string faults;
  std::vector<Rectangle> boxes;
  for (const Drawn& one : drawn) boxes.push_back(one.kind == Drawn::kFill ? WithQuietZone(one, code) : one.box);
  const Length padding = PaddingOf({cell.width, cell.height});
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    const Rectangle& box = boxes[i];
    if (box.left < cell.left + padding || box.top < cell.top + padding || box.Right() > cell.Right() - padding ||
        box.Bottom() > cell.Bottom() - padding)
      faults += fmt::format("{} leaves the label; ", i);
    for (std::size_t j = 0; j < i; ++j) {
      if (Overlap(box, boxes[j])) faults += fmt::format("{} and {} overlap; ", j, i);
    }
    if (drawn[i].kind == Drawn::kText && drawn[i].letters < kSmallestLetters)
      faults += fmt::format("{} is too small; ", i);
    const Length least = code == CodeKind::kCode128 ? kLeastBar : kLeastSquare;
    if (drawn[i].kind == Drawn::kFill && drawn[i].narrowest < least) faults += "the code is too fine; ";
  }
  return faults;
}

class LabelLayout : public testing::TestWithParam<CodeKind> {};

INSTANTIATE_TEST_SUITE_P(, LabelLayout, testing::Values(CodeKind::kCode128, CodeKind::kQr, CodeKind::kNone),
                         [](const auto& code) {
                           return code.param == CodeKind::kCode128 ? "Code128"
                                  : code.param == CodeKind::kQr    ? "Qr"
                                                                   : "None";
                         });

TEST_P(LabelLayout, KeepsEverythingApartAndOnTheLabel) {
  int count = 0;
  for (const Stock& stock : AllStock()) {
    for (const bool more : {false, true}) {
      const LabelParts parts = {GetParam(), more, more ? &kLogo : nullptr};
      const LabelDesign design = DesignOf(stock.label, parts);
      for (Label label : AllLabels()) {
        if (more) label.place = L"fileira 12, estante 34, prateleira 56, depósito Galpão Central";
        RecordingCanvas canvas;
        canvas.BeginPage(stock.page);
        DrawLabel(canvas, label, design, parts, {7'000, 11'000});
        const std::vector<Drawn>& drawn = canvas.Pages()[0].drawn;
        const Rectangle cell = {7'000, 11'000, stock.label.width, stock.label.height};
        EXPECT_EQ(Faults(drawn, cell, GetParam()), "") << stock.name << " " << more << " " << count;
        EXPECT_GE(drawn.size(), GetParam() == CodeKind::kNone ? 2U : 3U);
        ++count;
      }
    }
  }
  EXPECT_EQ(count, 17 * 2 * 10);
}

// The number is the largest text, then comes the description, and all labels of a stock have letters of one size.
TEST_P(LabelLayout, HasTheSameLettersOnAllLabels) {
  for (const Stock& stock : AllStock()) {
    const LabelParts parts = {.code = GetParam()};
    const LabelDesign design = DesignOf(stock.label, parts);
    EXPECT_GT(design.Number(), design.Description()) << stock.name;
    EXPECT_GT(design.Description(), design.rest) << stock.name;
    EXPECT_GE(design.rest, kSmallestLetters) << stock.name;
    for (const wchar_t* const number : {L"AA001", L"AB002"}) {
      RecordingCanvas canvas;
      canvas.BeginPage(stock.page);
      DrawLabel(canvas, {.kind = L"DIVISÓRIA", .number = number, .description = L"a", .facts = L"b"}, design, parts,
                {});
      for (const Drawn& drawn : canvas.Pages()[0].drawn) {
        const Length expected = drawn.text == L"a"   ? design.Description()
                                : drawn.text == L"b" ? design.rest
                                                     : drawn.letters;
        EXPECT_EQ(drawn.letters, expected) << stock.name;
      }
      EXPECT_EQ(canvas.Pages()[0].drawn[design.kindIsAbove ? 1 : 0].letters, design.Number()) << stock.name;
    }
  }
}

TEST(LabelDrawing, WritesTheNumberInClearUnderItsBars) {
  RecordingCanvas canvas;
  canvas.BeginPage(kA4);
  const LabelDesign design = DesignOf({99'100, 38'100}, {});
  DrawLabel(canvas, {.kind = L"DIVISÓRIA", .number = L"0000012345", .facts = L"módulo AB001"}, design, {}, {});
  EXPECT_EQ(canvas.Texts(0), (std::vector<std::wstring>{L"0000012345", L"DIVISÓRIA", L"módulo AB001", L"0000012345"}));
  const std::vector<Drawn>& drawn = canvas.Pages()[0].drawn;
  EXPECT_EQ(drawn[3].kind, Drawn::kFill);
  EXPECT_GE(drawn[4].box.top, drawn[3].box.Bottom());
}

TEST(LabelDrawing, NamesTheTextsThatItCuts) {
  RecordingCanvas canvas;
  canvas.BeginPage(kA4);
  const LabelDesign design = DesignOf({66'700, 25'400}, {});
  EXPECT_EQ(DrawLabel(canvas,
                      {.kind = L"FECHAMENTO DE MÓDULO",
                       .organisation = std::wstring(64, L'W'),
                       .number = L"AB001",
                       .description = std::wstring(100, L'W'),
                       .facts = L"guarda por prazo"},
                      design, {}, {}),
            (std::vector<std::string>{"o órgão", "a descrição"}));
  EXPECT_EQ(DrawLabel(canvas, {.kind = L"DIVISÓRIA", .number = L"1"}, design, {}, {}), std::vector<std::string>{});
}

// Why a label is not drawn; empty if it is.
std::string RefusalOf(Size label, const LabelParts& parts, const std::wstring& number) {
  RecordingCanvas canvas;
  canvas.BeginPage(kA4);
  return console::RefusalOf(
      [&] { DrawLabel(canvas, {.kind = L"DIVISÓRIA", .number = number}, DesignOf(label, parts), parts, {}); });
}

// 20 letters of set B are 20 · 11 + 35 modules and 20 of quiet zone, each of 0.19 mm; a QR code takes them.
TEST(LabelDrawing, RefusesACodeThatTheLabelIsTooNarrowFor) {
  EXPECT_EQ(
      RefusalOf({50'000, 40'000}, {}, L"ABCDEFGHIJKLMNOPQRST"),
      "o código de barras de \"ABCDEFGHIJKLMNOPQRST\" não cabe na etiqueta: precisa de 56,25 mm de largura, e ela "
      "tem 50 mm; com o código qr, cabe");
  EXPECT_EQ(RefusalOf({56'250, 40'000}, {}, L"ABCDEFGHIJKLMNOPQRST"), "");
  EXPECT_EQ(RefusalOf({56'249, 40'000}, {}, L"ABCDEFGHIJKLMNOPQRST").substr(0, 19), "o código de barras");
  EXPECT_EQ(RefusalOf({50'000, 40'000}, {}, L"AÇÃO"),
            "um código de barras Code 128 não comporta \"AÇÃO\": são de 1 a 48 letras sem acento, algarismos e sinais; "
            "escolha o código qr, ou nenhum");
  // 60 letters with accents need 33 squares on each side, with the quiet zone 41 of 0.33 mm.
  EXPECT_EQ(
      RefusalOf({50'000, 40'000}, {.code = CodeKind::kQr}, std::wstring(60, L'Ç')), "o código QR de \"" + [] {
        std::string text;
        for (int i = 0; i < 60; ++i) text += "Ç";
        return text;
      }() + "\" não cabe na etiqueta: precisa de um quadrado de 13,53 mm, e há 12 mm");
}

// Without a code: the organisation and the facts take 1.971 mm each in the smallest letters, the number 4.436, the
// description 2.365, three gaps 1.323 and the padding 3.
TEST(LabelDesign, RefusesLabelsThatAreTooSmall) {
  const auto refusal = [](Size label, const LabelParts& parts) { return RefusalOf(label, parts, L"1"); };
  EXPECT_EQ(refusal({20'000, 40'000}, {}),
            "uma etiqueta de 20 x 40 mm é pequena demais: precisa de ao menos 24 mm de largura");
  EXPECT_EQ(refusal({24'000, 40'000}, {}), "");
  EXPECT_EQ(refusal({62'000, 10'000}, {.code = CodeKind::kNone}),
            "uma etiqueta de 62 x 10 mm é pequena demais: precisa de ao menos 15,066 mm de altura");
  const std::string bars = refusal({62'000, 20'000}, {});
  EXPECT_TRUE(bars.ends_with(" mm de altura, ou de ficar sem código de barras")) << bars;
  EXPECT_EQ(refusal({62'000, 20'000}, {.code = CodeKind::kNone}), "");
}

}  // namespace
}  // namespace kodra::console::labels
