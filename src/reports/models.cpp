// The document models: the contents with which they fill the index keys of a series in advance, and until when.
#include "data/abre_cn.h"
#include "frame/parameter_reader.h"
#include "reports/reports.h"
#include "values/upper.h"

namespace kodra::reports {
namespace {

namespace ad = platform::ad;

constexpr std::size_t kCodeSize = 128;

// The code as the database compares it. It is cut first, so that blanks at the new end are removed too.
std::wstring ComparedCode(std::wstring_view code) { return values::UpperCase(values::Trim(code.substr(0, kCodeSize))); }

// The rows stay readable without their command; a command that cannot be detached is left attached.
void Detach(platform::Command& command) {
  try {
    if (command.HasActiveConnection()) command.SetActiveConnection(nullptr);
  } catch (...) {  // NOLINT(bugprone-empty-catch): see above
  }
}

}  // namespace

// Reads CodModelo: empty lists every model, otherwise the one with that code, in any letter case. The code is a
// parameter of the command, at most 128 characters long. The rows are at the client and survive their connection.
frame::ReportRows CModeloRpt::RelatorioModelos(Call& call) {
  call.InicializaPS();
  const std::wstring code = frame::ReadText(call.Parameters(), L"CodModelo");
  std::wstring statement =
      L"SELECT c.DESCR_CLASSE AS GRUPO, g.DESCR_GRUPO AS SUBGRUPO, a.DESCR_ASSUNTO AS SERIE, "
      L"a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, "
      L"m.CHAVE1, m.CHAVE2, m.CHAVE3, m.CHAVE4, m.CHAVE5, "
      L"m.VALIDADE "
      L"FROM MODELO m "
      L"INNER JOIN GRUPO g ON m.COD_GRUPO = g.COD_GRUPO "
      L"LEFT JOIN CLASSE c ON c.COD_CLASSE = g.COD_CLASSE "
      L"INNER JOIN ASSUNTO a ON m.COD_ASSUNTO = a.COD_ASSUNTO ";
  if (!code.empty()) statement += L"WHERE UPPER(m.COD_MODELO) = ? ";
  statement += L"ORDER BY c.DESCR_CLASSE, g.DESCR_GRUPO, a.DESCR_ASSUNTO";

  const auto command = call.Around().NewCommand();
  const auto connection = data::AbreCn(call.StringConexao(), ad::kUseServer, ad::kXactReadCommitted, call.Around());
  command->SetActiveConnection(connection.get());
  command->SetCommandText(statement);
  command->SetCommandType(ad::kCmdText);
  if (!code.empty())
    command->AppendParameter(L"COD_MODELO", ad::kVarChar, ad::kParamInput, kCodeSize, ComparedCode(code));

  auto recordset = call.Around().NewRecordset();
  recordset->SetCursorType(ad::kOpenDynamic);
  recordset->SetCursorLocation(ad::kUseClient);
  recordset->Open(command.get(), std::monostate{}, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified);
  Detach(*command);
  return recordset;
}

}  // namespace kodra::reports
