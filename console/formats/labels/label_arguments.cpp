#include "console/formats/labels/label_arguments.h"

#include <fmt/format.h>
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <optional>

#include "console/command_line/input_file.h"
#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "console/formats/labels/millimetres.h"
#include "values/utf8.h"

namespace kodra::console::labels {
namespace {

using namespace pages;
using values::FromUtf8;

constexpr std::size_t kLargestStockFile = 1 << 20;
// Most laser printers cannot print nearer to the edge than about a sixth of an inch. The usual sheets keep away from
// it.
constexpr Length kUnprintable = 4.2_mm;

std::vector<std::string> NamesOf(const std::vector<Stock>& stocks) {
  std::vector<std::string> names;
  names.reserve(stocks.size());
  for (const Stock& stock : stocks) names.push_back(stock.name);
  return names;
}

// "1.5,-2" or "1,5;-2".
std::optional<Point> ParseShift(std::string_view text) {
  std::size_t separator = text.find(';');
  if (separator == text.npos) separator = text.find(',');
  if (separator == text.npos) return std::nullopt;
  const std::optional<Length> x = ParseMillimetres(text.substr(0, separator));
  const std::optional<Length> y = ParseMillimetres(text.substr(separator + 1));
  return x && y ? std::optional<Point>({*x, *y}) : std::nullopt;
}

Point ShiftOf(const std::string& text) {
  if (text.empty()) return {};
  const std::optional<Point> shift = ParseShift(text);
  if (!shift) {
    throw UsageError(
        fmt::format("o ajuste diz quantos milímetros vão para a direita e para baixo, como 1,-2 ou, com casas "
                    "decimais, 0,5;1, e não pode ser \"{}\"",
                    text));
  }
  if (std::max(std::abs(shift->x), std::abs(shift->y)) > kFarthestShift)
    throw UsageError(fmt::format("o ajuste vai até {} mm em cada direção", MillimetresText(kFarthestShift)));
  return *shift;
}

constexpr NamedCode kCodes[] = {
    {"code128", CodeKind::kCode128, "Código de barras (Code 128)"},
    {"qr", CodeKind::kQr, "QR"},
    {"nenhum", CodeKind::kNone, "Nenhum"},
};

CodeKind CodeNamed(const std::string& name) {
  const std::string folded = Folded(name);
  std::vector<std::string> known;
  for (const NamedCode& code : kCodes) {
    if (code.name == folded) return code.kind;
    known.emplace_back(code.name);
  }
  throw UsageError(fmt::format("o código \"{}\" não existe{}; escolha entre {}", name, DidYouMean(folded, known),
                               fmt::join(known, ", ")));
}

bool LooksLikeRoll(const std::string& name) { return name.ends_with("mm"); }

Stock StockOf(const LabelChoices& choices, const std::vector<Stock>& stocks) {
  if (!choices.ownStock.empty()) return ParseStock("própria", choices.ownStock);
  if (LooksLikeRoll(choices.stock)) return ParseStock(choices.stock, choices.stock);
  const std::string folded = Folded(choices.stock);
  const auto found = std::ranges::find(stocks, folded, &Stock::name);
  if (found != stocks.end()) return *found;
  throw UsageError(fmt::format("a folha \"{}\" não existe{}; escolha entre {}", choices.stock,
                               DidYouMean(folded, NamesOf(stocks)), fmt::join(NamesOf(stocks), ", ")));
}

}  // namespace

std::span<const NamedCode> Codes() { return kCodes; }

PrintOptions PrintOptionsOf(const LabelChoices& choices, const std::vector<Stock>& stocks) {
  PrintOptions options = {.stock = StockOf(choices, stocks),
                          .firstLabel = choices.firstLabel,
                          .copies = choices.copies,
                          .shift = ShiftOf(choices.shift),
                          .outline = choices.outline,
                          .code = CodeNamed(choices.code)};
  if (choices.firstLabel < 1 || choices.firstLabel > options.stock.Labels()) {
    throw UsageError(fmt::format("a primeira etiqueta vai de 1 a {} na folha {}, e não pode ser {}",
                                 options.stock.Labels(), options.stock.name, choices.firstLabel));
  }
  if (choices.copies < 1 || choices.copies > kMostCopies)
    throw UsageError(fmt::format("as cópias vão de 1 a {}, e não podem ser {}", kMostCopies, choices.copies));
  return options;
}

void LabelArguments::AddTo(CLI::App& command, const std::string& prefix) {
  command_ = &command;
  const auto described = [&](std::string text) {
    if (!prefix.empty()) text[0] = static_cast<char>(std::tolower(text[0]));
    return prefix + text;
  };
  command
      .add_option(
          "--folha", choices_.stock,
          described(fmt::format("A folha, como a4-2x7, ou a etiqueta de um rolo, como 100x50mm (sem esta opção, {})",
                                choices_.stock)))
      ->option_text("FOLHA");
  command
      .add_option("--primeira", choices_.firstLabel,
                  described("A primeira etiqueta livre da folha, linha a linha (sem esta opção, 1)"))
      ->option_text("NÚMERO");
  command.add_option("--copias", choices_.copies, described("Quantas cópias de cada etiqueta (sem esta opção, 1)"))
      ->option_text("NÚMERO");
  command.add_option("--codigo", choices_.code, described("O código: code128, qr ou nenhum (sem esta opção, code128)"))
      ->option_text("CÓDIGO");
}

void LabelArguments::AddAllTo(CLI::App& command) {
  AddTo(command, "");
  command.add_option("--folha-propria", choices_.ownStock, "As medidas de outra folha, em milímetros")
      ->option_text("MEDIDAS");
  command.add_option("--folhas-de", stockFile_, "Um arquivo com outras folhas, uma por linha: NOME = MEDIDAS")
      ->option_text("ARQUIVO");
  command.add_option("--ajuste", choices_.shift, "Desloca tudo na página, em milímetros, como 1,-2")
      ->option_text("X,Y");
  command.add_flag("--contorno", choices_.outline, "Desenha as bordas das etiquetas, para um teste em papel comum");
  command.add_option("--logotipo", logo_, "Uma imagem PNG para o canto de cada etiqueta")->option_text("ARQUIVO");
}

void LabelArguments::RefuseFor(const std::string& report) const {
  for (const char* const option : {"--folha", "--primeira", "--copias", "--codigo"}) {
    if (IsGiven(option))
      throw UsageError(fmt::format("{} só vale com um relatório de etiquetas, e {} não é um deles", option, report));
  }
}

bool LabelArguments::IsGiven(const std::string& name) const {
  const CLI::Option* const option = command_->get_option_no_throw(name);
  return option != nullptr && option->count() > 0;
}

PrintOptions LabelArguments::Options() const {
  for (const char* const other : {"--folha", "--folhas-de"}) {
    if (!choices_.ownStock.empty() && IsGiven(other))
      throw UsageError(fmt::format("--folha-propria já diz qual é a folha, e não pode ser usada com {}", other));
  }
  std::vector<Stock> stocks = BuiltInStocks();
  if (!stockFile_.empty()) {
    const std::vector<Stock> more = ParseStocks(stockFile_, ReadInputFile(FromUtf8(stockFile_), kLargestStockFile));
    stocks.insert(stocks.end(), more.begin(), more.end());
  }
  PrintOptions options = PrintOptionsOf(choices_, stocks);
  if (!logo_.empty()) options.logo = std::make_shared<const Picture>(ReadPicture(FromUtf8(logo_)));
  return options;
}

std::string EdgeWarning(const Stock& stock) {
  const Length distance = DistanceToEdge(stock);
  if (stock.IsRoll() || distance >= kUnprintable) return {};
  return fmt::format(
      "na folha {}, as etiquetas ficam a {} mm da borda do papel, e muitas impressoras não imprimem a menos de {} mm; "
      "confira com um teste",
      stock.name, MillimetresText(distance), MillimetresText(kUnprintable));
}

}  // namespace kodra::console::labels
