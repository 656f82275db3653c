// Reads the measures of stock as people write them.
#include <fmt/format.h>
#include <algorithm>
#include <charconv>
#include <map>
#include <optional>

#include "console/command_line/suggest.h"
#include "console/command_line/text_lines.h"
#include "console/command_line/usage_error.h"
#include "console/formats/labels/millimetres.h"
#include "console/formats/labels/stock.h"

namespace kodra::console::labels {
namespace {

using pages::Length;
using pages::Size;

constexpr int kMostInARow = 100;
constexpr Length kLongestEdge = 2'000'000;
constexpr const char* kExample = "pagina=210x297 colunas=2 linhas=7 etiqueta=99,1x38,1 margem=4,65x15,15 vao=2,5x0";

const std::vector<std::string> kMeasures = {"pagina", "colunas", "linhas", "etiqueta", "margem", "vao"};

UsageError Wrong(const std::string& name, const std::string& reason) {
  return UsageError(fmt::format("a folha \"{}\" não serve: {}", name, reason));
}

// "99,1x38,1".
std::optional<Size> ParseSize(std::string_view text) {
  const std::size_t cross = text.find_first_of("xX");
  if (cross == text.npos) return std::nullopt;
  const std::optional<Length> width = ParseMillimetres(text.substr(0, cross));
  const std::optional<Length> height = ParseMillimetres(text.substr(cross + 1));
  return width && height ? std::optional<Size>({*width, *height}) : std::nullopt;
}

// "100x50mm".
std::optional<Size> ParseRoll(std::string_view text) {
  if (!text.ends_with("mm")) return std::nullopt;
  return ParseSize(text.substr(0, text.size() - 2));
}

// The measures of a sheet, by name.
class Measures {
 public:
  Measures(std::string name, std::string_view text) : name_(std::move(name)) {
    while (!(text = Trimmed(text)).empty()) {
      const std::string_view word = text.substr(0, text.find_first_of(" \t"));
      text.remove_prefix(word.size());
      const std::size_t equals = word.find('=');
      if (equals == word.npos)
        throw Wrong(name_, fmt::format("\"{}\" não é uma medida; o modelo é \"{}\" ou \"100x50mm\"", word, kExample));
      const std::string measure = Folded(word.substr(0, equals));
      if (std::ranges::find(kMeasures, measure) == kMeasures.end()) {
        throw Wrong(name_, fmt::format("a medida \"{}\" não existe{}; as medidas são {}", measure,
                                       DidYouMean(measure, kMeasures), fmt::join(kMeasures, ", ")));
      }
      if (!values_.emplace(measure, word.substr(equals + 1)).second)
        throw Wrong(name_, fmt::format("a medida \"{}\" aparece duas vezes", measure));
    }
  }

  // The measure, or `otherwise` if it is not given.
  Size SizeOf(const std::string& measure, std::optional<Size> otherwise = {}) const {
    const auto found = values_.find(measure);
    if (found == values_.end() && otherwise) return *otherwise;
    if (found == values_.end()) throw Wrong(name_, "falta a medida \"" + measure + "\"");
    if (const std::optional<Size> size = ParseSize(found->second)) return *size;
    throw Wrong(name_, fmt::format("\"{}={}\" não tem a forma LARGURAxALTURA, em milímetros", measure, found->second));
  }

  int CountOf(const std::string& measure) const {
    const auto found = values_.find(measure);
    if (found == values_.end()) return 1;
    const std::string& text = found->second;
    int count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc() || end != text.data() + text.size() || count < 1 || count > kMostInARow)
      throw Wrong(name_, fmt::format("\"{}={}\" não é um número de 1 a {}", measure, text, kMostInARow));
    return count;
  }

 private:
  std::string name_;
  std::map<std::string, std::string> values_;
};

void Check(const Stock& stock) {
  const auto [width, height] = stock.label;
  if (width <= 0 || height <= 0) throw Wrong(stock.name, "a etiqueta precisa de largura e de altura");
  if (stock.page.width > kLongestEdge || stock.page.height > kLongestEdge)
    throw Wrong(stock.name, fmt::format("a página passa de {} mm", MillimetresText(kLongestEdge)));
  if (width > stock.page.width || height > stock.page.height) {
    throw Wrong(stock.name, fmt::format("a etiqueta de {} mm é maior que a página de {} mm",
                                        MillimetresText(stock.label), MillimetresText(stock.page)));
  }
  if ((stock.columns > 1 && stock.gap.width < 0) || (stock.rows > 1 && stock.gap.height < 0))
    throw Wrong(stock.name, fmt::format("com vãos de {} mm, as etiquetas se sobrepõem", MillimetresText(stock.gap)));
  if (DistanceToEdge(stock) < 0) {
    const pages::Rectangle last = CellOf(stock, stock.Labels() - 1);
    throw Wrong(stock.name,
                fmt::format("as etiquetas saem da página de {} mm: com as margens e os vãos, ocupam {} mm",
                            MillimetresText(stock.page), MillimetresText(Size{last.Right(), last.Bottom()})));
  }
}

}  // namespace

Stock ParseStock(const std::string& name, std::string_view text) {
  text = Trimmed(text);
  Stock stock = {name, {}, 1, 1, {}, {}, {}};
  if (const std::optional<Size> roll = ParseRoll(text)) {
    stock.page = stock.label = *roll;
  } else {
    const Measures measures(name, text);
    stock = {name,
             measures.SizeOf("pagina"),
             measures.CountOf("colunas"),
             measures.CountOf("linhas"),
             measures.SizeOf("etiqueta"),
             measures.SizeOf("margem", Size{}),
             measures.SizeOf("vao", Size{})};
  }
  Check(stock);
  return stock;
}

std::vector<Stock> ParseStocks(const std::string& fileName, std::string_view text) {
  std::vector<Stock> stocks;
  int number = 0;
  for (const std::string_view line : TrimmedLines(text)) {
    ++number;
    if (line.empty() || line.front() == '#' || line.front() == ';') continue;
    const auto wrong = [&](const std::string& reason) {
      return UsageError(fmt::format("\"{}\", linha {}: {}", fileName, number, reason));
    };
    const std::size_t equals = line.find('=');
    const std::string name = Folded(Trimmed(line.substr(0, equals)));
    if (equals == line.npos || name.empty() || name.find(' ') != name.npos)
      throw wrong(fmt::format("falta o nome da folha; o modelo é \"minha = {}\"", kExample));
    for (const std::vector<Stock>* known : {&BuiltInStocks(), static_cast<const std::vector<Stock>*>(&stocks)}) {
      if (std::ranges::find(*known, name, &Stock::name) != known->end())
        throw wrong("já existe uma folha \"" + name + "\"");
    }
    try {
      stocks.push_back(ParseStock(name, line.substr(equals + 1)));
    } catch (const UsageError& error) {
      throw wrong(error.what());
    }
  }
  return stocks;
}

}  // namespace kodra::console::labels
