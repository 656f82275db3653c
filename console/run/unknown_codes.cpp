#include "console/run/unknown_codes.h"

#include <fmt/format.h>
#include <algorithm>
#include <array>

#include "console/reports/guide.h"
#include "data/abre_firehose_rs.h"
#include "reports/modules/module_code.h"
#include "values/erro.h"
#include "values/numbers.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::ToUtf8;

// A parameter that is the key of a table.
struct CodeParameter {
  std::wstring_view name;
  std::wstring_view table;
  std::wstring_view column;
  // As the message begins.
  std::string_view nobody;
  // Whether any row of the report shows that the code is right. A model is found in any letter case, and an event may
  // be about a document that no longer exists.
  bool isProvedByRows = false;
  // Whether the column has numbers, of which the parameter may list several.
  bool isNumber = false;
};

constexpr auto kCodes = std::to_array<CodeParameter>({
    {L"CodDepto", L"DEPTO", L"COD_DEPTO", "nenhum departamento"},
    {L"CodOperador", L"OPERADOR", L"COD_OPERADOR", "nenhum operador"},
    {L"CodGrupo", L"GRUPO", L"COD_GRUPO", "nenhum subgrupo"},
    {.name = L"CodModelo",
     .table = L"MODELO",
     .column = L"COD_MODELO",
     .nobody = "nenhum modelo",
     .isProvedByRows = true},
    {.name = L"CodDocto",
     .table = L"DOCUMENTO",
     .column = L"COD_DOCTO",
     .nobody = "nenhum documento",
     .isProvedByRows = true},
    {.name = L"CodSolicit",
     .table = L"SOLICITACAO",
     .column = L"COD_SOLICIT",
     .nobody = "nenhuma solicitação",
     .isNumber = true},
    {L"Modulo1", L"CAIXA", L"NUM_CAIXA", "nenhum módulo principal"},
    {L"Modulo2", L"CAIXA", L"NUM_CAIXA", "nenhum módulo principal"},
    {L"Modulo3", L"CAIXA", L"NUM_CAIXA", "nenhum módulo principal"},
    {L"Container1", L"CONTAINER", L"NUM_CONTAINER", "nenhum contêiner"},
    {L"Container2", L"CONTAINER", L"NUM_CONTAINER", "nenhum contêiner"},
    {L"Container3", L"CONTAINER", L"NUM_CONTAINER", "nenhum contêiner"},
});

// Whether the report takes the code for no filter: those of modules know departments by numbers above zero only.
bool IsNoFilter(const CodeParameter& code, const std::wstring& value, const reports::ReportMethod& method) {
  return code.name == L"CodDepto" && method.className == L"CCaixaRpt" && values::LeadingNumber(value) <= 0;
}

// The numbers in a list; none in a text that is no list of numbers.
std::vector<std::wstring> NumbersIn(const std::wstring& list) {
  constexpr const wchar_t* kDigits = L"0123456789";
  if (list.find_first_not_of(L"0123456789, ") != list.npos) return {};
  std::vector<std::wstring> numbers;
  for (std::size_t begin = list.find_first_of(kDigits); begin != list.npos;) {
    const std::size_t end = std::min(list.find_first_not_of(kDigits, begin), list.size());
    numbers.push_back(list.substr(begin, end - begin));
    begin = list.find_first_of(kDigits, end);
  }
  return numbers;
}

// The code as its table has it: a subordinate module begins with the code of its main module.
std::vector<std::wstring> Keys(const CodeParameter& code, const std::wstring& value) {
  if (code.isNumber) return NumbersIn(value);
  // A quote or a backslash would end the text of the statement or change it.
  if (value.empty() || value.find_first_of(L"'\\") != value.npos) return {};
  return {code.table == L"CAIXA" ? reports::MainModule(value) : value};
}

bool IsKnown(const CodeParameter& code, const std::wstring& key, const std::wstring& connection,
             std::unique_ptr<platform::Connection>& shared, platform::Surroundings& surroundings) {
  const std::wstring statement = L"SELECT " + std::wstring(code.column) + L" FROM " + std::wstring(code.table) +
                                 L" WHERE " + std::wstring(code.column) + L" = " +
                                 (code.isNumber ? key : L"'" + key + L"'");
  const auto rows =
      data::AbreFirehoseRs(std::wstring_view(statement), connection, platform::ad::kCmdText, shared, surroundings);
  return !rows->Eof();
}

}  // namespace

std::vector<UnknownCode> UnknownCodes(frame::ParameterObject& parameters, std::uint64_t rows,
                                      const reports::ReportMethod& method, const std::wstring& connection,
                                      platform::Surroundings& surroundings) {
  std::vector<UnknownCode> unknown;
  std::unique_ptr<platform::Connection> shared;  // by all statements
  for (const guide::Parameter& parameter : guide::About(method).parameters) {
    const std::wstring name = values::FromUtf8(parameter.name);
    const auto code = std::ranges::find(kCodes, name, &CodeParameter::name);
    if (code == kCodes.end() || (code->isProvedByRows && rows > 0)) continue;
    const std::wstring value = parameters.Get(name).As<std::wstring>();
    try {
      if (IsNoFilter(*code, value, method)) continue;
      for (const std::wstring& key : Keys(*code, value)) {
        if (IsKnown(*code, key, connection, shared, surroundings)) continue;
        unknown.push_back({parameter.name, fmt::format("{} tem o código \"{}\"", code->nobody, ToUtf8(key))});
      }
    } catch (const Erro&) {
      return unknown;
    }
  }
  return unknown;
}

}  // namespace kodra::console
