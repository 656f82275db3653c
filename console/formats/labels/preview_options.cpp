#include "console/formats/labels/preview_options.h"

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"

namespace kodra::console::labels {
namespace {

std::vector<std::string> SheetNames() {
  std::vector<std::string> names;
  for (const LabelSheet& sheet : LabelSheets()) names.emplace_back(sheet.name);
  return names;
}

const LabelSheet& SheetNamed(const std::string& name) {
  const std::string folded = Folded(name);
  if (const LabelSheet* sheet = FindLabelSheet(folded)) return *sheet;
  throw UsageError(fmt::format("a folha \"{}\" não existe{}; escolha entre {}", name, DidYouMean(folded, SheetNames()),
                               fmt::join(SheetNames(), ", ")));
}

}  // namespace

void PreviewOptions::AddTo(CLI::App& command) {
  command
      .add_option("--folha", sheet_,
                  fmt::format("html, etiquetas: a folha (papel-colunasxlinhas): {} (sem esta opção, {})",
                              fmt::join(SheetNames(), ", "), sheet_))
      ->option_text("FOLHA");
  command
      .add_option("--primeira", firstLabel_,
                  "html, etiquetas: a primeira etiqueta livre da folha, linha a linha (sem esta opção, 1)")
      ->option_text("NÚMERO");
  command.add_option("--copias", copies_, "html, etiquetas: quantas cópias de cada uma (sem esta opção, 1)")
      ->option_text("NÚMERO");
}

html::HtmlOptions PreviewOptions::Options() const {
  const LabelSheet& sheet = SheetNamed(sheet_);
  if (firstLabel_ < 1 || firstLabel_ > sheet.Labels())
    throw UsageError(fmt::format("--primeira vai de 1 a {} na folha {}, e não pode ser {}", sheet.Labels(), sheet.name,
                                 firstLabel_));
  if (copies_ < 1 || copies_ > kMostCopies)
    throw UsageError(fmt::format("--copias vai de 1 a {}, e não pode ser {}", kMostCopies, copies_));
  return {.labels = {.sheet = &sheet, .firstLabel = firstLabel_, .copies = copies_}};
}

}  // namespace kodra::console::labels
