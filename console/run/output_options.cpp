#include "console/run/output_options.h"

#include <CLI/CLI.hpp>

#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "values/utf8.h"

namespace kodra::console {

void OutputOptions::AddTo(CLI::App& command) {
  command.add_option("--formato", format_, FormatNames() + " (sem esta opção, tabela)")->option_text("FORMATO");
  command.add_option("--saida", target_, "O arquivo a gravar (sem esta opção, a saída padrão)")->option_text("ARQUIVO");
  command
      .add_option("--separador", separator_, "csv: o que separa as colunas, como ; ou tab (sem esta opção, vírgula)")
      ->option_text("CARACTERE");
  command.add_flag("--bom", byteOrderMark_,
                   "csv: começa com a marca (BOM) pela qual algumas planilhas reconhecem UTF-8");
  command.add_flag("--json-linhas", jsonLines_, "json: um objeto por linha, sem a lista em volta");
  command.add_flag("--titulos", captions_, "xlsx: os títulos das colunas em vez dos seus nomes");
}

Format OutputOptions::ChosenFormat() const {
  const Format format = FormatNamed(format_);
  if (NeedsFile(format) && target_.empty()) throw UsageError("o formato " + format_ + " precisa de --saida");
  return format;
}

FormatOptions OutputOptions::ForFormats() const {
  const bool isTab = separator_ == "\\t" || Folded(separator_) == "tab";
  constexpr std::string_view kReserved = "\"\r\n";
  if (!isTab && (separator_.size() != 1 || static_cast<unsigned char>(separator_[0]) >= 0x80 ||
                 kReserved.find(separator_[0]) != std::string_view::npos)) {
    throw UsageError("--separador deve ser um caractere, como ; ou |, ou a palavra tab");
  }
  return {.csv = {.separator = isTab ? '\t' : separator_[0], .byteOrderMark = byteOrderMark_},
          .json = jsonLines_ ? JsonShape::kLines : JsonShape::kArray,
          .html = {},
          .xlsx = {.captions = captions_}};
}

std::wstring OutputOptions::Target() const { return values::FromUtf8(target_); }

}  // namespace kodra::console
