// The methods of CCaixaRpt about one module: its header, its documents, and those on a discard authorisation.
#include "frame/parameter_reader.h"
#include "reports/modules/caixa_logged.h"
#include "reports/modules/module_code.h"
#include "reports/modules/module_filters.h"
#include "sql/tradutor_sql.h"

namespace kodra::reports {
namespace {

using data::JoinKind;

// A column with the empty text in place of null, under a name.
auto OrEmpty(values::Piece column, values::Piece name) {
  return values::Written([value = sql::SQLNVL(column, sql::nvTexto, L""), name](values::Writer& out) {
    out.Append(value, L" AS ", name);
  });
}

void AddDepositoryColumns(data::SelectBuilder& builder) {
  builder.AddToColumns(OrEmpty(L"dp.NOME", L"DEPOSITO, "), OrEmpty(L"dp.ENDERECO", L"ENDERECO, "),
                       OrEmpty(L"dp.CIDADE", L"CIDADE, "), OrEmpty(L"dp.ESTADO", L"ESTADO, "),
                       OrEmpty(L"dp.TELEFONE", L"TELEFONE, "), OrEmpty(L"dp.CONTATO", L"CONTATO"));
}

void SelectMainModule(data::SelectBuilder& builder, const std::wstring& module) {
  builder.SetColumns(OrEmpty(L"c.NUM_CAIXA", L"NUM_CAIXA, "), OrEmpty(L"c.DESC_CAIXA", L"DESC_CAIXA, "),
                     OrEmpty(L"c.OBS_CAIXA", L"OBS_CAIXA, "), OrEmpty(L"c.DOC_INICIAL", L"DOC_INICIAL, "),
                     OrEmpty(L"c.DOC_FINAL", L"DOC_FINAL, "), L"c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, ",
                     OrEmpty(L"c.COORD_X", L"FILEIRA, "), OrEmpty(L"c.COORD_Y", L"ESTANTE, "),
                     OrEmpty(L"c.COORD_Z", L"PRATELEIRA, "), OrEmpty(L"ct.DESC_CONTAINER", L"CONTAINER, "));
  AddDepositoryColumns(builder);
  builder.SetFrom(L"CAIXA c");
  builder.AddJoin(0, JoinKind::kLeftOuter, L"CONTAINER ct", L"c.CONTAINER = ct.NUM_CONTAINER");
  builder.AddJoin(1, JoinKind::kLeftOuter, L"DEPOSITO dp", L"c.COD_DEPOSITO = dp.COD_DEPOSITO");
  builder.SetWhere(L"c.NUM_CAIXA = '", module, L"'");
}

// The dates of a subordinate module are its parent's, and it has no place of its own.
void SelectSubordinate(data::SelectBuilder& builder, const std::wstring& module, const std::wstring& code) {
  builder.SetColumns(code, L" AS NUM_CAIXA, ", OrEmpty(L"c.DESC_CAIXA", L"DESC_CAIXA, "), L"'' AS OBS_CAIXA, ",
                     OrEmpty(L"s.DOC_INICIAL", L"DOC_INICIAL, "), OrEmpty(L"s.DOC_FINAL", L"DOC_FINAL, "),
                     L"c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, ",
                     L"'' AS FILEIRA, '' AS ESTANTE, '' AS PRATELEIRA, '' AS CONTAINER, ");
  AddDepositoryColumns(builder);
  builder.SetFrom(L"CAIXA_SUBORDINADA s");
  builder.AddJoin(0, JoinKind::kInner, L"CAIXA c", L"s.NUM_CAIXA = c.NUM_CAIXA ");
  builder.AddJoin(1, JoinKind::kLeftOuter, L"CONTAINER ct", L"c.CONTAINER = ct.NUM_CONTAINER");
  builder.AddJoin(2, JoinKind::kLeftOuter, L"DEPOSITO dp", L"c.COD_DEPOSITO = dp.COD_DEPOSITO");
  builder.SetWhere(L"s.NUM_CAIXA = '", MainModule(module), L"' AND s.NUM_SEQ=", SubordinateNumber(module));
}

void SelectDocuments(data::SelectBuilder& builder, const std::wstring& module) {
  builder.SetColumns(
      L"d.COD_DOCTO, "
      L"(SELECT COUNT(*) FROM DOCUMENTO dd WHERE dd.NUM_CAIXA = d.NUM_CAIXA) AS TOTAL_DOCS, "
      L"(SELECT SUM(",
      sql::SQLToInt(L"ddd.FRENTE"), L"+", sql::SQLToInt(L"ddd.VERSO"),
      L") FROM DOCUMENTO ddd WHERE ddd.NUM_CAIXA = d.NUM_CAIXA) AS TOTAL_PAGINAS ");
  builder.SetFrom(L"DOCUMENTO d");
  builder.SetWhere(L"d.NUM_CAIXA = '", module, L"'");
  builder.SetOrderBy(L"d.COD_DOCTO");
}

// One row that holds nothing. Oracle and DB2 need a table to select it from.
void SelectBlankRow(data::SelectBuilder& builder) {
  builder.SetColumns(L"' ' AS COD_DOCTO, 0 AS TOTAL_DOCS, 0 AS TOTAL_PAGINAS");
  if (builder.TipoBanco() == sql::tbOracle) builder.SetFrom(L"SYS.DUAL ");
  if (builder.TipoBanco() == sql::tbDB2) builder.SetFrom(L"SYSIBM.SYSDUMMY1 ");
}

}  // namespace

frame::ReportRows CCaixaRpt::DocsNoModulo(AutomationObject* obj) {
  return Logged(L"DocsNoModulo", [&] {
    InicializaPS(obj);
    data::SelectBuilder builder = NewBuilder();
    const std::wstring module = frame::ReadText(*obj, L"Modulo1");
    if (NamesMainModule(module))
      SelectMainModule(builder, module);
    else
      SelectSubordinate(builder, module, SubordinateCode());
    FilterDepto(builder, *obj);
    frame::ReportRows rows = NewStatic();
    OpenStatic(*rows, builder.SQL());
    return rows;
  });
}

frame::ReportRows CCaixaRpt::DocsNoModuloSubRpt(AutomationObject* obj) {
  try {
    if (obj == nullptr) throw MakeRuntimeError(RuntimeError::kObjectNotSet);
    const std::wstring module = frame::ReadText(*obj, L"Modulo1");
    return OpenResult(values::LocalText<100>(L"SELECT COD_DOCTO FROM DOCUMENTO WHERE NUM_CAIXA = '", MainModule(module),
                                             L"' ORDER BY COD_DOCTO"));
  } catch (...) {
    throw CaughtErro();
  }
}

frame::ReportRows CCaixaRpt::AutorizacaoDescarteModuloSubRpt(AutomationObject* obj) {
  constexpr std::wstring_view kMethod = L"AutorizacaoDescarteModuloSubRpt";
  return Logged(kMethod, [&] {
    InicializaPS(obj);
    data::SelectBuilder documents = NewBuilder();
    sql::DefineTipoBanco(TipoBanco());
    const std::wstring module = frame::ReadText(*obj, L"Modulo1");
    if (NamesMainModule(module))
      SelectDocuments(documents, module);
    else
      SelectBlankRow(documents);
    data::SelectBuilder blank = NewBuilder();
    SelectBlankRow(blank);

    DebugLog(SourceOf(kMethod), L": executando query para o módulo <", module, L">");
    frame::ReportRows rows = NewStatic();
    OpenStatic(*rows, documents.SQL());
    if (rows->Eof()) {
      DebugLog(SourceOf(kMethod), L": query vazia, usando query com dados em branco");
      rows->Close();
      OpenStatic(*rows, blank.SQL());
    } else {
      DebugLog(SourceOf(kMethod), L": retorno da função é a query original");
    }
    return rows;
  });
}

}  // namespace kodra::reports
