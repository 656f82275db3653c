#include "console/panel/page_writer.h"

#include <gtest/gtest.h>

#include "console/formats/output.h"

namespace kodra::console::panel {
namespace {

const Heading kDeptos = {L"CDeptoRpt", L"RelatorioDeptos", L"Departamentos", {}};

std::vector<std::string> NoWarnings(std::uint64_t) { return {}; }

TEST(PanelRows, AreJsonLinesAsPeopleReadValues) {
  TextOutput output;
  PageWriter writer(output, NoWarnings);
  const Column columns[] = {{L"descr_depto", ColumnKind::kText}, {L"OUTRA", ColumnKind::kNumber}};
  writer.Begin(kDeptos, columns);
  writer.Row(std::vector<Value>{std::wstring(L"Jurídico \"A\""), 1234.5});
  writer.Row(std::vector<Value>{Value(), true});
  writer.End();
  EXPECT_EQ(output.Text(),
            "{\"columns\":[{\"name\":\"descr_depto\",\"caption\":\"Departamento\",\"isNumber\":false},"
            "{\"name\":\"OUTRA\",\"caption\":\"OUTRA\",\"isNumber\":true}]}\n"
            "[\"Jurídico \\\"A\\\"\",\"1234,5\"]\n"
            "[null,\"Sim\"]\n"
            "{\"end\":{\"rows\":2,\"filter\":\"\",\"notes\":[]}}\n");
}

TEST(PanelRows, SayWithWhichFiltersAndWarningsNothingWasFound) {
  TextOutput output;
  PageWriter writer(output, [](std::uint64_t) { return std::vector<std::string>{"não há 001"}; });
  writer.Begin({L"CDocumentoRpt", L"RelatorioSintetico", L"Documentos", {{L"CodDepto", L"001"}}}, {});
  writer.End();
  EXPECT_EQ(output.Text(),
            "{\"columns\":[]}\n"
            "{\"end\":{\"rows\":0,\"filter\":\"Departamento 001\",\"notes\":[],\"warnings\":[\"não há 001\"]}}\n");
}

TEST(PanelRows, SayWhyRowsMayBeMissingBesideThoseThatWereFound) {
  TextOutput output;
  PageWriter writer(output,
                    [](std::uint64_t rows) { return std::vector<std::string>{std::to_string(rows) + " de 2"}; });
  writer.Begin(kDeptos, {});
  writer.Row({});
  writer.End();
  EXPECT_EQ(output.Text(),
            "{\"columns\":[]}\n[]\n"
            "{\"end\":{\"rows\":1,\"filter\":\"\",\"notes\":[],\"warnings\":[\"1 de 2\"]}}\n");
}

TEST(PanelRows, AreOnlyCountedBeyondWhatThePageHolds) {
  TextOutput output;
  PageWriter writer(output, NoWarnings, 2);
  const Column columns[] = {{L"CODIGO"}};
  writer.Begin(kDeptos, columns);
  for (int row = 1; row <= 5; ++row) writer.Row(std::vector<Value>{std::to_wstring(row)});
  writer.End();
  const std::string& text = output.Text();
  EXPECT_NE(text.find("[\"2\"]\n"), text.npos);
  EXPECT_EQ(text.find("[\"3\"]"), text.npos);
  EXPECT_NE(text.find("{\"end\":{\"rows\":5,"), text.npos) << text;
}

// What each piece contains.
class Pieces final : public Output {
 public:
  void Write(std::string_view bytes) override { pieces.emplace_back(bytes); }
  std::vector<std::string> pieces;
};

TEST(PanelRows, AreSentInPiecesTheFirstRowAtOnce) {
  Pieces output;
  PageWriter writer(output, NoWarnings);
  const Column columns[] = {{L"CODIGO"}};
  writer.Begin(kDeptos, columns);
  writer.Row(std::vector<Value>{std::wstring(L"a")});
  ASSERT_EQ(output.pieces.size(), 2U);
  EXPECT_EQ(output.pieces[1], "[\"a\"]\n");
  for (int row = 0; row < 10000; ++row) writer.Row(std::vector<Value>{std::wstring(20, L'x')});
  for (const std::string& piece : output.pieces) EXPECT_LT(piece.size(), 40U * 1024);
  EXPECT_LT(output.pieces.size(), 100U);
}

TEST(PanelRows, OfAStatisticEndWithItsTotalsAndChart) {
  TextOutput output;
  PageWriter writer(output, NoWarnings);
  const Column columns[] = {{L"Titulo"}, {L"Subtitulo"}, {L"Periodo"}, {L"Subgrupo"}, {L"Serie"}, {L"Total"}};
  writer.Begin({L"CEstatSerieRpt", L"RelatorioEstatisticas", L"Estatística", {}}, columns);
  const auto row = [&](const wchar_t* group, const wchar_t* series, int total) {
    writer.Row(std::vector<Value>{std::wstring(L"Por série"), std::wstring(L"Documentos"), std::wstring(L"2024"),
                                  std::wstring(group), std::wstring(series), std::int32_t{total}});
  };
  row(L"A", L"Atas", 1000);
  row(L"A", L"Cartas", 200);
  row(L"B", L"Mapas", 34);
  writer.End();
  const std::string& text = output.Text();
  const std::string end = text.substr(text.rfind("{\"end\""));
  EXPECT_NE(end.find("\"blocks\":[{\"name\":\"A\",\"lines\":[{\"name\":\"Atas\",\"sums\":[\"1.000\"]},"
                     "{\"name\":\"Cartas\",\"sums\":[\"200\"]}],\"sums\":[\"1.200\"]},"
                     "{\"name\":\"B\",\"lines\":[{\"name\":\"Mapas\",\"sums\":[\"34\"]}],\"sums\":[\"34\"]}],"
                     "\"sums\":[\"1.234\"]"),
            end.npos)
      << end;
  EXPECT_NE(end.find("\"bars\":[{\"name\":\"Atas\",\"value\":1000.0,\"text\":\"1.000\"}"), end.npos) << end;
}

TEST(PanelRows, OfAStatisticWithoutRowsHaveNoTotals) {
  TextOutput output;
  PageWriter writer(output, NoWarnings);
  writer.Begin({L"CEstatSerieRpt", L"RelatorioEstatisticas", L"Estatística", {}}, {});
  writer.End();
  EXPECT_EQ(output.Text().find("statistics"), std::string::npos);
}

}  // namespace
}  // namespace kodra::console::panel
