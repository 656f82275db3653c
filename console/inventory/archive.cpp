#include "console/inventory/archive.h"

#include <fmt/format.h>
#include <algorithm>

#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "reports/documents/slip_text.h"
#include "reports/modules/module_code.h"
#include "values/utf8.h"

namespace kodra::console::inventory {
namespace {

using values::ToUtf8;

// Raises UsageError unless the code is one of the known ones.
void RequireKnown(const std::wstring& code, const std::vector<std::wstring>& known, std::string_view what,
                  std::string_view list) {
  if (std::ranges::find(known, code) != known.end()) return;
  std::vector<std::string> candidates;
  candidates.reserve(known.size());
  for (const std::wstring& each : known) candidates.push_back(ToUtf8(each));
  throw UsageError(fmt::format("{} \"{}\" não está na relação de {} do acervo{}", what, ToUtf8(code), list,
                               DidYouMean(ToUtf8(code), candidates)));
}

// When a document comes back. The kind of a request: P permanently, I without a date, D on a date.
std::wstring ReturnWords(const RowReader& row) {
  const std::wstring kind = row.Text("DEVOLVIDO");
  if (kind == L"P") return L"permanente";
  if (kind == L"I") return L"sem data";
  return row.Text("DT_DEVOLUCAO");
}

}  // namespace

std::vector<Item> Archive::DocumentsOf(std::span<const std::wstring> modules) {
  std::vector<std::wstring> known;
  for (const auto& [code, location] : Locations()) known.push_back(code);
  for (const std::wstring& module : modules) {
    RequireKnown(module, known, "o módulo", "módulos");
    if (reports::NamesMainModule(module)) continue;
    throw UsageError(
        fmt::format("o módulo \"{}\" é subordinado, e o acervo não diz quais documentos estão nele: "
                    "informe o módulo principal, {}",
                    ToUtf8(module), ToUtf8(reports::MainModule(module))));
  }
  std::vector<Item> items;
  for (const std::wstring& module : modules) {
    reader_.ForEachRow(L"CCaixaRpt", L"DocsNoModuloSubRpt", {{L"Modulo1", module}}, [&](const RowReader& row) {
      items.push_back({row.Text("COD_DOCTO"), module, LocationOf(module)});
    });
  }
  return items;
}

std::vector<Item> Archive::ModulesOf(std::span<const std::wstring> containers) {
  const std::vector<std::wstring> known = ContainerCodes();
  for (const std::wstring& container : containers) RequireKnown(container, known, "o contêiner", "contêineres");
  std::vector<Item> items;
  for (const std::wstring& container : containers)
    ForEachModule(container, container, container, [&](const Item& item) { items.push_back(item); });
  return items;
}

std::vector<Item> Archive::FindDocuments(const std::set<std::wstring>& codes) {
  std::vector<Item> items;
  if (codes.empty()) return items;
  reader_.ForEachRow(L"CDocumentoRpt", L"RelatorioSintetico", {}, [&](const RowReader& row) {
    const std::wstring code = row.Text("COD_DOCTO");
    if (!codes.contains(code)) return;
    const std::wstring module = row.Text("NUM_CAIXA");
    items.push_back({code, module, LocationOf(module)});
  });
  return items;
}

std::vector<Item> Archive::FindModules(const std::set<std::wstring>& codes) {
  std::vector<Item> items;
  for (const std::wstring& code : codes)
    if (Locations().contains(code)) items.push_back({code, {}, LocationOf(code)});
  if (items.empty()) return items;
  // They are in the order of their codes, like the set.
  const auto setPlace = [&](const Item& inContainer) {
    const auto item = std::ranges::lower_bound(items, inContainer.code, {}, &Item::code);
    if (item != items.end() && item->code == inContainer.code) item->place = inContainer.place;
  };
  const std::vector<std::wstring> containers = ContainerCodes();
  for (std::size_t i = 0; i < containers.size(); i += 3) {
    const std::size_t last = containers.size() - 1;
    ForEachModule(containers[i], containers[std::min(i + 1, last)], containers[std::min(i + 2, last)], setPlace);
  }
  return items;
}

std::wstring Archive::MainModuleOf(const std::wstring& code) {
  return Locations().contains(code) ? reports::MainModule(code) : code;
}

Loans Archive::ReadLoans() {
  Loans loans;
  reader_.ForEachRow(L"CSolicitacaoRpt", L"RelatorioDevolucaoOriginal", {}, [&](const RowReader& row) {
    loans.try_emplace(row.Text("COD_DOCTO"),
                      Loan{row.Text("DESCR_OPERADOR"), row.Text("DT_RETIRADA"), ReturnWords(row)});
  });
  return loans;
}

void Archive::ForEachModule(const std::wstring& first, const std::wstring& second, const std::wstring& third,
                            const std::function<void(const Item&)>& visit) {
  // An empty code would add the modules whose container is the empty text, so each of the three is always given.
  reader_.ForEachRow(L"CContainerRpt", L"EtiquetaAberturaSubRpt",
                     {{L"Container1", first}, {L"Container2", second}, {L"Container3", third}},
                     [&](const RowReader& row) {
                       const std::wstring module = row.Text("NUM_CAIXA");
                       visit({module, row.Text("CONTAINER"), LocationOf(module)});
                     });
}

const std::map<std::wstring, std::wstring>& Archive::Locations() {
  if (locations_) return *locations_;
  locations_.emplace();
  reader_.ForEachRow(L"CCaixaRpt", L"RelatoriosModulos", {}, [&](const RowReader& row) {
    locations_->emplace(row.Text("NUM_CAIXA"),
                        reports::PlaceText(row.Text("FILEIRA"), row.Text("ESTANTE"), row.Text("PRATELEIRA")));
  });
  return *locations_;
}

std::wstring Archive::LocationOf(const std::wstring& module) {
  const auto found = Locations().find(module);
  return found == Locations().end() ? std::wstring() : found->second;
}

std::vector<std::wstring> Archive::ContainerCodes() {
  std::vector<std::wstring> codes;
  reader_.ForEachRow(L"CContainerRpt", L"RelatorioContainers", {},
                     [&](const RowReader& row) { codes.push_back(row.Text("NUM_CONTAINER")); });
  return codes;
}

}  // namespace kodra::console::inventory
