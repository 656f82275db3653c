#include "console/run/output_options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cctype>
#include <limits>

#include "console/command_line/suggest.h"
#include "console/command_line/text_lines.h"
#include "console/command_line/usage_error.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

bool IsPage(Format format) { return format == Format::kHtml || format == Format::kPdf; }

// An option that has an effect on some formats only. A command need not have all of them.
struct OptionOfFormats {
  const char* option;
  const char* formats;
  bool (*applies)(Format format);
};

constexpr bool IsCsv(Format format) { return format == Format::kCsv; }
constexpr bool IsJson(Format format) { return format == Format::kJson; }
constexpr bool IsXlsx(Format format) { return format == Format::kXlsx; }

constexpr auto kOptionsOfFormats = std::to_array<OptionOfFormats>({
    {"--separador", "o formato csv", IsCsv},
    {"--bom", "o formato csv", IsCsv},
    {"--excel", "o formato csv", IsCsv},
    {"--json-linhas", "o formato json", IsJson},
    {"--titulos", "o formato xlsx", IsXlsx},
    {"--orgao", "os formatos html e pdf", IsPage},
    {"--logotipo", "os formatos html e pdf", IsPage},
    {"--folha", "os formatos html e pdf", IsPage},
    {"--primeira", "os formatos html e pdf", IsPage},
    {"--copias", "os formatos html e pdf", IsPage},
    {"--codigo", "os formatos html e pdf", IsPage},
});

// Raises UsageError for a character that could be part of a value, or that quotes one.
char SeparatorOf(const std::string& text) {
  if (text == "\t" || text == "\\t" || Folded(text) == "tab") return '\t';
  const bool isOne = text.size() == 1 && std::ispunct(static_cast<unsigned char>(text[0])) != 0;
  if (!isOne || text == "\"" || text == "'")
    throw UsageError("--separador deve ser um sinal, como ; ou |, ou a palavra tab");
  return text[0];
}

}  // namespace

void OutputOptions::AddTo(CLI::App& command) {
  command_ = &command;
  command.add_option("--formato", format_, FormatNames() + " (sem esta opção, o da extensão de --saida, ou tabela)")
      ->option_text("FORMATO");
  command.add_option("--saida", target_, "O arquivo a gravar (sem esta opção, a saída padrão)")->option_text("ARQUIVO");
  command
      .add_option("--separador", separator_, "csv: o que separa as colunas, como ; ou tab (sem esta opção, vírgula)")
      ->option_text("CARACTERE");
  command.add_flag("--bom", byteOrderMark_,
                   "csv: começa com a marca (BOM) pela qual algumas planilhas reconhecem UTF-8");
  command.add_flag("--excel", forExcel_,
                   "csv: para o Excel em português (; 1234,5 31/12/2023), sem texto que vire fórmula");
  command.add_flag("--json-linhas", jsonLines_, "json: um objeto por linha, sem a lista em volta");
  command.add_flag("--titulos", captions_, "xlsx: os títulos das colunas em vez dos seus nomes");
  command
      .add_option("--colunas", columns_,
                  "Só estas colunas, nesta ordem, separadas por vírgula; não vale com html nem pdf")
      ->option_text("NOMES");
  command.add_option("--limite", mostRows_, "Só as primeiras linhas, até este número; não vale com html nem pdf")
      ->option_text("LINHAS");
}

Format OutputOptions::ChosenFormat() const {
  const Format format = IsGiven("--formato") ? FormatNamed(format_) : FormatOfFile(target_);
  CheckApplies(format);
  if (NeedsFile(format) && target_.empty()) throw UsageError("o formato " + format_ + " precisa de --saida");
  return format;
}

FormatOptions OutputOptions::ForFormats() const {
  return {.terminalWidth = {},
          .csv = ForCsv(),
          .json = jsonLines_ ? JsonShape::kLines : JsonShape::kArray,
          .html = {},
          .xlsx = {.captions = captions_},
          .columns = ColumnNames()};
}

std::uint64_t OutputOptions::MostRows() const {
  if (!IsGiven("--limite")) return std::numeric_limits<std::uint64_t>::max();
  if (mostRows_ < 1) throw UsageError("--limite deve ser 1 ou mais");
  return static_cast<std::uint64_t>(mostRows_);
}

std::wstring OutputOptions::Target() const { return values::FromUtf8(target_); }

bool OutputOptions::IsGiven(const std::string& name) const {
  const CLI::Option* const option = command_->get_option_no_throw(name);
  return option != nullptr && option->count() > 0;
}

void OutputOptions::CheckApplies(Format format) const {
  for (const OptionOfFormats& each : kOptionsOfFormats) {
    if (!each.applies(format) && IsGiven(each.option))
      throw UsageError(std::string(each.option) + " só vale com " + each.formats);
  }
  // A page has its own columns, and totals of all rows.
  if (!IsPage(format)) return;
  for (const char* const option : {"--colunas", "--limite"}) {
    if (IsGiven(option))
      throw UsageError(std::string(option) + " não vale com o formato " + NameOf(format) +
                       ", que traz o relatório inteiro");
  }
}

CsvOptions OutputOptions::ForCsv() const {
  if (!forExcel_) return {.separator = SeparatorOf(separator_), .byteOrderMark = byteOrderMark_};
  for (const char* const option : {"--separador", "--bom"}) {
    if (IsGiven(option))
      throw UsageError("--excel já escolhe o separador e a marca (BOM), e não pode ser usado com " +
                       std::string(option));
  }
  return kCsvForExcel;
}

std::vector<std::string> OutputOptions::ColumnNames() const {
  std::vector<std::string> names;
  if (!IsGiven("--colunas")) return names;
  for (std::size_t start = 0; start <= columns_.size();) {
    const std::size_t end = std::min(columns_.find(',', start), columns_.size());
    names.emplace_back(Trimmed(std::string_view(columns_).substr(start, end - start)));
    start = end + 1;
  }
  return names;
}

}  // namespace kodra::console
