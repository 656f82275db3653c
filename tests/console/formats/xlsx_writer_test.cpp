// The sheets are read back from the file, which is a zip archive of XML.
#include "console/formats/xlsx_writer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "tests/console/failing.h"
#include "tests/console/formats/writing.h"
#include "tests/console/xlsx.h"
#include "tests/db/temporary_folder.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

namespace fs = std::filesystem;

class XlsxWriterTest : public testing::Test {
 protected:
  std::wstring Path() const { return values::FromUtf8((folder_ / "planilha.xlsx").string()); }

  // A part of the file at Path().
  std::string Part(const std::string& name) const { return PartOf(folder_ / "planilha.xlsx", name); }

  // The part of a text from one mark to the next, both included.
  static std::string Between(const std::string& text, const std::string& first, const std::string& last) {
    const std::size_t start = text.find(first);
    const std::size_t end = text.find(last, start);
    if (start == std::string::npos || end == std::string::npos) return "(not found)";
    return text.substr(start, end + last.size() - start);
  }

  void Write(const std::vector<Column>& columns, std::initializer_list<Cells> rows) {
    WriteTo(*NewXlsxWriter(Path(), {}), columns, rows);
  }
  // The rows after the names.
  std::string Rows() const {
    const std::string data = Between(Part("xl/worksheets/sheet1.xml"), "<sheetData>", "</sheetData>");
    const std::size_t first = data.find("<row r=\"2\"");
    return first == std::string::npos ? data : data.substr(first, data.rfind("</sheetData>") - first);
  }

  const tests::TemporaryFolder folder_;
};

TEST_F(XlsxWriterTest, WritesTextsThatLookLikeFormulasAsTexts) {
  Write({{L"A"}, {L"B"}, {L"C"}, {L"D"}}, {{L"=1+1", L"+55", L"-2", L"@SOMA(A1)"}});
  EXPECT_EQ(Rows(),
            "<row r=\"2\">"
            "<c r=\"A2\" t=\"inlineStr\"><is><t>=1+1</t></is></c>"
            "<c r=\"B2\" t=\"inlineStr\"><is><t>+55</t></is></c>"
            "<c r=\"C2\" t=\"inlineStr\"><is><t>-2</t></is></c>"
            "<c r=\"D2\" t=\"inlineStr\"><is><t>@SOMA(A1)</t></is></c>"
            "</row>");
  EXPECT_EQ(Part("xl/worksheets/sheet1.xml").find("<f>"), std::string::npos);
}

TEST_F(XlsxWriterTest, WritesCharactersThatXmlCannotHoldByTheirNumbers) {
  Write({{L"A"}, {L"B\x01"}, {L"C"}, {L"D"}},
        {{L"a\xFFFE"
          L"b\xFFFF"
          L"c\x0B"
          L"d\r\n\te",
          std::wstring(L"um\0dois", 7), L"\xFFFD\x7F\x9F", L"_x000D_ _x000d_ _X000D_ _x00G0_ _x0041\x01 _x000D"}});
  EXPECT_EQ(Rows(),
            "<row r=\"2\">"
            "<c r=\"A2\" t=\"inlineStr\"><is><t>a_xFFFE_b_xFFFF_c_x000B_d_x000D_\n\te</t></is></c>"
            "<c r=\"B2\" t=\"inlineStr\"><is><t>um_x0000_dois</t></is></c>"
            "<c r=\"C2\" t=\"inlineStr\"><is><t>\uFFFD\x7F\u009F</t></is></c>"
            "<c r=\"D2\" t=\"inlineStr\"><is><t>_x005F_x000D_ _x005F_x000d_ _X000D_ _x00G0_ _x005F_x0041_x0001_ "
            "_x000D</t></is></c>"
            "</row>");
  EXPECT_NE(Part("xl/worksheets/sheet1.xml").find("<t>B_x0001_</t>"), std::string::npos);
}

TEST_F(XlsxWriterTest, WritesABlankInItsPropertiesForACharacterThatXmlCannotHold) {
  const auto writer = NewXlsxWriter(Path(), {});
  writer->Begin({L"CDeptoRpt", L"RelatorioDeptos", L"T\xFFFE", {{L"Owner", L"Ana\x1b[31m"}}}, {});
  writer->End();
  const std::string properties = Part("docProps/core.xml");
  EXPECT_EQ(Between(properties, "<dc:title>", "</dc:title>"), "<dc:title>T </dc:title>");
  EXPECT_EQ(Between(properties, "<dc:description>", "</dc:description>"),
            "<dc:description>Owner: Ana [31m</dc:description>");
}

TEST_F(XlsxWriterTest, WritesNumbersFlagsAndDatesAsValuesOfASpreadsheet) {
  Write({{L"A", ColumnKind::kNumber}, {L"B", ColumnKind::kFlag}, {L"C", ColumnKind::kDay}, {L"D", ColumnKind::kMoment}},
        {{1234.5, true, kDay, Date{45291.5}}, {-7, false, Null{}, kDay}});
  EXPECT_EQ(Rows(),
            "<row r=\"2\">"
            "<c r=\"A2\"><v>1234.5</v></c><c r=\"B2\" t=\"b\"><v>1</v></c>"
            "<c r=\"C2\" s=\"2\"><v>45291</v></c><c r=\"D2\" s=\"3\"><v>45291.5</v></c>"
            "</row>"
            "<row r=\"3\">"
            "<c r=\"A3\"><v>-7</v></c><c r=\"B3\" t=\"b\"><v>0</v></c><c r=\"D3\" s=\"3\"><v>45291</v></c>"
            "</row>");
  EXPECT_EQ(Between(Part("xl/styles.xml"), "<numFmts", "</numFmts>"),
            "<numFmts count=\"2\"><numFmt numFmtId=\"164\" formatCode=\"dd/mm/yyyy\"/>"
            "<numFmt numFmtId=\"165\" formatCode=\"dd/mm/yyyy hh:mm:ss\"/></numFmts>");
}

TEST_F(XlsxWriterTest, WritesNumbersOfEveryTypeAsNumbersUpToFifteenDigits) {
  Write({{L"A"}, {L"B"}, {L"C"}, {L"D"}},
        {{0.1F, Currency{125000}, Decimal{.low = 1250000000000000000, .scale = 17}, std::uint64_t{7}},
         {-0.5F, Currency{9223372036854775807}, Decimal{.low = 1234567890123456, .scale = 2},
          std::uint64_t{18446744073709551615U}}});
  EXPECT_EQ(Rows(),
            "<row r=\"2\">"
            "<c r=\"A2\"><v>0.1</v></c><c r=\"B2\"><v>12.5</v></c><c r=\"C2\"><v>12.5</v></c><c r=\"D2\"><v>7</v></c>"
            "</row>"
            "<row r=\"3\">"
            "<c r=\"A3\"><v>-0.5</v></c>"
            "<c r=\"B3\" t=\"inlineStr\"><is><t>922337203685477,5807</t></is></c>"
            "<c r=\"C3\" t=\"inlineStr\"><is><t>12345678901234,56</t></is></c>"
            "<c r=\"D3\" t=\"inlineStr\"><is><t>18446744073709551615</t></is></c>"
            "</row>");
}

TEST_F(XlsxWriterTest, WritesAsTextWhatItsNumbersCannotHold) {
  Write({{L"A", ColumnKind::kDay}, {L"B", ColumnKind::kNumber}, {L"C", ColumnKind::kNumber}},
        {{Date{60}, std::int64_t{1234567890123456}, std::int64_t{999999999999999}},
         {Date{61}, std::int64_t{-1234567890123456}, Null{}}});
  EXPECT_EQ(Rows(),
            "<row r=\"2\">"
            "<c r=\"A2\" t=\"inlineStr\"><is><t>28/02/1900</t></is></c>"
            "<c r=\"B2\" t=\"inlineStr\"><is><t>1234567890123456</t></is></c>"
            "<c r=\"C2\"><v>999999999999999</v></c>"
            "</row>"
            "<row r=\"3\">"
            "<c r=\"A3\" s=\"2\"><v>61</v></c>"
            "<c r=\"B3\" t=\"inlineStr\"><is><t>-1234567890123456</t></is></c>"
            "</row>");
}

TEST_F(XlsxWriterTest, WritesWholeNumbersOfMoreThanFifteenDigitsAsTexts) {
  constexpr std::int64_t kSmallest = std::numeric_limits<std::int64_t>::min();
  Write({{L"A"}, {L"B"}, {L"C"}, {L"D"}},
        {{kSmallest, static_cast<double>(kSmallest), 9007199254740992.0, std::int64_t{9007199254740993}},
         {1e30, -999999999999999.0, 1234567890123.75, 0.1}});
  EXPECT_EQ(Rows(),
            "<row r=\"2\">"
            "<c r=\"A2\" t=\"inlineStr\"><is><t>-9223372036854775808</t></is></c>"
            "<c r=\"B2\" t=\"inlineStr\"><is><t>-9223372036854775808</t></is></c>"
            "<c r=\"C2\" t=\"inlineStr\"><is><t>9007199254740992</t></is></c>"
            "<c r=\"D2\" t=\"inlineStr\"><is><t>9007199254740993</t></is></c>"
            "</row>"
            "<row r=\"3\">"
            "<c r=\"A3\"><v>1E+30</v></c><c r=\"B3\"><v>-999999999999999</v></c>"
            "<c r=\"C3\"><v>1234567890123.75</v></c><c r=\"D3\"><v>0.1</v></c>"
            "</row>");
}

TEST_F(XlsxWriterTest, WritesDatesOutsideTheCalendarInIsoForm) {
  Write({{L"A", ColumnKind::kDay}, {L"B", ColumnKind::kDay}, {L"C", ColumnKind::kDay}},
        {{Date{-657435}, Date{2958465}, Date{2958466}}});
  EXPECT_EQ(Rows(),
            "<row r=\"2\">"
            "<c r=\"A2\" t=\"inlineStr\"><is><t>0099-12-31</t></is></c>"
            "<c r=\"B2\" s=\"2\"><v>2958465</v></c>"
            "<c r=\"C2\" t=\"inlineStr\"><is><t>10000-01-01</t></is></c>"
            "</row>");
}

TEST_F(XlsxWriterTest, KeepsTheNamesVisibleWithAFilter) {
  Write({{L"DESCRIÇÃO"}, {L"N", ColumnKind::kNumber}}, {{L"Departamento de Finanças", 1}, {L"x", 22}});
  const std::string sheet = Part("xl/worksheets/sheet1.xml");
  EXPECT_EQ(Between(sheet, "<row r=\"1\"", "</row>"),
            "<row r=\"1\">"
            "<c r=\"A1\" s=\"1\" t=\"inlineStr\"><is><t>DESCRIÇÃO</t></is></c>"
            "<c r=\"B1\" s=\"1\" t=\"inlineStr\"><is><t>N</t></is></c>"
            "</row>");
  EXPECT_EQ(Between(sheet, "<pane", "/>"),
            "<pane ySplit=\"1\" topLeftCell=\"A2\" activePane=\"bottomLeft\" state=\"frozen\"/>");
  EXPECT_EQ(Between(sheet, "<autoFilter", "/>"), "<autoFilter ref=\"A1:B3\"/>");
  // Widths in characters, with the margins of a cell, as a spreadsheet stores them.
  EXPECT_EQ(Between(sheet, "<cols>", "</cols>"),
            "<cols><col min=\"1\" max=\"1\" width=\"25.7109375\" customWidth=\"1\"/>"
            "<col min=\"2\" max=\"2\" width=\"9.7109375\" customWidth=\"1\"/></cols>");
}

TEST_F(XlsxWriterTest, HasTheTitleAndParametersOfItsReport) {
  const auto writer = NewXlsxWriter(Path(), {});
  const std::vector<Column> columns = {{L"A"}};
  writer->Begin(
      {L"CDocumentoRpt", L"RelatorioSintetico", L"Documentos & mídias", {{L"CodDepto", L"07"}, {L"Owner", L"Ana"}}},
      columns);
  writer->End();
  const std::string properties = Part("docProps/core.xml");
  EXPECT_EQ(Between(properties, "<dc:title>", "</dc:title>"), "<dc:title>Documentos &amp; mídias</dc:title>");
  EXPECT_EQ(Between(properties, "<dc:description>", "</dc:description>"),
            "<dc:description>CodDepto: 07; Owner: Ana</dc:description>");
}

TEST_F(XlsxWriterTest, IsPrintedOnA4WithItsTitleNamesAndPageNumbers) {
  Write({{L"DESCR_DEPTO"}, {L"CIDADE"}}, {{L"Finanças", L"Rio"}});
  const std::string sheet = Part("xl/worksheets/sheet1.xml");
  EXPECT_EQ(Between(sheet, "<sheetPr", "</sheetPr>"), "<sheetPr><pageSetUpPr fitToPage=\"1\"/></sheetPr>");
  EXPECT_EQ(Between(sheet, "<pageSetup", "/>"),
            "<pageSetup paperSize=\"9\" fitToHeight=\"0\" orientation=\"portrait\"/>");
  EXPECT_EQ(Between(sheet, "<headerFooter>", "</headerFooter>"),
            "<headerFooter><oddHeader>&amp;L&amp;BDepartamentos</oddHeader>"
            "<oddFooter>&amp;RPágina &amp;P de &amp;N</oddFooter></headerFooter>");
  EXPECT_EQ(Between(Part("xl/workbook.xml"), "<definedName name=\"_xlnm.Print_Titles\"", "</definedName>"),
            "<definedName name=\"_xlnm.Print_Titles\" localSheetId=\"0\">'Relatório'!$1:$1</definedName>");
}

TEST_F(XlsxWriterTest, IsPrintedInLandscapeIfItIsWide) {
  Write({{L"A"}, {L"B"}}, {{std::wstring(60, L'x'), std::wstring(33, L'x')}});
  EXPECT_EQ(Between(Part("xl/worksheets/sheet1.xml"), "<pageSetup", "/>"),
            "<pageSetup paperSize=\"9\" fitToHeight=\"0\" orientation=\"portrait\"/>");
  Write({{L"A"}, {L"B"}}, {{std::wstring(60, L'x'), std::wstring(35, L'x')}});
  EXPECT_EQ(Between(Part("xl/worksheets/sheet1.xml"), "<pageSetup", "/>"),
            "<pageSetup paperSize=\"9\" fitToHeight=\"0\" orientation=\"landscape\"/>");
}

TEST_F(XlsxWriterTest, PrintsAnAmpersandOfItsTitle) {
  const auto writer = NewXlsxWriter(Path(), {});
  writer->Begin({L"", L"", L"Mapas & plantas", {}}, {});
  writer->End();
  EXPECT_EQ(Between(Part("xl/worksheets/sheet1.xml"), "<oddHeader>", "</oddHeader>"),
            "<oddHeader>&amp;L&amp;BMapas &amp;&amp; plantas</oddHeader>");
}

TEST_F(XlsxWriterTest, ContinuesALongTextOnTheNextLineOfItsCell) {
  Write({{L"A"}, {L"B"}}, {{std::wstring(60, L'x'), std::wstring(61, L'x')}});
  EXPECT_EQ(Rows(), "<row r=\"2\"><c r=\"A2\" t=\"inlineStr\"><is><t>" + std::string(60, 'x') +
                        "</t></is></c><c r=\"B2\" s=\"2\" t=\"inlineStr\"><is><t>" + std::string(61, 'x') +
                        "</t></is></c></row>");
  EXPECT_EQ(Between(Part("xl/styles.xml"), "applyAlignment", "</xf>"),
            "applyAlignment=\"1\"><alignment wrapText=\"1\"/></xf>");
}

TEST_F(XlsxWriterTest, HasTheCaptionsOfTheGuideIfThatIsAskedFor) {
  const std::vector<Column> columns = {{L"DESCR_CHAVE1"}, {L"OBRIGATORIA1"}, {L"OBRIGATORIA2"}, {L"DONO"}, {L"NOVA"}};
  for (const bool captions : {false, true}) {
    const auto writer = NewXlsxWriter(Path(), {.captions = captions});
    writer->Begin({L"CSerieRpt", L"RelatorioSeries", L"Séries", {}}, columns);
    writer->End();
    const std::string first = captions ? "Chave 1" : "DESCR_CHAVE1";
    EXPECT_EQ(Between(Part("xl/worksheets/sheet1.xml"), "<row", "</row>"),
              "<row r=\"1\"><c r=\"A1\" s=\"1\" t=\"inlineStr\"><is><t>" + first +
                  "</t></is></c>"
                  "<c r=\"B1\" s=\"1\" t=\"inlineStr\"><is><t>OBRIGATORIA1</t></is></c>"
                  "<c r=\"C1\" s=\"1\" t=\"inlineStr\"><is><t>OBRIGATORIA2</t></is></c>"
                  "<c r=\"D1\" s=\"1\" t=\"inlineStr\"><is><t>DONO</t></is></c>"
                  "<c r=\"E1\" s=\"1\" t=\"inlineStr\"><is><t>NOVA</t></is></c></row>");
  }
}

TEST_F(XlsxWriterTest, HidesContinuationsAtTheEndThatAreEmptyInAllRows) {
  const std::vector<Column> columns = {{L"HORA"}, {L"ACAO1"}, {L"ACAO2"}, {L"ACAO3"}, {L"ACAO4"}, {L"ACAO5"}};
  const auto writer = NewXlsxWriter(Path(), {});
  writer->Begin({L"CLogRpt", L"RelatorioLog", L"Eventos", {}}, columns);
  writer->Row(Cells{L"10:20:30", L"a", Null{}, L"c", L"", Null{}});
  writer->Row(Cells{L"10:20:31", L"a", Null{}, Null{}, Null{}, Null{}});
  writer->End();
  const std::string sheet = Part("xl/worksheets/sheet1.xml");
  EXPECT_EQ(Between(sheet, "<cols>", "</cols>"),
            "<cols><col min=\"1\" max=\"1\" width=\"9.7109375\" customWidth=\"1\"/>"
            "<col min=\"2\" max=\"2\" width=\"9.7109375\" customWidth=\"1\"/>"
            "<col min=\"3\" max=\"3\" width=\"9.7109375\" customWidth=\"1\"/>"
            "<col min=\"4\" max=\"4\" width=\"9.7109375\" customWidth=\"1\"/>"
            "<col min=\"5\" max=\"5\" width=\"9.7109375\" hidden=\"1\" customWidth=\"1\"/>"
            "<col min=\"6\" max=\"6\" width=\"9.7109375\" hidden=\"1\" customWidth=\"1\"/></cols>");
  EXPECT_EQ(Between(sheet, "<autoFilter", "/>"), "<autoFilter ref=\"A1:D3\"/>");
}

TEST_F(XlsxWriterTest, HidesNoOtherColumnThatIsEmpty) {
  const std::vector<Column> columns = {{L"HORA"}, {L"ACAO1"}};
  const auto writer = NewXlsxWriter(Path(), {});
  writer->Begin({L"CLogRpt", L"RelatorioLog", L"Eventos", {}}, columns);
  writer->Row(Cells{L"10:20:30", Null{}});
  writer->End();
  const std::string sheet = Part("xl/worksheets/sheet1.xml");
  EXPECT_EQ(sheet.find("hidden"), std::string::npos) << sheet;
  EXPECT_EQ(Between(sheet, "<autoFilter", "/>"), "<autoFilter ref=\"A1:B2\"/>");
}

TEST_F(XlsxWriterTest, HasItsNamesWithoutRows) {
  Write({{L"DESCR_DEPTO"}}, {});
  EXPECT_EQ(Between(Part("xl/worksheets/sheet1.xml"), "<sheetData>", "</sheetData>"),
            "<sheetData><row r=\"1\"><c r=\"A1\" s=\"1\" t=\"inlineStr\"><is><t>DESCR_DEPTO</t></is></c></row>"
            "</sheetData>");
}

TEST_F(XlsxWriterTest, RefusesATextLongerThanACellHolds) {
  Write({{L"A"}}, {{std::wstring(32767, L'ã')}});
  const auto write = [&] { Write({{L"A"}, {L"OBS"}}, {{L"x", L"y"}, {L"x", std::wstring(32768, L'ã')}}); };
  EXPECT_EQ(FailureOf(write),
            "um texto é mais longo do que cabe em uma célula de planilha (linha 2, coluna OBS): "
            "use --formato csv.");
}

TEST_F(XlsxWriterTest, RefusesMoreRowsThanASheetHas) {
  const auto writer = NewXlsxWriter(Path(), {});
  const std::vector<Column> columns = {{L"A"}};
  writer->Begin(ReportOfDepartments(), columns);
  const Cells nothing = {Null{}};
  for (int row = 0; row < 1048575; ++row) writer->Row(nothing);
  EXPECT_EQ(FailureOf([&] { writer->Row(nothing); }),
            "o relatório tem mais linhas do que cabem em uma planilha (1.048.575): use --formato csv.");
  EXPECT_FALSE(fs::exists(folder_ / "planilha.xlsx"));
}

TEST_F(XlsxWriterTest, CountsACharacterBeyondSixteenBitsTwice) {
  Write({{L"A"}}, {{std::wstring(16383, L'\U0001F4E6')}});
  EXPECT_EQ(FailureOf([&] { Write({{L"A"}}, {{std::wstring(16384, L'\U0001F4E6')}}); }),
            "um texto é mais longo do que cabe em uma célula de planilha (linha 1, coluna A): use --formato csv.");
}

// The message of the error with which writing a spreadsheet at the path fails; nothing may be printed.
std::string FailureAt(const std::wstring& path) {
  testing::internal::CaptureStderr();
  const std::string failure = FailureOf([&] { WriteTo(*NewXlsxWriter(path, {}), {{L"A"}}, {{L"x"}}); });
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  return failure;
}

TEST_F(XlsxWriterTest, SaysOnlyInPortugueseWhyTheFileCannotBeWritten) {
  EXPECT_EQ(FailureAt(L"/não/existe/planilha.xlsx"),
            "não foi possível gravar a planilha: a pasta não existe; crie-a, ou confira o caminho.");
  EXPECT_EQ(FailureAt(values::FromUtf8(folder_.Path().string())),
            "não foi possível gravar a planilha: é uma pasta; informe um arquivo.");
  EXPECT_EQ(FailureAt(L"/dev/full"),
            "não foi possível gravar a planilha: o disco está cheio; libere espaço ou use outro.");
}

}  // namespace
}  // namespace kodra::console
