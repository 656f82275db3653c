#include "console/papers/papers.h"

#include <fmt/format.h>
#include <algorithm>

#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"

namespace kodra::console::papers {
namespace {

constexpr auto kPapers = std::to_array<Paper>({
    {"retirada", "Comprovante de retirada de originais, em duas vias", L"CSolicitacaoRpt", L"RelatorioRetiradaOriginal",
     L"CodSolicit", PrintWithdrawalSlip},
    {"originais", "Originais fora do arquivo, com os vencidos em destaque, e os já devolvidos", L"CSolicitacaoRpt",
     L"RelatorioDevolucaoOriginal", L"", PrintOriginals},
    {"descarte", "Autorização para descartar os documentos de um módulo", L"CCaixaRpt", L"DocsNoModulo", L"Modulo1",
     PrintDiscardAuthorisation},
    {"modulo", "Folha de um módulo: onde está, até quando e o que contém", L"CCaixaRpt", L"DocsNoModulo", L"Modulo1",
     PrintModuleSheet},
});

}  // namespace

std::span<const Paper> Papers() { return kPapers; }

const Paper& PaperNamed(std::string_view name) {
  const std::string folded = Folded(name);
  const auto found = std::ranges::find(kPapers, folded, &Paper::name);
  if (found != kPapers.end()) return *found;
  std::vector<std::string> known;
  known.reserve(std::size(kPapers));
  for (const Paper& paper : kPapers) known.emplace_back(paper.name);
  throw UsageError(fmt::format("o papel \"{}\" não existe{}; escolha entre {}", name, DidYouMean(folded, known),
                               fmt::join(known, ", ")));
}

}  // namespace kodra::console::papers
