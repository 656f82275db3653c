#include "reports/catalog/modelo_rpt.h"

#include "data/abre_cn.h"
#include "frame/parameter_reader.h"
#include "values/upper.h"

namespace kodra::reports {
namespace {

namespace ad = platform::ad;
using enum data::JoinKind;

constexpr std::size_t kCodeSize = 128;

constexpr CatalogList Models(bool oneOnly) {
  return {
      .columns =
          L"c.DESCR_CLASSE AS GRUPO, g.DESCR_GRUPO AS SUBGRUPO, a.DESCR_ASSUNTO AS SERIE, "
          L"a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, "
          L"m.CHAVE1, m.CHAVE2, m.CHAVE3, m.CHAVE4, m.CHAVE5, "
          L"m.VALIDADE",
      .from = L"MODELO m",
      .joins = {{kInner, L"GRUPO g", L"m.COD_GRUPO = g.COD_GRUPO"},
                {kLeftOuter, L"CLASSE c", L"c.COD_CLASSE = g.COD_CLASSE"},
                {kInner, L"ASSUNTO a", L"m.COD_ASSUNTO = a.COD_ASSUNTO"}},
      .where = oneOnly ? std::wstring_view(L"UPPER(m.COD_MODELO) = ?") : L"",
      .orderBy = L"c.DESCR_CLASSE, g.DESCR_GRUPO, a.DESCR_ASSUNTO",
  };
}

constexpr CatalogList kAll = Models(false);
constexpr CatalogList kOne = Models(true);

// The code as the database compares it. Cut first: blanks that a cut uncovers go too.
std::wstring ComparedCode(std::wstring_view code) { return values::UpperCase(values::Trim(code.substr(0, kCodeSize))); }

// The rows stay readable without their command; a command that cannot be detached goes as it is.
void Detach(platform::Command& command) {
  try {
    if (command.HasActiveConnection()) command.SetActiveConnection(nullptr);
  } catch (...) {  // NOLINT(bugprone-empty-catch): see above
  }
}

}  // namespace

frame::ReportRows CModeloRpt::RelatorioModelos(AutomationObject* obj) {
  return Report(L"RelatorioModelos", [&] {
    InicializaPS(obj);
    const std::wstring code = frame::ReadText(*obj, L"CodModelo");
    const std::wstring_view statement = code.empty() ? kListStatement<kAll> : kListStatement<kOne>;

    const auto command = Around().NewCommand();
    const auto connection = data::AbreCn(StringConexao(), ad::kUseServer, ad::kXactReadCommitted, Around());
    command->SetActiveConnection(connection.get());
    command->SetCommandText(statement);
    command->SetCommandType(ad::kCmdText);
    if (!code.empty())
      command->AppendParameter(L"COD_MODELO", ad::kVarChar, ad::kParamInput, kCodeSize, ComparedCode(code));

    auto recordset = Around().NewRecordset();
    recordset->SetCursorType(ad::kOpenDynamic);
    recordset->SetCursorLocation(ad::kUseClient);
    recordset->Open(command.get(), std::monostate{}, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified);
    Detach(*command);
    return recordset;
  });
}

}  // namespace kodra::reports
