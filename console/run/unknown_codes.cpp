#include "console/run/unknown_codes.h"

#include <fmt/format.h>
#include <algorithm>
#include <array>

#include "console/reports/guide.h"
#include "data/abre_firehose_rs.h"
#include "values/erro.h"
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
};

constexpr auto kCodes = std::to_array<CodeParameter>({
    {L"CodDepto", L"DEPTO", L"COD_DEPTO", "nenhum departamento"},
    {L"CodOperador", L"OPERADOR", L"COD_OPERADOR", "nenhum operador"},
    {L"CodGrupo", L"GRUPO", L"COD_GRUPO", "nenhum subgrupo"},
    {L"CodModelo", L"MODELO", L"COD_MODELO", "nenhum modelo"},
    {L"CodDocto", L"DOCUMENTO", L"COD_DOCTO", "nenhum documento"},
    {L"Modulo1", L"CAIXA", L"NUM_CAIXA", "nenhum módulo principal"},
    {L"Modulo2", L"CAIXA", L"NUM_CAIXA", "nenhum módulo principal"},
    {L"Modulo3", L"CAIXA", L"NUM_CAIXA", "nenhum módulo principal"},
    {L"Container1", L"CONTAINER", L"NUM_CONTAINER", "nenhum contêiner"},
    {L"Container2", L"CONTAINER", L"NUM_CONTAINER", "nenhum contêiner"},
    {L"Container3", L"CONTAINER", L"NUM_CONTAINER", "nenhum contêiner"},
});

// The code as its table has it: a subordinate module begins with the code of its main module.
std::wstring Key(const CodeParameter& code, const std::wstring& value) {
  constexpr std::size_t kMainModuleLetters = 5;
  return code.table == L"CAIXA" ? value.substr(0, kMainModuleLetters) : value;
}

bool IsKnown(const CodeParameter& code, const std::wstring& value, const std::wstring& connection,
             platform::Surroundings& surroundings) {
  const std::wstring statement = L"SELECT " + std::wstring(code.column) + L" FROM " + std::wstring(code.table) +
                                 L" WHERE " + std::wstring(code.column) + L" = '" + Key(code, value) + L"'";
  std::unique_ptr<platform::Connection> own;
  const auto rows =
      data::AbreFirehoseRs(std::wstring_view(statement), connection, platform::ad::kCmdText, own, surroundings);
  return !rows->Eof();
}

}  // namespace

std::vector<std::string> UnknownCodes(frame::ParameterObject& parameters, const reports::ReportMethod& method,
                                      const std::wstring& connection, platform::Surroundings& surroundings) {
  std::vector<std::string> messages;
  for (const guide::Parameter& parameter : guide::About(method).parameters) {
    const std::wstring name = values::FromUtf8(parameter.name);
    const auto code = std::ranges::find(kCodes, name, &CodeParameter::name);
    if (code == kCodes.end()) continue;
    const std::wstring value = parameters.Get(name).As<std::wstring>();
    // A quote or a backslash would end the text of the statement or change it.
    if (value.empty() || value.find_first_of(L"'\\") != value.npos) continue;
    try {
      if (!IsKnown(*code, value, connection, surroundings))
        messages.push_back(
            fmt::format("{} tem o código \"{}\", de --{}", code->nobody, ToUtf8(Key(*code, value)), parameter.name));
    } catch (const Erro&) {
      return messages;
    }
  }
  return messages;
}

}  // namespace kodra::console
