#include "console/command_line/error_message.h"

#include <fmt/format.h>
#include <algorithm>

#include "console/command_line/connection_error.h"
#include "console/command_line/report_name.h"
#include "console/reports/errors.h"
#include "console/reports/words.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::ToUtf8;

// The report that raised the error, by its source "KodraRpt.CDeptoRpt::RelatorioDeptos"; null for another source.
const reports::ReportMethod* ReportOf(const Erro& error) {
  const auto methods = reports::ReportMethods();
  const auto found = std::ranges::find_if(methods, [&](const reports::ReportMethod& method) {
    return error.Source() == std::wstring(kApplicationTitle) + L"." + std::wstring(method.className) + L"::" +
                                 std::wstring(method.method);
  });
  return found == methods.end() ? nullptr : &*found;
}

std::string WithoutFullStop(std::string text) {
  if (text.ends_with('.')) text.pop_back();
  return text;
}

}  // namespace

std::string ErrorMessage(const Erro& error, bool withDetails) {
  const std::string description = ToUtf8(error.Description());
  const reports::ReportMethod* const method = ReportOf(error);
  const bool isConnection = dynamic_cast<const ConnectionError*>(&error) != nullptr;
  const auto explanation = guide::Explain(description, method == nullptr ? nullptr : &guide::About(*method));

  const std::string report = method == nullptr ? "o relatório" : "o relatório " + NameOf(*method);
  const std::string failed =
      isConnection ? "não foi possível conectar ao banco de dados" : report + " não pôde ser gerado";
  const std::string cause = guide::CauseIn(description);
  std::string message = failed + (explanation ? ": " + WithoutFullStop(explanation->whatHappened) : "") + ".";
  // Unknown words may come from the database, a driver or a sibling component, in any language.
  if (!explanation) message += "\nMensagem recebida: " + cause;
  if (explanation && explanation->isAnswer) message += "\nResposta do banco ou do driver: " + cause;
  const std::string remedy = isConnection ? "Confira a string de conexão, e se o banco está no ar"
                                          : "Procure a mensagem no guia, ou mostre-a a quem cuida do banco de dados";
  message += "\nO que fazer: " + guide::Continued(explanation ? explanation->remedy : remedy) + ".";
  if (!withDetails) return message + "\nCom --detalhes, sai também a mensagem do componente.";
  return message + fmt::format("\nA mensagem do componente: erro {} em {}:\n{}", error.Number(), ToUtf8(error.Source()),
                               description);
}

}  // namespace kodra::console
