// kodrarpt etiquetas: prints the labels of modules and containers.
#include <fmt/format.h>
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <sstream>

#include "console/command_line/console.h"
#include "console/command_line/input_file.h"
#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "console/commands/commands.h"
#include "console/formats/labels/label_arguments.h"
#include "console/formats/labels/label_writer.h"
#include "console/run/archive_labels.h"
#include "console/run/connection_options.h"
#include "console/run/output_run.h"
#include "console/run/time_limit.h"
#include "values/numbers.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using labels::Label;
using values::FromUtf8;
using values::ToUtf8;

constexpr const char* kFooter =
    "TIPO é abertura, fechamento, subordinadas (o fechamento dos módulos subordinados de cada módulo), divisoria (uma\n"
    "por documento de cada módulo) ou conteiner. As etiquetas saem na ordem dos códigos: os da linha de comando, os "
    "de\n"
    "--lista, os de --de e --ate. Um código sem etiqueta é citado no fim, e o código de saída é 1.\n"
    "\n"
    "Exemplo:\n"
    "  kodrarpt etiquetas abertura AA001 AA002 AA00301 --conexao \"DSN=Acervo;UID=ana\" --folha a4-2x7 \\\n"
    "      --saida etiquetas.pdf";

constexpr std::size_t kLargestList = 16 << 20;

struct Kind {
  std::string_view name;
  LabelKind kind;
  const wchar_t* title;
};

constexpr Kind kKinds[] = {
    {"abertura", LabelKind::kOpening, L"Etiquetas de abertura"},
    {"fechamento", LabelKind::kClosing, L"Etiquetas de fechamento"},
    {"subordinadas", LabelKind::kSubordinates, L"Etiquetas de fechamento de subordinados"},
    {"divisoria", LabelKind::kDividers, L"Etiquetas divisórias"},
    {"conteiner", LabelKind::kContainers, L"Etiquetas de contêineres"},
};

// The options of the command, as typed.
struct Options {
  std::string kind;
  std::vector<std::string> codes;
  std::string first, last, list, department;
  ConnectionOptions connection;
  labels::LabelArguments labels;
  bool withPlace = false;
  std::string organisation;
  std::string format = "pdf";
  std::string target;
  TimeLimit timeLimit;
};

const Kind& KindNamed(const std::string& name) {
  const std::string folded = Folded(name);
  std::vector<std::string> known;
  for (const Kind& kind : kKinds) {
    if (kind.name == folded) return kind;
    known.emplace_back(kind.name);
  }
  throw UsageError(fmt::format("o tipo de etiqueta \"{}\" não existe{}; escolha entre {}", name,
                               DidYouMean(folded, known), fmt::join(known, ", ")));
}

labels::PageFormat FormatNamed(const std::string& name) {
  const std::string folded = Folded(name);
  if (folded == "pdf") return labels::PageFormat::kPdf;
  if (folded == "html") return labels::PageFormat::kHtml;
  throw UsageError("o formato \"" + name + "\" não existe" + DidYouMean(folded, {"pdf", "html"}) +
                   "; escolha entre pdf, html");
}

// The codes of a list, one per line. Empty lines do not count.
std::vector<std::wstring> CodesInList(const std::string& name) {
  std::string text = name == "-" ? ReadStandardInput(kLargestList) : ReadInputFile(FromUtf8(name), kLargestList);
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
  std::vector<std::wstring> codes;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    constexpr const char* kBlanks = " \t\r";
    const std::size_t begin = line.find_first_not_of(kBlanks);
    if (begin == line.npos) continue;
    codes.push_back(FromUtf8(line.substr(begin, line.find_last_not_of(kBlanks) - begin + 1)));
  }
  if (codes.empty()) throw UsageError("a lista \"" + name + "\" não tem nenhum código");
  return codes;
}

// The codes that were given one by one.
std::vector<std::wstring> GivenCodes(const Options& options) {
  std::vector<std::wstring> codes;
  for (const std::string& code : options.codes) codes.push_back(FromUtf8(code));
  if (!options.list.empty()) std::ranges::move(CodesInList(options.list), std::back_inserter(codes));
  for (const std::wstring& code : codes) {
    // The reports put codes into their statements between apostrophes.
    if (code.find(L'\'') != code.npos)
      throw UsageError("o código \"" + ToUtf8(code) + "\" tem um apóstrofo, que os relatórios não aceitam: tire-o");
  }
  return codes;
}

std::optional<CodeRange> RangeOf(const Options& options, LabelKind kind) {
  if (options.first.empty() && options.last.empty() && options.department.empty()) return std::nullopt;
  const CodeRange range = {FromUtf8(options.first), FromUtf8(options.last), FromUtf8(options.department)};
  const bool areModules = kind != LabelKind::kContainers;
  if (!range.department.empty() && !areModules) throw UsageError("--CodDepto não vale para contêineres");
  // The report takes such a code for no department at all.
  if (!range.department.empty() && values::LeadingNumber(range.department) <= 0)
    throw UsageError("--CodDepto deve ser um código maior que zero, e não pode ser \"" + options.department + "\"");
  if (areModules && !range.first.empty() && !range.last.empty() && range.first.size() != range.last.size())
    throw UsageError("--de e --ate devem ser dois módulos principais ou dois subordinados");
  return range;
}

// One run of the command, from its options to the printed labels.
class Run {
 public:
  Run(Program& program, const Options& options)
      : program_(program),
        options_(options),
        kind_(KindNamed(options.kind)),
        format_(FormatNamed(options.format)),
        print_(options.labels.Options()),
        destination_{FromUtf8(options.target), {.limit = options.timeLimit.Get()}},
        range_(RangeOf(options, kind_.kind)) {
    print_.place = options.withPlace;
    print_.warn = [this](const std::string& warning) { Warn(warning); };
    if (options.withPlace && kind_.kind == LabelKind::kContainers)
      throw UsageError("--com-lugar não vale para contêineres");
    if (options.target.empty() && format_ == labels::PageFormat::kPdf && IsTerminal(program.Out()))
      throw UsageError("o PDF precisa de --saida, porque a saída é um terminal");
    labels::DesignOf(print_.stock.label, {print_.code, print_.place, print_.logo.get()});
    codes_ = GivenCodes(options);
    if (codes_.empty() && !range_)
      throw UsageError("faltam os códigos: informe-os, ou use --lista, --de e --ate, ou --CodDepto");
    // Last, because it may ask for a password.
    connection_ = options.connection.Text();
  }

  ExitCode Execute() {
    const ExitCode code =
        RunToOutput(program_, destination_, [this](OutputRun& run) { return Print(Labels(run), run.output); });
    return code == ExitCode::kOk ? Conclude() : code;
  }

 private:
  // All labels in their order. Remembers the codes that have none.
  std::vector<Label> Labels(OutputRun& run) {
    ArchiveLabels archive(run.machine.Around(), connection_);
    std::vector<Label> all;
    missing_ = TakeLabelsOf(codes_, archive, all);
    if (range_) missingInRange_ = TakeLabelsOf(archive.CodesIn(kind_.kind, *range_), archive, all);
    if (!options_.organisation.empty()) {
      for (Label& label : all) label.organisation = FromUtf8(options_.organisation);
    }
    hasLabels_ = !all.empty();
    return all;
  }

  // Appends the labels of these codes to `all` and returns the codes that have none.
  std::vector<std::string> TakeLabelsOf(const std::vector<std::wstring>& codes, ArchiveLabels& archive,
                                        std::vector<Label>& all) const {
    std::vector<std::string> missing;
    std::vector<std::vector<Label>> found = archive.LabelsOf(kind_.kind, codes);
    // Some reports do not name the organisation.
    const bool isUnnamed = kind_.kind == LabelKind::kOpening || kind_.kind == LabelKind::kDividers;
    const std::wstring organisation =
        isUnnamed && options_.organisation.empty() ? archive.Organisation(codes) : std::wstring();
    std::map<std::wstring, std::wstring> places;
    for (std::size_t i = 0; i < found.size(); ++i) {
      if (found[i].empty()) missing.push_back(ToUtf8(codes[i]));
      for (Label& label : found[i]) {
        if (isUnnamed) label.organisation = organisation;
        if (!options_.withPlace) continue;
        const std::wstring module = codes[i].substr(0, labels::kMainModuleLetters);
        const auto [place, isNew] = places.try_emplace(module);
        if (isNew) place->second = archive.PlaceOf(module);
        label.place = place->second;
      }
    }
    for (std::vector<Label>& ofCode : found) std::ranges::move(ofCode, std::back_inserter(all));
    return missing;
  }

  // Everything is drawn before anything is written: a label may turn out to have no room for its code. Returns whether
  // there was any label.
  bool Print(const std::vector<Label>& labels, Output& output) const {
    if (labels.empty()) return false;
    if (const std::string warning = labels::EdgeWarning(print_.stock); !warning.empty()) Warn(warning);
    TextOutput pages;
    const std::unique_ptr<pages::Canvas> canvas = labels::NewCanvas(format_, pages, kind_.title);
    labels::LabelPrinter printer(*canvas, print_);
    for (const Label& label : labels) printer.Print(label);
    printer.Finish();
    output.Write(pages.Text());
    return true;
  }

  ExitCode Conclude() const {
    if (!missingInRange_.empty()) Warn(fmt::format("no intervalo, sem etiqueta: {}", fmt::join(missingInRange_, ", ")));
    if (!missing_.empty()) program_.Say(fmt::format("sem etiqueta: {}; confira os códigos", fmt::join(missing_, ", ")));
    if (!hasLabels_)
      program_.Say(std::string("nenhuma etiqueta para imprimir") + (range_ ? ": confira o intervalo" : ""));
    return missing_.empty() && hasLabels_ ? ExitCode::kOk : ExitCode::kReportError;
  }

  void Warn(const std::string& warning) const { program_.Say("aviso: " + warning); }

  Program& program_;
  const Options& options_;
  const Kind& kind_;
  labels::PageFormat format_;
  labels::PrintOptions print_;
  std::wstring connection_;
  Destination destination_;
  std::optional<CodeRange> range_;
  std::vector<std::wstring> codes_;
  std::vector<std::string> missing_, missingInRange_;
  bool hasLabels_ = false;
};

void ListStocks(std::ostream& out) {
  for (const labels::Stock& stock : labels::BuiltInStocks()) out << Described(stock) << "\n";
}

}  // namespace

void AddEtiquetas(Program& program) {
  const auto options = std::make_shared<Options>();
  CLI::App& command = program.Add({"etiquetas", "Imprime etiquetas de módulos e de contêineres", kFooter},
                                  [&program, options] { return Run(program, *options).Execute(); });
  command.add_option("TIPO", options->kind, "abertura, fechamento, subordinadas, divisoria ou conteiner")
      ->option_text(" ")
      ->required();
  command.add_option("CÓDIGO", options->codes, "Os códigos dos módulos ou contêineres")->option_text("...");
  command.add_option("--de", options->first, "O primeiro código de um intervalo; vêm os que existem")
      ->option_text("CÓDIGO");
  command.add_option("--ate", options->last, "O último código do intervalo")->option_text("CÓDIGO");
  command.add_option("--CodDepto", options->department, "Só módulos deste departamento, no intervalo")
      ->ignore_case()
      ->option_text("CÓDIGO");
  command.add_option("--lista", options->list, "Um arquivo com um código por linha; - é a entrada padrão")
      ->option_text("ARQUIVO");
  options->connection.AddTo(command);
  options->timeLimit.AddTo(command);
  command.add_option("--formato", options->format, "pdf ou html (sem esta opção, pdf)")->option_text("FORMATO");
  command.add_option("--saida", options->target, "O arquivo a gravar (sem esta opção, a saída padrão)")
      ->option_text("ARQUIVO");
  options->labels.AddAllTo(command);
  command.add_flag_callback(
      "--folhas",
      [&program] {
        ListStocks(program.Out());
        throw CLI::Success();
      },
      "Lista as folhas que têm nome, com as suas medidas");
  command.add_flag("--com-lugar", options->withPlace, "Acrescenta fileira, estante, prateleira e depósito do módulo");
  command.add_option("--orgao", options->organisation, "O nome do órgão (sem esta opção, o do banco de dados)")
      ->option_text("TEXTO");
}

}  // namespace kodra::console
