// kodrarpt rotina: whole routines on the sample archive.
#include <gtest/gtest.h>

#include <map>
#include <regex>

#include "tests/console/run.h"
#include "tests/console/user_settings.h"
#include "tests/db/sample.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

namespace fs = std::filesystem;
using tests::Engine;
using values::ToUtf8;

std::string Sqlite() { return ToUtf8(tests::SampleOn(Engine::kSqlite)); }

constexpr const char* kFiveReports =
    "[rotina]\n"
    "perfil = acervo\n"
    "pasta = saidas\n"
    "[departamentos]\n"
    "relatorio = CDeptoRpt\n"
    "arquivo = deptos.csv\n"
    "excel = sim\n"
    "[suportes]\n"
    "relatorio = CSuporteRpt\n"
    "arquivo = suportes.json\n"
    "[documentos]\n"
    "relatorio = CDocumentoRpt.RelatorioSintetico\n"
    "arquivo = {saida}.csv\n"
    "limite = 10\n"
    "[módulos]\n"
    "relatorio = RelatoriosModulos\n"
    "arquivo = modulos/{relatorio}.txt\n"
    "[séries]\n"
    "relatorio = CSerieRpt\n"
    "arquivo = series.csv\n"
    "formato = csv\n";

class RotinaTest : public testing::Test {
 protected:
  RotinaTest() { EXPECT_EQ(RunProgram({"perfil", "novo", "acervo", "--conexao", Sqlite()}).code, ExitCode::kOk); }

  std::string File() const { return (folder_ / "a.ini").string(); }
  RunResult Rotina(const std::string& text, std::vector<std::string> options = {}) const {
    std::ofstream(File()) << text;
    options.insert(options.begin(), {"rotina", File()});
    RunResult result = RunProgram(options);
    result.out = std::regex_replace(result.out, std::regex("[ 0-9][0-9],[0-9]  "), " N,N  ");
    return result;
  }
  // The bytes of each file of the routine, by its path in the folder.
  std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder_.Path())) {
      if (!entry.is_regular_file() || entry.path() == File()) continue;
      std::ostringstream text;
      text << std::ifstream(entry.path()).rdbuf();
      files[entry.path().lexically_relative(folder_.Path()).string()] = text.str();
    }
    return files;
  }

  UserSettings user_;
  tests::TemporaryFolder folder_;
};

TEST_F(RotinaTest, WritesFiveReportsAndTheSameBytesTheSecondTime) {
  const std::string folder = (folder_ / "saidas").string();
  const RunResult first = Rotina(kFiveReports);
  EXPECT_EQ(first, Success("saída              linhas  segundos  resultado\n"
                           "departamentos          20       N,N  " +
                           folder +
                           "/deptos.csv\n"
                           "suportes                6       N,N  " +
                           folder +
                           "/suportes.json\n"
                           "documentos             10       N,N  " +
                           folder +
                           "/documentos.csv\n"
                           "módulos                59       N,N  " +
                           folder +
                           "/modulos/CCaixaRpt.RelatoriosModulos.txt\n"
                           "séries                 24       N,N  " +
                           folder +
                           "/series.csv\n"
                           "5 de 5 gravadas\n"));
  const std::map<std::string, std::string> files = Files();
  EXPECT_EQ(files.size(), 5U);
  EXPECT_EQ(Rotina(kFiveReports), first);
  EXPECT_EQ(Files(), files);
  // As executa writes them.
  const std::string alone = (folder_ / "sozinho.csv").string();
  ASSERT_EQ(RunProgram({"executa", "CDeptoRpt", "--perfil", "acervo", "--excel", "--saida", alone}).code,
            ExitCode::kOk);
  EXPECT_EQ(Files()["sozinho.csv"], files.at("saidas/deptos.csv"));
}

TEST_F(RotinaTest, GoesOnAfterAnError) {
  std::ofstream(folder_ / "arquivo") << "não é pasta";
  const RunResult result = Rotina(
      "[rotina]\nperfil = acervo\n"
      "[devolvidos]\nrelatorio = RelatorioDevolucaoOriginal\narquivo = a.csv\n"
      "[colunas]\nrelatorio = CDeptoRpt\narquivo = b.csv\ncolunas = NADA\n"
      "[pasta]\nrelatorio = CDeptoRpt\narquivo = arquivo/c.csv\n"
      "[banco]\nrelatorio = CDeptoRpt\narquivo = d.csv\nperfil = outro\n"
      "[deptos]\nrelatorio = CDeptoRpt\narquivo = e.csv\n");
  EXPECT_EQ(result, UsageFailure("a rotina \"" + File() +
                                 "\" tem um problema, e nada foi executado:\n"
                                 "  [banco] o perfil \"outro\" não existe; kodrarpt perfil lista mostra todos"));
  ASSERT_EQ(RunProgram({"perfil", "novo", "outro", "--conexao", "Driver={NaoExiste}"}).code, ExitCode::kOk);
  const RunResult again = RunProgram({"rotina", File()});
  EXPECT_EQ(again.code, ExitCode::kReportError);
  const std::string out = std::regex_replace(again.out, std::regex("[ 0-9][0-9],[0-9]  "), " N,N  ");
  EXPECT_EQ(out,
            "saída           linhas  segundos  resultado\n"
            "devolvidos                   N,N  o relatório deu erro\n"
            "colunas                      N,N  não há a coluna \"NADA\"; as colunas são DESCR_DEPTO, ENDERECO, CIDADE, "
            "ESTADO, "
            "CEP, END_EMAIL\n"
            "pasta                        N,N  não foi possível criar a pasta \"" +
                (folder_ / "arquivo").string() +
                "\": o caminho passa por um arquivo como se fosse uma pasta; confira-o.\n"
                "banco                        N,N  não foi possível conectar ao banco de dados\n"
                "deptos              20       N,N  " +
                (folder_ / "e.csv").string() + "\n1 de 5 gravadas\n");
  for (const char* const message :
       {"kodrarpt: [devolvidos] o relatório CSolicitacaoRpt.RelatorioDevolucaoOriginal não pôde ser gerado: o banco "
        "não aceita a instrução do relatório.\n",
        "kodrarpt: [colunas] não há a coluna \"NADA\"; ", "kodrarpt: [pasta] não foi possível criar a pasta ",
        "kodrarpt: [banco] não foi possível conectar ao banco de dados: esta máquina não tem o driver ou a fonte de "
        "dados da conexão.\n"})
    EXPECT_NE(again.err.find(message), std::string::npos) << message << again.err;
  EXPECT_EQ(Files().size(), 2U);
}

TEST_F(RotinaTest, NamesTheOutputOfAWarning) {
  const RunResult result = Rotina(
      "[etiquetas]\nrelatorio = CEstatSerieRpt\narquivo = a.csv\nDataInicial = hoje\nDataFinal = ontem\n"
      "perfil = acervo\n");
  EXPECT_TRUE(result.err.starts_with(
      "kodrarpt: [etiquetas] aviso: DataFinal é antes de DataInicial, e nenhuma data cai nesse período\n"))
      << result.err;
}

TEST_F(RotinaTest, RunsNothingWhenSomethingIsWrong) {
  EXPECT_EQ(Rotina("[a]\nrelatorio = CDeptoRpt\narquivo = a.csv\nperfil = acervo\n[b]\narquivo = b.csv\n[c]\n"),
            UsageFailure("a rotina \"" + File() +
                         "\" tem problemas, e nada foi executado:\n"
                         "  [b] falta relatorio\n"
                         "  [b] falta o perfil, aqui, em [rotina] ou com --perfil\n"
                         "  [c] falta relatorio\n"
                         "  [c] falta arquivo\n"
                         "  [c] falta o perfil, aqui, em [rotina] ou com --perfil"));
  EXPECT_EQ(Files().size(), 0U);
}

TEST_F(RotinaTest, SimulatesWithoutWriting) {
  EXPECT_EQ(Rotina("[a]\nrelatorio = CDeptoRpt\narquivo = a.csv\nperfil = acervo\n"
                   "[b]\nrelatorio = CLogRpt\narquivo = b.csv\nperfil = acervo\nDataInicial = 01/02/2024\n",
                   {"--simula"}),
            Success("a\n"
                    "  relatório  CDeptoRpt.RelatorioDeptos\n"
                    "  arquivo    " +
                    (folder_ / "a.csv").string() +
                    "\n"
                    "  perfil     acervo\n"
                    "b\n"
                    "  relatório  CLogRpt.RelatorioLog\n"
                    "  arquivo    " +
                    (folder_ / "b.csv").string() +
                    "\n"
                    "  perfil     acervo\n"
                    "  DataInicial  01/02/2024\n"));
  EXPECT_EQ(Files().size(), 0U);
}

TEST_F(RotinaTest, ShowsHowToScheduleItWithAbsolutePaths) {
  const RunResult result = Rotina("[a]\nrelatorio = CDeptoRpt\narquivo = a.csv\nperfil = acervo\n",
                                  {"--agendar", "--as", "06:30", "--dias", "seg,sex"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  const std::string program = fs::read_symlink("/proc/self/exe").string();
  EXPECT_TRUE(result.out.starts_with("Para o cron, acrescente esta linha com crontab -e:\n30 6 * * 1,5 " + program +
                                     " rotina " + File() + "\n"))
      << result.out;
  EXPECT_NE(result.out.find("/SC WEEKLY /D MON,FRI /ST 06:30 "), std::string::npos);
  EXPECT_NE(result.out.find("- o perfil acervo, que ela mesma cria"), std::string::npos);
  EXPECT_EQ(Files().size(), 0U);
}

TEST_F(RotinaTest, RefusesOptionsThatDoNotGoTogether) {
  constexpr const char* kText = "[a]\nrelatorio = CDeptoRpt\narquivo = a.csv\n";
  EXPECT_EQ(Rotina(kText, {"--as", "06:00"}), UsageFailure("--as só vale com --agendar"));
  EXPECT_EQ(Rotina(kText, {"--dias", "1"}), UsageFailure("--dias só vale com --agendar"));
  EXPECT_EQ(Rotina(kText, {"--agendar", "--simula"}), UsageFailure("--simula e --agendar não podem ser usados juntos"));
  EXPECT_EQ(Rotina(kText, {"--agendar", "--conexao", "DSN=A"}),
            UsageFailure("com --agendar, use um perfil no lugar de --conexao"));
  EXPECT_EQ(Rotina(kText, {"--agendar", "--perfil", "acervo", "--pergunta-senha"}),
            UsageFailure("--pergunta-senha não vale com --agendar: uma tarefa agendada não tem terminal"));
  EXPECT_EQ(Rotina(kText, {"--conexao", "DSN=A", "--perfil", "acervo"}),
            UsageFailure("--conexao e --perfil não podem ser usados juntos"));
  EXPECT_EQ(Rotina("[a]\nrelatorio = CDeptoRpt\narquivo = a.csv\nperfil = acervo\n"
                   "[b]\nrelatorio = CDeptoRpt\narquivo = b.csv\nperfil = ACERVO\n",
                   {"--senha-de", "X"}),
            UsageFailure("a rotina usa mais de um perfil, e a senha da linha de comando só pode ser de um"));
}

TEST_F(RotinaTest, AcceptsTheRoutineOfTheExamples) {
  // The days change with the clock; RoutineRunTest has fixed ones.
  const auto withoutNumbers = [](const std::string& text) {
    return std::regex_replace(text, std::regex("\\b[0-9]+\\b"), "N");
  };
  const std::string folder = KODRA_SOURCE_DIR "/examples/rotina";
  const std::string outputs = withoutNumbers(folder + "/saidas/2024/");
  RunResult result = RunProgram({"rotina", folder + "/mensal.ini", "--simula"});
  result.out = withoutNumbers(result.out);
  EXPECT_EQ(result, Success("documentos do mês\n"
                            "  relatório  CDocumentoRpt.RelatorioSintetico\n"
                            "  arquivo    " +
                            outputs +
                            "documentos-N-N.csv\n"
                            "  perfil     acervo\n"
                            "  DataArmazenamento1  N-N-N\n"
                            "  DataArmazenamento2  N-N-N\n"
                            "subgrupos do ano passado\n"
                            "  relatório  CEstatSubgrupoRpt.RelatorioEstatisticas\n"
                            "  arquivo    " +
                            outputs +
                            "subgrupos-N.pdf\n"
                            "  perfil     acervo\n"
                            "  DataInicial  N-N-N\n"
                            "  DataFinal  N-N-N\n"
                            "  TipoRpt  F\n"
                            "módulos\n"
                            "  relatório  CCaixaRpt.RelatoriosModulos\n"
                            "  arquivo    " +
                            outputs +
                            "modulos-N-N-N.xlsx\n"
                            "  perfil     acervo\n"
                            "vencidos\n"
                            "  relatório  CCaixaRpt.ModulosVencidos\n"
                            "  arquivo    " +
                            outputs +
                            "vencidos-N-N-N.html\n"
                            "  perfil     acervo\n"
                            "departamentos\n"
                            "  relatório  CDeptoRpt.RelatorioDeptos\n"
                            "  arquivo    " +
                            outputs +
                            "departamentos.json\n"
                            "  perfil     acervo\n"));
}

TEST_F(RotinaTest, ConnectsByTheCommandLineToo) {
  const std::string text = "[a]\nrelatorio = CDeptoRpt\narquivo = a.csv\nperfil = outro\n";
  EXPECT_EQ(Rotina(text, {"--conexao", Sqlite()}).code, ExitCode::kOk);
  EXPECT_EQ(Rotina(text, {"--perfil", "acervo"}).code, ExitCode::kOk);
  setenv("KODRARPT_PERFIL", "acervo", 1);
  EXPECT_EQ(Rotina("[a]\nrelatorio = CDeptoRpt\narquivo = a.csv\n").code, ExitCode::kOk);
}

}  // namespace
}  // namespace kodra::console
