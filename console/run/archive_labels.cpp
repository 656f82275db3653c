#include "console/run/archive_labels.h"

#include <algorithm>
#include <map>

#include "reports/modules/module_code.h"
#include "values/erro.h"
#include "values/upper.h"

namespace kodra::console {
namespace {

using labels::Label;

constexpr std::size_t kCodesACall = 3;

bool IsSubordinate(std::wstring_view code) { return code.size() > reports::kModuleCodeSize; }

// A database that ignores letter case may return a code in another case than the one asked for.
struct BeforeIgnoringCase {
  bool operator()(const std::wstring& one, const std::wstring& other) const {
    return values::UpperCase(one) < values::UpperCase(other);
  }
};

// The first label of each code.
using LabelsByCode = std::map<std::wstring, Label, BeforeIgnoringCase>;

std::vector<std::wstring> Distinct(std::vector<std::wstring> codes) {
  std::ranges::sort(codes);
  codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
  return codes;
}

}  // namespace

void ArchiveLabels::ForEachRowOf(std::wstring_view className, std::wstring_view method, const std::wstring& parameter,
                                 const std::vector<std::wstring>& codes, const std::wstring& type,
                                 const std::function<void(const RowReader&)>& visit) {
  for (std::size_t first = 0; first < codes.size() && reader_.GoesOn(); first += kCodesACall) {
    ReportReader::Parameters parameters;
    if (!type.empty()) parameters.emplace_back(L"Tipo", type);
    const std::size_t count = std::min(kCodesACall, codes.size() - first);
    for (std::size_t i = 0; i < count; ++i)
      parameters.emplace_back(parameter + std::to_wstring(i + 1), codes[first + i]);
    reader_.ForEachRow(className, method, parameters, visit);
  }
}

std::vector<std::wstring> ArchiveLabels::CodesIn(LabelKind kind, const CodeRange& range) {
  const bool containers = kind == LabelKind::kContainers;
  const std::wstring& bound = range.first.empty() ? range.last : range.first;
  const std::size_t letters = bound.empty() ? reports::kModuleCodeSize : bound.size();
  const std::wstring first = values::UpperCase(range.first), last = values::UpperCase(range.last);
  std::vector<std::wstring> codes;
  const auto take = [&](const std::wstring& code) {
    const std::wstring upper = values::UpperCase(code);
    const bool isInside = upper >= first && (last.empty() || upper <= last);
    if (isInside && !code.empty() && (containers || code.size() == letters)) codes.push_back(code);
  };
  if (containers)
    reader_.ForEachRow(L"CContainerRpt", L"RelatorioContainers", {},
                       [&](const RowReader& row) { take(row.Text("NUM_CONTAINER")); });
  else
    reader_.ForEachRow(L"CCaixaRpt", L"RelatoriosModulos", {{L"CodDepto", range.department}},
                       [&](const RowReader& row) { take(row.Text("NUM_CAIXA")); });
  return Distinct(std::move(codes));
}

std::vector<std::vector<Label>> ArchiveLabels::LabelsOf(LabelKind kind, const std::vector<std::wstring>& codes) {
  std::vector<std::vector<Label>> found;
  if (kind == LabelKind::kSubordinates || kind == LabelKind::kDividers) {
    for (const std::wstring& code : codes) {
      if (!reader_.GoesOn()) break;
      found.push_back(kind == LabelKind::kDividers ? DividersOf(code) : SubordinatesOf(code));
    }
    return found;
  }
  const std::vector<std::wstring> distinct = Distinct(codes);
  LabelsByCode byCode;
  // Opening labels come twice.
  const auto take = [&](const Label& label) { byCode.try_emplace(label.number, label); };
  if (kind == LabelKind::kOpening) {
    std::vector<std::wstring> main, subordinate;
    for (const std::wstring& code : distinct) (IsSubordinate(code) ? subordinate : main).push_back(code);
    const auto takeRow = [&](const RowReader& row) { take(labels::OpeningLabel(row)); };
    ForEachRowOf(L"CCaixaRpt", L"EtiquetaAbertura", L"Modulo", main, L"N", takeRow);
    ForEachRowOf(L"CCaixaRpt", L"EtiquetaAbertura", L"Modulo", subordinate, L"S", takeRow);
  } else if (kind == LabelKind::kClosing) {
    ForEachRowOf(L"CCaixaRpt", L"EtiquetaFechamento", L"Modulo", distinct, {},
                 [&](const RowReader& row) { take(labels::ClosingLabel(row)); });
  } else {
    const labels::ContainerModules modules = ModulesOf(distinct);
    ForEachRowOf(L"CContainerRpt", L"EtiquetaAbertura", L"Container", distinct, {},
                 [&](const RowReader& row) { take(labels::ContainerLabel(row, modules)); });
  }
  for (const std::wstring& code : codes) {
    const auto label = byCode.find(code);
    found.emplace_back();
    if (label != byCode.end()) found.back().push_back(label->second);
  }
  return found;
}

std::wstring ArchiveLabels::Organisation(const std::vector<std::wstring>& modules) {
  std::vector<std::wstring> first;
  for (std::size_t i = 0; i < std::min(kCodesACall, modules.size()); ++i)
    first.push_back(reports::MainModule(modules[i]));
  std::wstring organisation;
  ForEachRowOf(L"CCaixaRpt", L"EtiquetaFechamento", L"Modulo", first, {},
               [&](const RowReader& row) { organisation = row.Text("Nome_Empresa"); });
  return organisation;
}

std::wstring ArchiveLabels::PlaceOf(std::wstring_view module) {
  std::wstring place;
  reader_.ForEachRow(L"CCaixaRpt", L"DocsNoModulo", {{L"Modulo1", reports::MainModule(module)}},
                     [&](const RowReader& row) { place = labels::PlaceText(row); });
  return place;
}

labels::ContainerModules ArchiveLabels::ModulesOf(const std::vector<std::wstring>& containers) {
  labels::ContainerModules modules;
  ForEachRowOf(L"CContainerRpt", L"EtiquetaAberturaSubRpt", L"Container", containers, {},
               [&](const RowReader& row) { modules[row.Text("CONTAINER")].push_back(row.Text("NUM_CAIXA")); });
  return modules;
}

bool ArchiveLabels::Exists(const std::wstring& module) {
  bool exists = false;
  reader_.ForEachRow(L"CCaixaRpt", L"EtiquetaAbertura", {{L"Modulo1", module}},
                     [&](const RowReader&) { exists = true; });
  return exists;
}

std::vector<Label> ArchiveLabels::SubordinatesOf(const std::wstring& module) {
  std::vector<Label> found;
  try {
    reader_.ForEachRow(L"CCaixaRpt", L"EtiquetaFechamentoSubordinada", {{L"Modulo1", module}},
                       [&](const RowReader& row) { found.push_back(labels::ClosingLabel(row)); });
  } catch (const Erro& error) {
    // The report fails for a module without closed subordinates, and in another way for an unknown module. Here both
    // are modules without labels.
    const auto says = [&](std::wstring_view text) { return error.Description().find(text) != std::wstring::npos; };
    const bool hasNone = says(L"Não há módulos subordinados fechados");
    const bool isUnknown = says(L"Não foi possível obter uma lista dos módulos subordinados") && !Exists(module);
    if (!hasNone && !isUnknown) throw;
  }
  return found;
}

std::vector<Label> ArchiveLabels::DividersOf(const std::wstring& module) {
  std::vector<Label> found;
  reader_.ForEachRow(L"CCaixaRpt", L"EtiquetaDivisoria", {{L"Modulo1", module}}, [&](const RowReader& row) {
    found.push_back(labels::DividerLabel(row, reports::MainModule(module)));
  });
  return found;
}

}  // namespace kodra::console
