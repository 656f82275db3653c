// The labels, one function each.
#include "console/formats/html/label_content.h"

#include <cmath>

namespace kodra::console::html {
namespace {

constexpr std::size_t kModuleDigits = 5;

std::wstring ParameterNamed(const Heading& heading, std::wstring_view name) {
  for (const auto& [known, value] : heading.parameters) {
    if (known == name) return value;
  }
  return {};
}

// "de A a B", with what is there of the two.
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
  const std::wstring number = row.Text(L"NUM_CAIXA");
  return {.kind = L"ABERTURA DE MÓDULO",
          .number = number,
          .description = row.Text(L"DESC_CAIXA"),
          .facts = RetentionText(row.Text(L"TIPO_GUARDA"), {}, row.Text(L"ANOS_VENCIMENTO")),
          .barcode = number};
}

Label ClosingLabel(const RowReader& row) {
  const std::wstring number = row.Text(L"NUM_CAIXA");
  return {.kind = L"FECHAMENTO DE MÓDULO",
          .company = row.Text(L"Nome_Empresa"),
          .number = number,
          .description = row.Text(L"DESC_CAIXA"),
          .facts = Joined(DocumentsText(row.Text(L"DOC_INICIAL"), row.Text(L"DOC_FINAL")),
                          RetentionText(row.Text(L"TIPO_GUARDA"), row.Get(L"DATA_VENCIMENTO"), L"")),
          .barcode = number};
}

// A divider stands before a document within the module, whose number is not among the columns.
Label DividerLabel(const RowReader& row, const std::wstring& module) {
  return {.kind = L"DIVISÓRIA", .number = row.Text(L"COD_DOCTO"), .facts = L"módulo " + module, .barcode = module};
}

std::wstring ModulesText(const std::vector<std::wstring>& modules) {
  std::wstring text;
  for (const std::wstring& module : modules) text += (text.empty() ? L"" : L", ") + module;
  return text;
}

Label ContainerLabelOf(const RowReader& row, const ContainerModules& containerModules) {
  const std::wstring number = row.Text(L"CONTAINER");
  const auto modules = containerModules.find(number);
  return {
      .kind = L"ABERTURA DE CONTAINER",
      .company = row.Text(L"NOME_EMPRESA"),
      .number = number,
      .description = modules == containerModules.end() ? std::wstring() : L"Módulos: " + ModulesText(modules->second),
      .facts = RetentionText(row.Text(L"TIPO_GUARDA"), row.Get(L"DATA_VENCIMENTO"), L""),
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

bool GivesLabels(const Heading& heading) { return LabelMakerOf(heading, {}) != nullptr; }

LabelMaker LabelMakerOf(const Heading& heading, const std::function<ContainerModules()>& containerModules) {
  const auto is = [&](std::wstring_view className, std::wstring_view method) {
    return heading.className == className && heading.method == method;
  };
  if (is(L"CCaixaRpt", L"EtiquetaAbertura")) return OpeningLabel;
  if (is(L"CCaixaRpt", L"EtiquetaFechamento") || is(L"CCaixaRpt", L"EtiquetaFechamentoSubordinada"))
    return ClosingLabel;
  if (is(L"CCaixaRpt", L"EtiquetaDivisoria")) {
    return [module = ParameterNamed(heading, L"Modulo1").substr(0, kModuleDigits)](const RowReader& row) {
      return DividerLabel(row, module);
    };
  }
  if (is(L"CContainerRpt", L"EtiquetaAbertura")) {
    return [modules = containerModules ? containerModules() : ContainerModules()](const RowReader& row) {
      return ContainerLabelOf(row, modules);
    };
  }
  return nullptr;
}

}  // namespace kodra::console::html
