// The methods of CCaixaRpt about one module: its header, its documents, and those on a discard authorisation.
#include "frame/parameter_reader.h"
#include "reports/modules/module_code.h"
#include "reports/modules/module_filters.h"
#include "reports/reports.h"

namespace kodra::reports {
namespace {

// A column with the empty text in place of null, under a name.
std::wstring OrEmpty(const sql::Translator& sql, const std::wstring& column, const std::wstring& name) {
  return sql.NVL(column, sql::nvTexto, L"") + L" AS " + name;
}

std::wstring DepositoryColumns(const sql::Translator& sql) {
  return OrEmpty(sql, L"dp.NOME", L"DEPOSITO, ") + OrEmpty(sql, L"dp.ENDERECO", L"ENDERECO, ") +
         OrEmpty(sql, L"dp.CIDADE", L"CIDADE, ") + OrEmpty(sql, L"dp.ESTADO", L"ESTADO, ") +
         OrEmpty(sql, L"dp.TELEFONE", L"TELEFONE, ") + OrEmpty(sql, L"dp.CONTATO", L"CONTATO ");
}

std::wstring MainModuleStatement(const sql::Translator& sql, const std::wstring& module) {
  return L"SELECT " + OrEmpty(sql, L"c.NUM_CAIXA", L"NUM_CAIXA, ") + OrEmpty(sql, L"c.DESC_CAIXA", L"DESC_CAIXA, ") +
         OrEmpty(sql, L"c.OBS_CAIXA", L"OBS_CAIXA, ") + OrEmpty(sql, L"c.DOC_INICIAL", L"DOC_INICIAL, ") +
         OrEmpty(sql, L"c.DOC_FINAL", L"DOC_FINAL, ") + L"c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, " +
         OrEmpty(sql, L"c.COORD_X", L"FILEIRA, ") + OrEmpty(sql, L"c.COORD_Y", L"ESTANTE, ") +
         OrEmpty(sql, L"c.COORD_Z", L"PRATELEIRA, ") + OrEmpty(sql, L"ct.DESC_CONTAINER", L"CONTAINER, ") +
         DepositoryColumns(sql) +
         L"FROM CAIXA c "
         L"LEFT JOIN CONTAINER ct ON c.CONTAINER = ct.NUM_CONTAINER "
         L"LEFT JOIN DEPOSITO dp ON c.COD_DEPOSITO = dp.COD_DEPOSITO "
         L"WHERE c.NUM_CAIXA = '" +
         module + L"'";
}

// The dates of a subordinate module are its parent's, and it has no place of its own.
std::wstring SubordinateStatement(const sql::Translator& sql, const std::wstring& module, const std::wstring& code) {
  return L"SELECT " + code + L" AS NUM_CAIXA, " + OrEmpty(sql, L"c.DESC_CAIXA", L"DESC_CAIXA, ") +
         L"'' AS OBS_CAIXA, " + OrEmpty(sql, L"s.DOC_INICIAL", L"DOC_INICIAL, ") +
         OrEmpty(sql, L"s.DOC_FINAL", L"DOC_FINAL, ") +
         L"c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, "
         L"'' AS FILEIRA, '' AS ESTANTE, '' AS PRATELEIRA, '' AS CONTAINER, " +
         DepositoryColumns(sql) +
         L"FROM CAIXA_SUBORDINADA s "
         L"INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA  "
         L"LEFT JOIN CONTAINER ct ON c.CONTAINER = ct.NUM_CONTAINER "
         L"LEFT JOIN DEPOSITO dp ON c.COD_DEPOSITO = dp.COD_DEPOSITO "
         L"WHERE s.NUM_CAIXA = '" +
         MainModule(module) + L"' AND s.NUM_SEQ=" + SubordinateNumber(module);
}

std::wstring DocumentsStatement(const sql::Translator& sql, const std::wstring& module) {
  return L"SELECT d.COD_DOCTO, "
         L"(SELECT COUNT(*) FROM DOCUMENTO dd WHERE dd.NUM_CAIXA = d.NUM_CAIXA) AS TOTAL_DOCS, "
         L"(SELECT SUM(" +
         sql.ToInt(L"ddd.FRENTE") + L"+" + sql.ToInt(L"ddd.VERSO") +
         L") FROM DOCUMENTO ddd WHERE ddd.NUM_CAIXA = d.NUM_CAIXA) AS TOTAL_PAGINAS  "
         L"FROM DOCUMENTO d "
         L"WHERE d.NUM_CAIXA = '" +
         module +
         L"' "
         L"ORDER BY d.COD_DOCTO";
}

// One row without any content.
std::wstring BlankRowStatement(const sql::Translator& sql) {
  return L"SELECT ' ' AS COD_DOCTO, 0 AS TOTAL_DOCS, 0 AS TOTAL_PAGINAS" + sql.FromOneRow();
}

}  // namespace

// One module with its place and depository. Reads Modulo1 and CodDepto.
frame::ReportRows CCaixaRpt::DocsNoModulo(Call& call) {
  call.InicializaPS();
  const std::wstring module = frame::ReadText(call.Parameters(), L"Modulo1");
  std::wstring statement = NamesMainModule(module) ? MainModuleStatement(call.Sql(), module)
                                                   : SubordinateStatement(call.Sql(), module, call.SubordinateCode());
  statement += DeptoFilter(call.Parameters());
  frame::ReportRows rows = call.NewStatic();
  call.OpenStatic(*rows, statement);
  return rows;
}

// The documents of one module, for a layout within another: it relies on an earlier call of the same object, and its
// errors reach the client unchanged. Reads Modulo1.
frame::ReportRows CCaixaRpt::DocsNoModuloSubRpt(Call& call) {
  call.PassErrorsOn();
  const std::wstring module = frame::ReadText(call.Parameters(), L"Modulo1");
  return call.OpenResult(L"SELECT COD_DOCTO FROM DOCUMENTO WHERE NUM_CAIXA = '" + MainModule(module) +
                         L"' ORDER BY COD_DOCTO");
}

// The documents of one module with their totals, or one blank row. Reads Modulo1.
frame::ReportRows CCaixaRpt::AutorizacaoDescarteModuloSubRpt(Call& call) {
  call.InicializaPS();
  const std::wstring module = frame::ReadText(call.Parameters(), L"Modulo1");
  const std::wstring blank = BlankRowStatement(call.Sql());
  const std::wstring documents = NamesMainModule(module) ? DocumentsStatement(call.Sql(), module) : blank;
  call.DebugLog(call.Source() + L": executando query para o módulo <" + module + L">");
  frame::ReportRows rows = call.NewStatic();
  call.OpenStatic(*rows, documents);
  if (rows->Eof()) {
    call.DebugLog(call.Source() + L": query vazia, usando query com dados em branco");
    rows->Close();
    call.OpenStatic(*rows, blank);
  } else {
    call.DebugLog(call.Source() + L": retorno da função é a query original");
  }
  return rows;
}

}  // namespace kodra::reports
