// kodrarpt etiquetas: which labels it prints, in which order, and what it says about those that it does not print.
#include <gtest/gtest.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <regex>
#include <sstream>

#include "tests/console/run.h"
#include "tests/db/sample.h"
#include "tests/db/sqlite_file.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using tests::Engine;
using values::FromUtf8;
using values::ToUtf8;
using Texts = std::vector<std::string>;

// Two hundred modules, AA001 to AA200, in two departments; some have subordinates, documents and a place.
std::string Archive() {
  return ToUtf8(tests::DatabaseOf(
      Engine::kSqlite, L"etiquetas",
      {
          L"CREATE TABLE PARAMETRO (CODIGO VARCHAR(10), EMPRESA VARCHAR(64))",
          L"INSERT INTO PARAMETRO VALUES ('1', 'Acervo & Cia')",
          L"CREATE TABLE CAIXA (NUM_CAIXA VARCHAR(5), DESC_CAIXA VARCHAR(100), OBS_CAIXA VARCHAR(100), DOC_INICIAL "
          L"VARCHAR(10), DOC_FINAL VARCHAR(10), DATA_VENCIMENTO DATE, DATA_FECHAMENTO DATE, COORD_X VARCHAR(10), "
          L"COORD_Y VARCHAR(10), COORD_Z VARCHAR(10), CONTAINER VARCHAR(10), COD_DEPOSITO VARCHAR(10), COD_DEPTO "
          L"VARCHAR(10), TIPO_GUARDA VARCHAR(1), ANOS_VENCIMENTO INTEGER, DOCS_PREGRESSOS INTEGER)",
          L"INSERT INTO CAIXA WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 200) SELECT "
          L"printf('AA%03d', i), 'Módulo ' || i, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, "
          L"CASE WHEN i <= 3 THEN '7' ELSE '8' END, 'D', NULL, 0 FROM n",
          L"UPDATE CAIXA SET COORD_X = 'D', COORD_Y = '01', COORD_Z = '4', COD_DEPOSITO = '1', CONTAINER = 'CT1' "
          L"WHERE NUM_CAIXA <= 'AA002'",
          L"CREATE TABLE CAIXA_SUBORDINADA (NUM_CAIXA VARCHAR(5), NUM_SEQ INTEGER, DOC_INICIAL VARCHAR(10), "
          L"DOC_FINAL "
          L"VARCHAR(10), DATA_VENCIMENTO DATE, DATA_FECHAMENTO DATE, TIPO_GUARDA VARCHAR(1), ANOS_VENCIMENTO "
          L"INTEGER)",
          L"INSERT INTO CAIXA_SUBORDINADA VALUES ('AA001', 1, '1', '5', NULL, '2024-01-31', 'D', NULL)",
          L"INSERT INTO CAIXA_SUBORDINADA VALUES ('AA001', 2, '6', NULL, NULL, NULL, 'D', NULL)",
          L"INSERT INTO CAIXA_SUBORDINADA VALUES ('AA002', 1, '7', NULL, NULL, NULL, 'D', NULL)",
          L"CREATE TABLE CONTAINER (NUM_CONTAINER VARCHAR(10), DESC_CONTAINER VARCHAR(100))",
          L"INSERT INTO CONTAINER VALUES ('CT1', 'Um')",
          L"INSERT INTO CONTAINER VALUES ('CT2', 'Dois')",
          L"CREATE TABLE DEPOSITO (COD_DEPOSITO VARCHAR(10), NOME VARCHAR(100), ENDERECO VARCHAR(100), CIDADE "
          L"VARCHAR(100), ESTADO VARCHAR(2), TELEFONE VARCHAR(20), CONTATO VARCHAR(100))",
          L"INSERT INTO DEPOSITO VALUES ('1', 'Galpão', NULL, NULL, NULL, NULL, NULL)",
          L"CREATE TABLE DOCUMENTO (COD_DOCTO VARCHAR(10), NUM_CAIXA VARCHAR(5))",
          L"INSERT INTO DOCUMENTO VALUES ('0000000001', 'AA001')",
          L"INSERT INTO DOCUMENTO VALUES ('0000000002', 'AA001')",
      }));
}

RunResult RunLabels(const std::string& connection, const std::vector<std::string>& arguments) {
  std::vector<std::string> all = {"etiquetas"};
  all.insert(all.end(), arguments.begin(), arguments.end());
  all.insert(all.end(), {"--conexao", connection});
  return RunProgram(all);
}

// On a roll, for which there is no warning.
RunResult RunOnRoll(std::vector<std::string> arguments) {
  arguments.insert(arguments.end(), {"--formato", "html", "--folha", "100x50mm"});
  return RunLabels(Archive(), arguments);
}

// The texts on each page.
std::vector<Texts> PagesOf(const std::string& html) {
  std::vector<Texts> pages;
  const std::regex piece("<svg |>([^<>]+)</text>");
  for (std::sregex_iterator at(html.begin(), html.end(), piece), end; at != end; ++at) {
    if ((*at)[0] == "<svg ")
      pages.emplace_back();
    else
      pages.back().push_back((*at)[1]);
  }
  return pages;
}

// The number of each label, in their order: on a roll of this size, the text after the organisation and the kind.
Texts NumbersOf(const RunResult& result) {
  Texts numbers;
  for (const Texts& page : PagesOf(result.out)) numbers.push_back(page.at(1));
  return numbers;
}

TEST(Etiquetas, PrintsOneOpeningLabelPerModuleInTheOrderOfTheCodes) {
  const RunResult result = RunOnRoll({"abertura", "AA003", "AA00102", "AA001", "AA150", "AA003"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(
      PagesOf(result.out),
      (std::vector<Texts>{
          {"Acervo &amp; Cia", "AA003", "ABERTURA DE MÓDULO", "Módulo 3", "descarte após o fechamento", "AA003"},
          {"Acervo &amp; Cia", "AA00102", "ABERTURA DE MÓDULO", "Módulo 1", "descarte após o fechamento", "AA00102"},
          {"Acervo &amp; Cia", "AA001", "ABERTURA DE MÓDULO", "Módulo 1", "descarte após o fechamento", "AA001"},
          {"Acervo &amp; Cia", "AA150", "ABERTURA DE MÓDULO", "Módulo 150", "descarte após o fechamento", "AA150"},
          {"Acervo &amp; Cia", "AA003", "ABERTURA DE MÓDULO", "Módulo 3", "descarte após o fechamento", "AA003"},
      }));
}

TEST(Etiquetas, PrintsTwoHundredModulesInOneRun) {
  const RunResult result = RunOnRoll({"fechamento", "--de", "AA001", "--ate", "AA200"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.err, "");
  const Texts numbers = NumbersOf(result);
  ASSERT_EQ(numbers.size(), 200U);
  for (int i = 0; i < 200; ++i)
    EXPECT_EQ(numbers[static_cast<std::size_t>(i)], "AA" + std::to_string(1001 + i).substr(1));
}

TEST(Etiquetas, FindsTheModulesOfARangeThatExist) {
  EXPECT_EQ(NumbersOf(RunOnRoll({"abertura", "--de", "AA199", "--ate", "BB000"})), (Texts{"AA199", "AA200"}));
  EXPECT_EQ(NumbersOf(RunOnRoll({"abertura", "--ate", "aa002"})), (Texts{"AA001", "AA002"}));
  EXPECT_EQ(NumbersOf(RunOnRoll({"abertura", "--de", "AA00102", "--ate", "AA99999"})), (Texts{"AA00102", "AA00201"}));
  EXPECT_EQ(NumbersOf(RunOnRoll({"abertura", "--CodDepto", "7"})), (Texts{"AA001", "AA002", "AA003"}));
  EXPECT_EQ(NumbersOf(RunOnRoll({"abertura", "--coddepto", "7", "--de", "AA003"})), Texts{"AA003"});
}

TEST(Etiquetas, ReadsCodesFromAList) {
  const tests::TemporaryFolder folder;
  const std::string list = (folder.Path() / "códigos.txt").string();
  std::ofstream(list, std::ios::binary) << "\xEF\xBB\xBF"
                                           "AA002\r\n\n  AA001  \nAA009";
  EXPECT_EQ(NumbersOf(RunOnRoll({"abertura", "AA005", "--lista", list, "--de", "AA200"})),
            (Texts{"AA005", "AA002", "AA001", "AA009", "AA200"}));
  std::istringstream input("AA007\nAA006\n");
  std::streambuf* const former = std::cin.rdbuf(input.rdbuf());
  const RunResult result = RunOnRoll({"abertura", "--lista", "-"});
  std::cin.rdbuf(former);
  EXPECT_EQ(NumbersOf(result), (Texts{"AA007", "AA006"}));
}

TEST(Etiquetas, PrintsADividerWithTheNumberOfEachDocument) {
  const RunResult result = RunOnRoll({"divisória", "AA00102", "--orgao", "Câmara"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(PagesOf(result.out),
            (std::vector<Texts>{{"Câmara", "0000000001", "DIVISÓRIA", "módulo AA001", "0000000001"},
                                {"Câmara", "0000000002", "DIVISÓRIA", "módulo AA001", "0000000002"}}));
}

TEST(Etiquetas, PrintsAContainerWithItsModules) {
  const RunResult result = RunOnRoll({"contêiner", "CT1"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(PagesOf(result.out), (std::vector<Texts>{{"Acervo &amp; Cia", "CT1", "ABERTURA DE CONTÊINER",
                                                      "Módulos: AA001, AA002", "descarte após o fechamento", "CT1"}}));
}

TEST(Etiquetas, AddsThePlaceOfAModuleAlsoToItsSubordinates) {
  const RunResult result = RunOnRoll({"subordinadas", "AA001", "--com-lugar"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(PagesOf(result.out),
            (std::vector<Texts>{{"Acervo &amp; Cia", "AA00101", "FECHAMENTO DE MÓDULO", "Módulo 1",
                                 "documentos 1 a 5 · descarte após o fechamento · fileira D, estante 01,",
                                 "prateleira 4, depósito Galpão", "AA00101"},
                                {"Acervo &amp; Cia", "AA00102", "FECHAMENTO DE MÓDULO", "Módulo 1",
                                 "documentos desde 6 · descarte após o fechamento · fileira D, estante",
                                 "01, prateleira 4, depósito Galpão", "AA00102"}}));
}

// AA002 has a subordinate, which is not closed.
TEST(Etiquetas, NamesTheCodesWithoutALabelAfterThePrintedOnes) {
  const RunResult result = RunOnRoll({"subordinadas", "AA002", "AA001", "XX999"});
  EXPECT_EQ(result.code, ExitCode::kReportError);
  EXPECT_EQ(result.err, "kodrarpt: sem etiqueta: AA002, XX999; confira os códigos\n");
  EXPECT_EQ(NumbersOf(result), (Texts{"AA00101", "AA00102"}));
  EXPECT_EQ(RunOnRoll({"fechamento", "AA00101", "AA001"}).err, "kodrarpt: sem etiqueta: AA00101; confira os códigos\n");
}

TEST(Etiquetas, ShowsNoControlCharactersOfACode) {
  EXPECT_EQ(RunOnRoll({"abertura", "AA001", "XX\x1b[2J"}).err,
            "kodrarpt: sem etiqueta: XX\uFFFD[2J; confira os códigos\n");
}

TEST(Etiquetas, WarnsOfModulesInARangeThatHaveNoLabel) {
  const RunResult result = RunOnRoll({"divisoria", "--de", "AA001", "--ate", "AA003"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.err, "kodrarpt: aviso: no intervalo, sem etiqueta: AA002, AA003\n");
  EXPECT_EQ(NumbersOf(result), (Texts{"0000000001", "0000000002"}));
}

TEST(Etiquetas, WritesNoFileWithoutALabel) {
  const tests::TemporaryFolder folder;
  const std::string file = (folder.Path() / "e.pdf").string();
  EXPECT_EQ(RunLabels(Archive(), {"conteiner", "CT2", "--saida", file}),
            (RunResult{ExitCode::kReportError, "",
                       "kodrarpt: sem etiqueta: CT2; confira os códigos\nkodrarpt: nenhuma etiqueta para imprimir\n"}));
  EXPECT_EQ(RunLabels(Archive(), {"abertura", "--de", "ZZ001", "--saida", file}),
            (RunResult{ExitCode::kReportError, "", "kodrarpt: nenhuma etiqueta para imprimir: confira o intervalo\n"}));
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(Etiquetas, WritesAPdfFileUnlessToldOtherwise) {
  const tests::TemporaryFolder folder;
  const std::string file = (folder.Path() / "etiquetas.pdf").string();
  EXPECT_EQ(RunLabels(Archive(), {"abertura", "AA001", "--folha", "a4-1x2", "--saida", file}), Success(""));
  std::ifstream written(file, std::ios::binary);
  const std::string pdf(std::istreambuf_iterator<char>(written), {});
  EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
  EXPECT_EQ(RunLabels(Archive(), {"abertura", "AA001", "--folha", "a4-1x2"}), Success(pdf));
}

TEST(Etiquetas, SayNothingOfTheUsualStock) {
  for (const char* const sheet : {"a4-2x4", "a4-2x7", "pimaco-6180", "pimaco-a4262", "pimaco-a4364"})
    EXPECT_EQ(RunLabels(Archive(), {"abertura", "AA001", "--formato", "html", "--folha", sheet}).err, "") << sheet;
}

TEST(Etiquetas, WarnsOfStockNearTheEdgeAndOfTextsThatAreCut) {
  const RunResult result = RunLabels(
      Archive(), {"abertura", "AA001", "--formato", "html", "--folha", "a4-3x8", "--orgao", std::string(200, 'W')});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.err,
            "kodrarpt: aviso: na folha a4-3x8, as etiquetas ficam a 0 mm da borda do papel, e muitas impressoras "
            "não imprimem a menos de 4,2 mm; confira com um teste\n"
            "kodrarpt: aviso: na etiqueta AA001, não cabe por inteiro: o órgão\n");
}

TEST(Etiquetas, TakesStockFromAFileAndFromItsMeasures) {
  const tests::TemporaryFolder folder;
  const std::string file = (folder.Path() / "folhas.ini").string();
  std::ofstream(file) << "caixas = pagina=210x297 etiqueta=190x130 linhas=2 margem=10x18\n";
  for (const std::vector<std::string>& stock : std::vector<std::vector<std::string>>{
           {"--folha", "Caixas", "--folhas-de", file},
           {"--folha-propria", "pagina=210x297 etiqueta=190x130 linhas=2 margem=10x18"}}) {
    std::vector<std::string> arguments = {"abertura", "AA001", "AA002", "AA003", "--formato", "html"};
    arguments.insert(arguments.end(), stock.begin(), stock.end());
    const RunResult result = RunLabels(Archive(), arguments);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(PagesOf(result.out).size(), 2U);
    EXPECT_NE(result.out.find("@page{size:210.000mm 297.000mm;margin:0}"), std::string::npos);
  }
}

// A margin of 2 mm, then the descent of the highest letters; moved by half a millimetre and back by one.
TEST(Etiquetas, MovesEverythingByTheAdjustment) {
  const auto firstText = [](const std::vector<std::string>& more) {
    std::vector<std::string> arguments = {"abertura", "AA001", "--codigo", "nenhum"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const std::string out = RunOnRoll(arguments).out;
    std::smatch match;
    std::regex_search(out, match, std::regex("<text x=\"([0-9.]+)\" y=\"([0-9.]+)\""));
    return std::pair(std::stod(match[1]), std::stod(match[2]));
  };
  const auto [x, y] = firstText({});
  EXPECT_DOUBLE_EQ(x, 2);
  for (const char* const shift : {"0.5,-1", "0,5;-1"}) {
    const auto [movedX, movedY] = firstText({"--ajuste", shift});
    EXPECT_NEAR(movedX, x + 0.5, 1e-9);
    EXPECT_NEAR(movedY, y - 1, 1e-9);
  }
  EXPECT_NEAR(firstText({"--ajuste", "-1,2"}).first, x - 1, 1e-9);
}

TEST(Etiquetas, ListsTheStockThatHasAName) {
  const RunResult result = RunProgram({"etiquetas", "--folhas"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out,
            "a4-2x4: 2 x 4 etiquetas de 99,1 x 67,7 mm em página de 210 x 297 mm, margens de 4,65 x 13,1 mm, vãos de "
            "2,5 x 0 mm\n"
            "a4-2x7: 2 x 7 etiquetas de 99,1 x 38,1 mm em página de 210 x 297 mm, margens de 4,65 x 15,15 mm, vãos de "
            "2,5 x 0 mm\n"
            "a4-3x7: 3 x 7 etiquetas de 63,5 x 38,1 mm em página de 210 x 297 mm, margens de 7,25 x 15,15 mm, vãos de "
            "2,5 x 0 mm\n"
            "a4-3x8: 3 x 8 etiquetas de 70 x 37 mm em página de 210 x 297 mm, margens de 0 x 0,5 mm, vãos de 0 x 0 mm\n"
            "a4-1x2: 1 x 2 etiquetas de 199,6 x 143,5 mm em página de 210 x 297 mm, margens de 5,2 x 5 mm, vãos de 0 x "
            "0 mm\n"
            "carta-2x5: 2 x 5 etiquetas de 101,6 x 50,8 mm em página de 215,9 x 279,4 mm, margens de 3,95 x 12,7 mm, "
            "vãos de 4,8 x 0 mm\n"
            "carta-3x10: 3 x 10 etiquetas de 66,7 x 25,4 mm em página de 215,9 x 279,4 mm, margens de 4,8 x 12,7 mm, "
            "vãos de 3,1 x 0 mm\n"
            "pimaco-6180: 3 x 10 etiquetas de 66,7 x 25,4 mm em página de 215,9 x 279,4 mm, margens de 4,8 x 12,7 mm, "
            "vãos de 3,1 x 0 mm\n"
            "pimaco-a4262: 2 x 8 etiquetas de 99 x 33,9 mm em página de 210 x 297 mm, margens de 4,7 x 12,9 mm, vãos "
            "de 2,6 x 0 mm\n"
            "pimaco-a4355: 3 x 9 etiquetas de 63,5 x 31 mm em página de 210 x 297 mm, margens de 7,2 x 9 mm, vãos de "
            "2,55 x 0 mm\n"
            "pimaco-a4356: 3 x 11 etiquetas de 63,5 x 25,4 mm em página de 210 x 297 mm, margens de 7,2 x 8,8 mm, vãos "
            "de 2,55 x 0 mm\n"
            "pimaco-a4361: 3 x 6 etiquetas de 63,5 x 46,5 mm em página de 210 x 297 mm, margens de 7,2 x 9,1 mm, vãos "
            "de 2,55 x 0 mm\n"
            "pimaco-a4364: 3 x 4 etiquetas de 63,5 x 71,9 mm em página de 210 x 297 mm, margens de 7,2 x 4,7 mm, vãos "
            "de 2,55 x 0 mm\n");
}

TEST(Etiquetas, RefusesAWrongCommandLineAndLeavesNoFile) {
  struct Case {
    std::vector<std::string> arguments;
    std::string message;
  };
  const tests::TemporaryFolder folder;
  const std::string target = (folder.Path() / "e.pdf").string();
  const std::string empty = (folder.Path() / "vazia.txt").string();
  std::ofstream(empty) << "\n \n";
  for (const Case& wrong : std::vector<Case>{
           {{"abertra", "AA001"},
            "o tipo de etiqueta \"abertra\" não existe (quis dizer \"abertura\"?); escolha entre abertura, fechamento, "
            "subordinadas, divisoria, conteiner"},
           {{"abertura"}, "faltam os códigos: informe-os, ou um intervalo, ou um departamento"},
           {{"abertura", "AA001", "--formato", "docx"}, "o formato \"docx\" não existe; escolha entre pdf, html"},
           {{"abertura", "AA001", "--folha", "a5-2x4"},
            "a folha \"a5-2x4\" não existe (quis dizer \"a4-2x4\"?); escolha entre a4-2x4, a4-2x7, a4-3x7, a4-3x8, "
            "a4-1x2, carta-2x5, carta-3x10, pimaco-6180, pimaco-a4262, pimaco-a4355, pimaco-a4356, pimaco-a4361, "
            "pimaco-a4364"},
           {{"abertura", "AA001", "--folha", "100mm"},
            "a folha \"100mm\" não serve: \"100mm\" não é uma medida; o modelo é \"pagina=210x297 colunas=2 linhas=7 "
            "etiqueta=99,1x38,1 margem=4,65x15,15 vao=2,5x0\" ou \"100x50mm\""},
           {{"abertura", "AA001", "--folha-propria", "pagina=100x50 etiqueta=120x50"},
            "a folha \"própria\" não serve: a etiqueta de 120 x 50 mm é maior que a página de 100 x 50 mm"},
           {{"abertura", "AA001", "--folha-propria", "pagina=210x297 etiqueta=90x50 linhas=3 vao=0x-2"},
            "a folha \"própria\" não serve: com vãos de 0 x -2 mm, as etiquetas se sobrepõem"},
           {{"abertura", "AA001", "--folha-propria", "100x50mm", "--folha", "a4-2x7"},
            "--folha-propria já diz qual é a folha, e não pode ser usada com --folha"},
           {{"abertura", "AA001", "--folha-propria", "100x50mm", "--folhas-de", "folhas.ini"},
            "--folha-propria já diz qual é a folha, e não pode ser usada com --folhas-de"},
           {{"abertura", "AA001", "--folhas-de", "/não/há"}, "não foi possível ler \"/não/há\": o arquivo não existe"},
           {{"abertura", "AA001", "--folha", "20x20mm"},
            "uma etiqueta de 20 x 20 mm é pequena demais: precisa de ao menos 23 mm de largura"},
           {{"abertura", "AA001", "--ajuste", "1"},
            "o ajuste diz quantos milímetros vão para a direita e para baixo, como 1,-2 ou, com casas decimais, 0,5;1, "
            "e não pode ser \"1\""},
           {{"abertura", "AA001", "--ajuste", "0,21"}, "o ajuste vai até 20 mm em cada direção"},
           {{"abertura", "--lista", "/não/há"}, "não foi possível ler \"/não/há\": o arquivo não existe"},
           {{"abertura", "--lista", empty}, "a lista \"" + empty + "\" não tem nenhum código"},
           {{"abertura", "A'1"}, "o código \"A'1\" tem um apóstrofo, que os relatórios não aceitam: tire-o"},
           {{"abertura", "--de", "AA001", "--ate", "AA00102"},
            "o intervalo deve ir de um módulo principal a outro, ou de um subordinado a outro"},
           {{"abertura", "--CodDepto", "0"}, "o departamento deve ser um código maior que zero, e não pode ser \"0\""},
           {{"conteiner", "--CodDepto", "7"}, "o departamento não vale para contêineres"},
           {{"conteiner", "CT1", "--com-lugar"}, "o lugar não vale para contêineres"},
           {{"abertura", "AA001", "--logotipo", empty}, "a imagem \"" + empty + "\" não serve: não é um arquivo PNG"},
       }) {
    std::vector<std::string> arguments = wrong.arguments;
    arguments.insert(arguments.end(), {"--saida", target});
    EXPECT_EQ(RunLabels(Archive(), arguments), UsageFailure(wrong.message));
    EXPECT_FALSE(std::filesystem::exists(target));
  }
}

TEST(Etiquetas, RefusesACodeThatHasNoBarcodeAndLeavesNoFile) {
  tests::SqliteFile file;
  file.Run(L"CREATE TABLE PARAMETRO (CODIGO VARCHAR(10), EMPRESA VARCHAR(64))");
  file.Run(
      L"CREATE TABLE CAIXA (NUM_CAIXA VARCHAR(5), DESC_CAIXA VARCHAR(100), TIPO_GUARDA VARCHAR(1), ANOS_VENCIMENTO "
      L"INTEGER, DOC_INICIAL VARCHAR(10), DOC_FINAL VARCHAR(10), DATA_VENCIMENTO DATE)");
  file.Run(L"INSERT INTO CAIXA (NUM_CAIXA) VALUES ('ÁB001')");
  const std::string connection = ToUtf8(file.ConnectionString());
  const tests::TemporaryFolder folder;
  const std::string target = (folder.Path() / "e.pdf").string();
  EXPECT_EQ(RunLabels(connection, {"abertura", "ÁB001", "--folha", "100x50mm", "--saida", target}),
            UsageFailure("um código de barras Code 128 não comporta \"ÁB001\": são de 1 a 48 letras sem acento, "
                         "algarismos e sinais; escolha o código qr, ou nenhum"));
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
  for (const char* const code : {"qr", "nenhum"})
    EXPECT_EQ(RunLabels(connection, {"abertura", "ÁB001", "--folha", "100x50mm", "--codigo", code, "--saida", target}),
              Success(""));
}

TEST(Etiquetas, SaysThatTheDatabaseCannotBeReached) {
  EXPECT_EQ(RunLabels("Driver={SQLite3};Database=/não/há/acervo.db", {"abertura", "AA001", "--formato", "html"}).code,
            ExitCode::kConnection);
}

class EtiquetasOnBothDatabases : public testing::TestWithParam<Engine> {};

INSTANTIATE_TEST_SUITE_P(, EtiquetasOnBothDatabases, testing::Values(Engine::kSqlite, Engine::kMariaDb),
                         tests::EngineName);

TEST_P(EtiquetasOnBothDatabases, PrintsEachKindOfLabel) {
  const std::string organisation = "Memória &amp; Arquivo – Guarda de Documentos Ltda.";
  const auto pages = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--formato", "html", "--folha", "100x70mm"});
    return PagesOf(RunLabels(ToUtf8(tests::SampleOn(GetParam())), arguments).out);
  };
  EXPECT_EQ(pages({"abertura", "AA001"}),
            (std::vector<Texts>{{organisation, "ABERTURA DE MÓDULO", "AA001", "Arquivo Central – módulo 1",
                                 "guarda por prazo, 75 anos", "AA001"}}));
  EXPECT_EQ(pages({"fechamento", "AA002"}),
            (std::vector<Texts>{{organisation, "FECHAMENTO DE MÓDULO", "AA002", "Assessoria Jurídica – módulo 2",
                                 "documentos 0000000021 a 0000000040 · descarte após o", "fechamento", "AA002"}}));
  EXPECT_EQ(pages({"subordinadas", "AA001"}).at(0).at(2), "AA00101");
  EXPECT_EQ(pages({"divisoria", "AA001"}).at(1),
            (Texts{organisation, "DIVISÓRIA", "0000000002", "módulo AA001", "0000000002"}));
  EXPECT_EQ(pages({"conteiner", "CT0005"}).at(0).at(2), "CT0005");
}

}  // namespace
}  // namespace kodra::console
