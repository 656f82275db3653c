// The labels, one function each.
#include "console/formats/labels/label_content.h"

#include <cmath>

#include "console/reports/guide.h"

namespace kodra::console::labels {
namespace {

constexpr std::size_t kModuleDigits = 5;

std::wstring ParameterNamed(const Heading& heading, std::wstring_view name) {
  for (const auto& [known, value] : heading.parameters) {
    if (known == name) return value;
  }
  return {};
}

// "documentos A a B", or the one of the two that is known.
std::wstring DocumentsText(const std::wstring& first, const std::wstring& last) {
  if (first.empty() && last.empty()) return {};
  if (last.empty()) return L"documentos desde " + first;
  if (first.empty()) return L"documentos até " + last;
  return L"documentos " + first + L" a " + last;
}

std::wstring Joined(const std::wstring& first, const std::wstring& second) {
  return first.empty() || second.empty() ? first + second : first + L" · " + second;
}

Label OpeningLabel(const RowReader& row) {
  const std::wstring number = row.Text("NUM_CAIXA");
  return {.kind = L"ABERTURA DE MÓDULO",
          .number = number,
          .description = row.Text("DESC_CAIXA"),
          .facts = RetentionText(row.Text("TIPO_GUARDA"), {}, row.Text("ANOS_VENCIMENTO")),
          .barcode = number};
}

Label ClosingLabel(const RowReader& row) {
  const std::wstring number = row.Text("NUM_CAIXA");
  return {.kind = L"FECHAMENTO DE MÓDULO",
          .company = row.Text("Nome_Empresa"),
          .number = number,
          .description = row.Text("DESC_CAIXA"),
          .facts = Joined(DocumentsText(row.Text("DOC_INICIAL"), row.Text("DOC_FINAL")),
                          RetentionText(row.Text("TIPO_GUARDA"), row.Get("DATA_VENCIMENTO"), L"")),
          .barcode = number};
}

// A divider is put before a document within the module, whose number is not among the columns.
Label DividerLabel(const RowReader& row, const std::wstring& module) {
  return {.kind = L"DIVISÓRIA", .number = row.Text("COD_DOCTO"), .facts = L"módulo " + module, .barcode = module};
}

std::wstring ModulesText(const std::vector<std::wstring>& modules) {
  std::wstring text;
  for (const std::wstring& module : modules) text += (text.empty() ? L"" : L", ") + module;
  return text;
}

Label ContainerLabelOf(const RowReader& row, const ContainerModules& containerModules) {
  const std::wstring number = row.Text("CONTAINER");
  const auto modules = containerModules.find(number);
  return {
      .kind = L"ABERTURA DE CONTAINER",
      .company = row.Text("NOME_EMPRESA"),
      .number = number,
      .description = modules == containerModules.end() ? std::wstring() : L"Módulos: " + ModulesText(modules->second),
      .facts = RetentionText(row.Text("TIPO_GUARDA"), row.Get("DATA_VENCIMENTO"), L""),
      .barcode = number};
}

}  // namespace

std::wstring RetentionText(std::wstring_view kind, const Value& until, std::wstring_view years) {
  const bool dated = until.Is<Date>() && until.As<Date>().days != 0;
  if (kind == L"E") return L"conteúdo descartado";
  if (kind == L"D") return L"descarte após o fechamento";
  std::wstring text = kind == L"T" ? L"guarda por prazo" : kind.empty() ? L"" : L"guarda " + std::wstring(kind);
  if (!years.empty() && years != L"0") text += L", " + std::wstring(years) + (years == L"1" ? L" ano" : L" anos");
  if (dated) text += (text.empty() ? L"até " : L", até ") + BrazilianText(Date{std::floor(until.As<Date>().days)});
  return text;
}

LabelMaker LabelMakerOf(const Heading& heading, const std::function<ContainerModules()>& containerModules) {
  const guide::Report* report = guide::Find(heading.className, heading.method);
  if (report == nullptr) return nullptr;
  switch (report->page.kind) {
    case guide::PageKind::kOpeningLabels:
      return OpeningLabel;
    case guide::PageKind::kClosingLabels:
      return ClosingLabel;
    case guide::PageKind::kDividerLabels:
      return [module = ParameterNamed(heading, L"Modulo1").substr(0, kModuleDigits)](const RowReader& row) {
        return DividerLabel(row, module);
      };
    case guide::PageKind::kContainerLabels:
      return [modules = containerModules ? containerModules() : ContainerModules()](const RowReader& row) {
        return ContainerLabelOf(row, modules);
      };
    case guide::PageKind::kListing:
    case guide::PageKind::kStatistic:
      break;
  }
  return nullptr;
}

}  // namespace kodra::console::labels
