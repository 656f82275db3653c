// kodrarpt confere: compares the codes that were read on the shelf with what the archive says is there.
#include <fmt/format.h>
#include <CLI/CLI.hpp>
#include <iostream>
#include <iterator>

#include "console/command_line/connection_error.h"
#include "console/command_line/input_file.h"
#include "console/command_line/usage_error.h"
#include "console/commands/commands.h"
#include "console/formats/pages/letterhead_options.h"
#include "console/inventory/archive.h"
#include "console/inventory/scanned_codes.h"
#include "console/reports/errors.h"
#include "console/run/connection_options.h"
#include "console/run/output_options.h"
#include "console/run/output_run.h"
#include "console/run/time_limit.h"
#include "values/erro.h"
#include "values/password.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using inventory::Finding;
using inventory::Item;
using inventory::Loan;
using values::FromUtf8;
using values::ToUtf8;

constexpr const char* kFooter =
    "Com --modulo, os códigos lidos são os dos documentos; com --conteiner, os dos módulos. A lista tem um código por\n"
    "linha, como o leitor de código de barras os digita; linhas vazias e códigos repetidos não contam, nem o código "
    "do\n"
    "próprio módulo ou contêiner. Ela tem no máximo 8 MB.\n"
    "\n"
    "Cada código sai com a sua situação segundo o acervo: presente, emprestado (com quem e desde quando), ausente, em\n"
    "outro lugar (e onde) ou desconhecido. Os totais vão para a saída de erros. O código de saída é 0 se está tudo no\n"
    "lugar ou emprestado, e 4 se algo está ausente, em outro lugar ou é desconhecido. Nada é gravado no banco.\n"
    "\n"
    "Exemplo:\n"
    "  KODRARPT_SENHA=… kodrarpt confere --modulo AA001 --modulo AA002 --conexao \"DSN=Acervo;UID=ana\" \\\n"
    "      --lista lidos.txt --formato csv --saida conferencia.csv";

// The options of the command, as typed.
struct Options {
  std::vector<std::string> modules;
  std::vector<std::string> containers;
  ConnectionOptions connection;
  std::string list = "-";
  OutputOptions output;
  pages::LetterheadOptions letterhead;
  TimeLimit timeLimit;
};

// The codes as they were given, each once.
std::vector<std::wstring> Distinct(const std::vector<std::string>& codes) {
  std::vector<std::wstring> distinct;
  for (const std::string& code : codes) {
    std::wstring wide = FromUtf8(code);
    if (std::ranges::find(distinct, wide) == distinct.end()) distinct.push_back(std::move(wide));
  }
  return distinct;
}

std::wstring Joined(const std::vector<std::wstring>& codes) {
  std::wstring text;
  for (const std::wstring& code : codes) text.append(text.empty() ? L"" : L", ").append(code);
  return text;
}

std::vector<std::wstring> ReadList(const std::string& name) {
  if (name == "-") return inventory::ScannedCodes(ReadStandardInput(inventory::kLongestList), "a entrada padrão");
  return inventory::ScannedCodes(ReadInputFile(FromUtf8(name), inventory::kLongestList), "\"" + name + "\"");
}

Value TextOrNull(const std::wstring& text) { return text.empty() ? Value(Null{}) : Value(text); }

class Inventory {
 public:
  Inventory(Program& program, const Options& options)
      : program_(program),
        documents_(!options.modules.empty()),
        listing_(*guide::Find(L"kodrarpt", documents_ ? L"confere --modulo" : L"confere --conteiner")),
        places_(Distinct(documents_ ? options.modules : options.containers)),
        format_(options.output.ChosenFormat()),
        formatOptions_(options.output.ForFormats()),
        mostRows_(options.output.MostRows()),
        destination_{options.output.Target(), {.limit = options.timeLimit.Get()}, format_ == Format::kJson} {
    if (options.modules.empty() && options.containers.empty())
      throw UsageError("falta --modulo, para conferir documentos, ou --conteiner, para conferir módulos");
    if (!options.modules.empty() && !options.containers.empty())
      throw UsageError("--modulo e --conteiner não podem ser usados juntos");
    formatOptions_.html.letterhead = options.letterhead.Get();
    // After the checks, because it may ask for a password, and before a list that the user types.
    connection_ = options.connection.Text();
    scanned_ = ReadList(options.list);
  }

  ExitCode Execute() {
    std::vector<Finding> findings;
    const ExitCode code = RunToOutput(program_, destination_, [&](OutputRun& run) {
      inventory::Archive archive(run.machine.Around(), connection_);
      findings = documents_ ? CompareDocuments(archive, run.stopping) : CompareModules(archive);
      Write(findings, run);
      return true;
    });
    if (code != ExitCode::kOk) return code;
    program_.Err() << ToUtf8(inventory::Summary(findings)) << "\n";
    return AllInPlace(findings) ? ExitCode::kOk : ExitCode::kMismatch;
  }

 private:
  std::vector<Finding> CompareDocuments(inventory::Archive& archive, const Stopping& stopping) {
    const std::vector<Item> expected = archive.DocumentsOf(places_);
    loans_ = ReadLoans(archive, stopping);
    const std::vector<std::wstring> read = WithoutPlaces(scanned_);
    return Compare(expected, read, archive.FindDocuments(Others(expected, read)), loans_);
  }

  std::vector<Finding> CompareModules(inventory::Archive& archive) {
    const std::vector<Item> expected = archive.ModulesOf(places_);
    std::vector<std::wstring> read;
    std::set<std::wstring> known;
    for (const std::wstring& code : WithoutPlaces(scanned_)) {
      const std::wstring module = archive.MainModuleOf(code);
      if (known.insert(module).second) read.push_back(module);
    }
    return Compare(expected, read, archive.FindModules(Others(expected, read)), {});
  }

  // The loans, or none if the database does not answer: the list of originals does not run on every database.
  inventory::Loans ReadLoans(inventory::Archive& archive, const Stopping& stopping) const {
    try {
      return archive.ReadLoans();
    } catch (const ConnectionError&) {
      throw;
    } catch (const Erro& error) {
      if (stopping.Requested()) throw;
      const std::string description = ToUtf8(values::HidePassword(error.Description(), connection_));
      const auto explanation =
          guide::Explain(description, guide::Find(L"CSolicitacaoRpt", L"RelatorioDevolucaoOriginal"));
      program_.Say("aviso: não foi possível saber quais documentos estão emprestados, e eles saem como ausentes: " +
                   (explanation ? explanation->whatHappened : guide::CauseIn(description)));
      return {};
    }
  }

  // The codes without those of the modules or containers themselves, whose labels are read, too.
  std::vector<std::wstring> WithoutPlaces(std::vector<std::wstring> codes) const {
    std::erase_if(codes, [&](const std::wstring& code) { return std::ranges::find(places_, code) != places_.end(); });
    return codes;
  }

  // The codes that were read, but not expected.
  static std::set<std::wstring> Others(const std::vector<Item>& expected, const std::vector<std::wstring>& read) {
    std::set<std::wstring> others(read.begin(), read.end());
    for (const Item& item : expected) others.erase(item.code);
    return others;
  }

  void Write(const std::vector<Finding>& findings, OutputRun& run) {
    formatOptions_.terminalWidth = run.terminalWidth;
    const auto writer = NewWriter(format_, formatOptions_, run.output, run.path);
    std::vector<Column> columns;
    for (const guide::Column& column : listing_.columns) columns.push_back({FromUtf8(column.name)});
    writer->Begin(
        {FromUtf8(listing_.className),
         FromUtf8(listing_.method),
         FromUtf8(listing_.purpose),
         {{documents_ ? L"Modulos" : L"Conteineres", Joined(places_)}, {L"Totais", inventory::Summary(findings)}}},
        columns);
    const auto rows = static_cast<std::size_t>(std::min<std::uint64_t>(findings.size(), mostRows_));
    for (const Finding& finding : std::span(findings).first(rows)) writer->Row(Cells(finding));
    writer->End();
  }

  // In the order of the listing's columns.
  std::vector<Value> Cells(const Finding& finding) const {
    const Item& item = finding.item;
    std::vector<Value> cells = {item.code, std::wstring(WordFor(finding.situation)), TextOrNull(item.place),
                                TextOrNull(item.location)};
    if (!documents_) return cells;
    const auto found = loans_.find(item.code);
    const Loan loan = found == loans_.end() ? Loan() : found->second;
    for (const std::wstring& text : {loan.operatorName, loan.since, loan.until}) cells.push_back(TextOrNull(text));
    return cells;
  }

  Program& program_;
  bool documents_;  // whether documents in modules are compared, or else modules in containers
  const guide::Report& listing_;
  std::vector<std::wstring> places_;
  std::wstring connection_;
  Format format_;
  FormatOptions formatOptions_;
  std::uint64_t mostRows_;
  Destination destination_;
  std::vector<std::wstring> scanned_;
  inventory::Loans loans_;
};

}  // namespace

void AddConfere(Program& program) {
  const auto options = std::make_shared<Options>();
  CLI::App& command =
      program.Add({"confere", "Compara os códigos lidos nas estantes com o que o acervo registra", kFooter},
                  [&program, options] { return Inventory(program, *options).Execute(); });
  command
      .add_option("--modulo", options->modules, "Um módulo, cujos documentos foram lidos; pode aparecer várias vezes")
      ->option_text("CÓDIGO")
      ->allow_extra_args(false);
  command
      .add_option("--conteiner", options->containers,
                  "Um contêiner, cujos módulos foram lidos; pode aparecer várias vezes")
      ->option_text("CÓDIGO")
      ->allow_extra_args(false);
  command
      .add_option("--lista", options->list,
                  "O arquivo com os códigos lidos (sem esta opção, ou com -, a entrada padrão)")
      ->option_text("ARQUIVO");
  options->connection.AddTo(command);
  options->output.AddTo(command);
  options->letterhead.AddTo(command);
  options->timeLimit.AddTo(command);
}

}  // namespace kodra::console
