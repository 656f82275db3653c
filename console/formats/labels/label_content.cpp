// The labels, one function each.
#include "console/formats/labels/label_content.h"

#include <cmath>

#include "console/reports/guide.h"
#include "reports/modules/module_code.h"

namespace kodra::console::labels {
namespace {

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

std::wstring ModulesText(const std::vector<std::wstring>& modules) {
  std::wstring text;
  for (const std::wstring& module : modules) text += (text.empty() ? L"" : L", ") + module;
  return text;
}

}  // namespace

Label OpeningLabel(const RowReader& row) {
  return {.kind = L"ABERTURA DE MÓDULO",
          .number = row.Text("NUM_CAIXA"),
          .description = row.Text("DESC_CAIXA"),
          .facts = RetentionText(row.Text("TIPO_GUARDA"), {}, row.Text("ANOS_VENCIMENTO"))};
}

Label ClosingLabel(const RowReader& row) {
  return {.kind = L"FECHAMENTO DE MÓDULO",
          .organisation = row.Text("Nome_Empresa"),
          .number = row.Text("NUM_CAIXA"),
          .description = row.Text("DESC_CAIXA"),
          .facts = Joined(DocumentsText(row.Text("DOC_INICIAL"), row.Text("DOC_FINAL")),
                          RetentionText(row.Text("TIPO_GUARDA"), row.Get("DATA_VENCIMENTO"), L""))};
}

Label DividerLabel(const RowReader& row, const std::wstring& module) {
  return {.kind = L"DIVISÓRIA", .number = row.Text("COD_DOCTO"), .facts = L"módulo " + module};
}

Label ContainerLabel(const RowReader& row, const ContainerModules& modules) {
  const std::wstring number = row.Text("CONTAINER");
  const auto found = modules.find(number);
  return {.kind = L"ABERTURA DE CONTÊINER",
          .organisation = row.Text("NOME_EMPRESA"),
          .number = number,
          .description = found == modules.end() ? std::wstring() : L"Módulos: " + ModulesText(found->second),
          .facts = RetentionText(row.Text("TIPO_GUARDA"), row.Get("DATA_VENCIMENTO"), L"")};
}

std::wstring PlaceText(const RowReader& row) {
  std::wstring text;
  for (const auto& [column, caption] :
       std::vector<std::pair<std::string_view, std::wstring>>{{"FILEIRA", L"fileira"},
                                                              {"ESTANTE", L"estante"},
                                                              {"PRATELEIRA", L"prateleira"},
                                                              {"DEPOSITO", L"depósito"}}) {
    const std::wstring value = row.Text(column);
    if (value.empty()) continue;
    text.append(text.empty() ? L"" : L", ").append(caption).append(L" ").append(value);
  }
  return text;
}

std::wstring RetentionText(std::wstring_view kind, const Value& until, std::wstring_view years) {
  const bool dated = until.Is<Date>() && until.As<Date>().days != 0;
  if (kind == L"E") return L"conteúdo descartado";
  if (kind == L"D") return L"descarte após o fechamento";
  std::wstring text = kind == L"T" ? L"guarda por prazo" : kind.empty() ? L"" : L"guarda " + std::wstring(kind);
  if (!years.empty() && years != L"0") text += L", " + std::wstring(years) + (years == L"1" ? L" ano" : L" anos");
  if (dated)
    text +=
        (text.empty() ? L"até " : L", até ") + BrazilianText(Date{std::floor(until.As<Date>().days)}, ColumnKind::kDay);
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
      return [module = reports::MainModule(ParameterNamed(heading, L"Modulo1"))](const RowReader& row) {
        return DividerLabel(row, module);
      };
    case guide::PageKind::kContainerLabels:
      return [modules = containerModules ? containerModules() : ContainerModules()](const RowReader& row) {
        return ContainerLabel(row, modules);
      };
    case guide::PageKind::kListing:
    case guide::PageKind::kStatistic:
      break;
  }
  return nullptr;
}

}  // namespace kodra::console::labels
