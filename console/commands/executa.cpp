// kodrarpt executa: runs a report and writes its rows.
#include <CLI/CLI.hpp>
#include <memory>

#include "console/command_line/report_name.h"
#include "console/commands/commands.h"
#include "console/commands/report_description.h"
#include "console/run/connection_options.h"
#include "console/run/report_run.h"

namespace kodra::console {
namespace {

constexpr const char* kFooter =
    "Em csv e json, as datas são ISO (2023-12-31T10:20:30) e os números têm ponto decimal; em tabela, são como as\n"
    "pessoas os escrevem (31/12/2023 10:20:30 e 1234,5); em xlsx, são datas e números da planilha; html e pdf\n"
    "são páginas A4 para imprimir. O arquivo de --saida só aparece quando está completo; com Ctrl-C ou com um erro, "
    "fica\n"
    "o arquivo que havia antes.\n"
    "\n"
    "\"kodrarpt executa RELATÓRIO --help\" mostra os parâmetros e as colunas do relatório.\n"
    "\n"
    "Exemplo:\n"
    "  KODRARPT_SENHA=… kodrarpt executa CDocumentoRpt.RelatorioSintetico --conexao \"DSN=Acervo;UID=ana\" \\\n"
    "      --DataArmazenamento1 01/01/2024 --DataArmazenamento2 31/12/2024 --formato csv --saida documentos.csv";

// The options of the command, as typed.
struct Options {
  ConnectionOptions connection;
  ReportOptions report;
};

void PrintHelpOn(std::ostream& out, const std::string& report) {
  PrintDescription(out, FindReport(report));
  out << "\n\"kodrarpt executa --help\" mostra as outras opções: a conexão, os formatos, as páginas e as etiquetas.\n";
}

}  // namespace

void AddExecuta(Program& program) {
  const auto options = std::make_shared<Options>();
  CLI::App& command = program.Add({"executa", "Executa um relatório e grava as suas linhas", kFooter, PrintHelpOn},
                                  [&program, options] {
                                    ReportRun run(program, options->report);
                                    return run.Execute(options->connection.Text());
                                  });
  command.add_option("RELATÓRIO", options->report.report, "Classe.Metodo, ou só a classe ou o método")
      ->option_text(" ")
      ->required();
  options->connection.AddTo(command);
  options->report.AddTo(command);
}

}  // namespace kodra::console
