// kodrarpt etiquetas: the sheets and rolls that it prints on, and the command lines that it refuses.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>

#include "tests/console/label_run.h"
#include "tests/db/sqlite_file.h"
#include "tests/db/temporary_folder.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

TEST(EtiquetasSheets, WritesAPdfFileUnlessToldOtherwise) {
  const tests::TemporaryFolder folder;
  const std::string file = (folder.Path() / "etiquetas.pdf").string();
  EXPECT_EQ(RunLabels(LabelArchive(), {"abertura", "AA001", "--folha", "a4-1x2", "--saida", file}), Success(""));
  std::ifstream written(file, std::ios::binary);
  const std::string pdf(std::istreambuf_iterator<char>(written), {});
  EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
  EXPECT_EQ(RunLabels(LabelArchive(), {"abertura", "AA001", "--folha", "a4-1x2"}), Success(pdf));
}

TEST(EtiquetasSheets, SaysNothingOfTheUsualStock) {
  for (const char* const sheet : {"a4-2x4", "a4-2x7", "pimaco-6180", "pimaco-a4262", "pimaco-a4364"})
    EXPECT_EQ(RunLabels(LabelArchive(), {"abertura", "AA001", "--formato", "html", "--folha", sheet}).err, "") << sheet;
}

TEST(EtiquetasSheets, WarnsOfStockNearTheEdgeAndOfTextsThatAreCut) {
  const RunResult result = RunLabels(LabelArchive(), {"abertura", "AA001", "--formato", "html", "--folha", "a4-3x8",
                                                      "--orgao", std::string(200, 'W')});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.err,
            "kodrarpt: aviso: na folha a4-3x8, as etiquetas ficam a 0 mm da borda do papel, e muitas impressoras "
            "não imprimem a menos de 4,2 mm; confira com um teste\n"
            "kodrarpt: aviso: na etiqueta AA001, não cabe por inteiro: o órgão\n");
}

TEST(EtiquetasSheets, TakesStockFromAFileAndFromItsMeasures) {
  const tests::TemporaryFolder folder;
  const std::string file = (folder.Path() / "folhas.ini").string();
  std::ofstream(file) << "caixas = pagina=210x297 etiqueta=190x130 linhas=2 margem=10x18\n";
  for (const std::vector<std::string>& stock : std::vector<std::vector<std::string>>{
           {"--folha", "Caixas", "--folhas-de", file},
           {"--folha-propria", "pagina=210x297 etiqueta=190x130 linhas=2 margem=10x18"}}) {
    std::vector<std::string> arguments = {"abertura", "AA001", "AA002", "AA003", "--formato", "html"};
    arguments.insert(arguments.end(), stock.begin(), stock.end());
    const RunResult result = RunLabels(LabelArchive(), arguments);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(PagesOf(result.out).size(), 2U);
    EXPECT_NE(result.out.find("@page{size:210.000mm 297.000mm;margin:0}"), std::string::npos);
  }
}

// A margin of 2 mm, then the descent of the highest letters; moved by half a millimetre and back by one.
TEST(EtiquetasSheets, MovesEverythingByTheAdjustment) {
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

TEST(EtiquetasSheets, ListsTheStockThatHasAName) {
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

TEST(EtiquetasSheets, RefusesAWrongCommandLineAndLeavesNoFile) {
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
           {{"abertura", "AA001", "--folha", "20x20mm"},
            "uma etiqueta de 20 x 20 mm é pequena demais: precisa de ao menos 23 mm de largura"},
           {{"abertura", "AA001", "--ajuste", "1"},
            "o ajuste diz quantos milímetros vão para a direita e para baixo, como 1,-2 ou, com casas decimais, 0,5;1, "
            "e não pode ser \"1\""},
           {{"abertura", "AA001", "--ajuste", "0,21"}, "o ajuste vai até 20 mm em cada direção"},
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
    EXPECT_EQ(RunLabels(LabelArchive(), arguments), UsageFailure(wrong.message));
    EXPECT_FALSE(std::filesystem::exists(target));
  }
}

TEST(EtiquetasSheets, NamesAFileThatItCannotReadAndLeavesNoFile) {
  const tests::TemporaryFolder folder;
  const std::string target = (folder.Path() / "e.pdf").string();
  for (const char* const option : {"--lista", "--folhas-de", "--logotipo"}) {
    EXPECT_EQ(RunLabels(LabelArchive(), {"abertura", "AA001", option, "/não/há", "--saida", target}),
              FileFailure("não foi possível ler \"/não/há\": o arquivo não existe"))
        << option;
    EXPECT_FALSE(std::filesystem::exists(target));
  }
}

TEST(EtiquetasSheets, RefusesACodeThatHasNoBarcodeAndLeavesNoFile) {
  tests::SqliteFile file;
  file.Run(L"CREATE TABLE PARAMETRO (CODIGO VARCHAR(10), EMPRESA VARCHAR(64))");
  file.Run(
      L"CREATE TABLE CAIXA (NUM_CAIXA VARCHAR(5), DESC_CAIXA VARCHAR(100), TIPO_GUARDA VARCHAR(1), ANOS_VENCIMENTO "
      L"INTEGER, DOC_INICIAL VARCHAR(10), DOC_FINAL VARCHAR(10), DATA_VENCIMENTO DATE)");
  file.Run(L"INSERT INTO CAIXA (NUM_CAIXA) VALUES ('ÁB001')");
  const std::string connection = values::ToUtf8(file.ConnectionString());
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

}  // namespace
}  // namespace kodra::console
