// The listings of the archive's documents, by storage period and department.
//
// Each reads DataArmazenamento2 (a date other than zero switches the period on, from DataArmazenamento1) and CodDepto
// (a text other than empty switches the department on).
#include "frame/parameter_reader.h"
#include "reports/reports.h"
#include "values/format_date.h"

namespace kodra::reports {
namespace {

// The whole days of the period; the database receives the part of them that the translator's date layout keeps.
std::wstring PeriodFilter(const Call& call) {
  const Date last = frame::ReadDate(call.Parameters(), L"DataArmazenamento2");
  if (last.days == 0.0) return {};
  const Date first = frame::ReadDate(call.Parameters(), L"DataArmazenamento1");
  const std::wstring from = values::FormatDate(first, L"yyyy-mm-dd 00:00:00");
  const std::wstring to = values::FormatDate(last, L"yyyy-mm-dd 23:59:59");
  return L"AND d.DT_ARMAZ BETWEEN " + call.Sql().ToDate(from, sql::fdYYYYMMDD) + L" AND " +
         call.Sql().ToDate(to, sql::fdYYYYMMDD) + L" ";
}

std::wstring DeptoFilter(const Call& call) {
  const std::wstring code = frame::ReadText(call.Parameters(), L"CodDepto");
  return code.empty() ? std::wstring() : L"AND d.COD_DEPTO = '" + code + L"' ";
}

// A listing by its statement up to the filters.
frame::ReportRows List(Call& call, const std::wstring& selection) {
  call.InicializaPS();
  std::wstring statement = selection;
  statement += PeriodFilter(call);
  statement += DeptoFilter(call);
  return call.Open(statement + L"ORDER BY d.COD_DOCTO");
}

}  // namespace

// One line per document, also of those not classified yet.
frame::ReportRows CDocumentoRpt::RelatorioSintetico(Call& call) {
  return List(call,
              L"SELECT d.COD_DOCTO, s.DESCR_SUPORTE, d.NUM_CAIXA, d.NUM_CD, "
              L"d.DT_ARMAZ, d.DT_VENC, d.FRENTE, d.VERSO  "
              L"FROM DOCUMENTO d "
              L"INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE "
              L"WHERE (1=1) ");
}

// Classified documents with their taxonomy, index keys and operator.
frame::ReportRows CDocumentoRpt::RelatorioAnalitico(Call& call) {
  return List(call,
              L"SELECT d.COD_DOCTO, g.DESCR_GRUPO, a.DESCR_ASSUNTO, "
              L"d.DESCR_CHAVE1, d.DESCR_CHAVE2, d.DESCR_CHAVE3, d.DESCR_CHAVE4, d.DESCR_CHAVE5, "
              L"o.DESCR_OPERADOR, s.DESCR_SUPORTE, d.DT_ARMAZ, d.ARQUIVO, d.OBS, d.FRENTE, "
              L"d.NUM_CAIXA, d.DT_VENC, d.VERSO, d.NUM_CD "
              L"FROM DOCUMENTO d "
              L"INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE "
              L"INNER JOIN OPERADOR o ON d.COD_OPERADOR = o.COD_OPERADOR "
              L"INNER JOIN ASSUNTO a ON d.COD_ASSUNTO = a.COD_ASSUNTO  "
              L"INNER JOIN GRUPO g ON d.COD_GRUPO = g.COD_GRUPO "
              L"WHERE d.COD_GRUPO IS NOT NULL ");
}

// Documents registered as inventory entries (extension "#INV"), with the captions of their series' keys.
frame::ReportRows CDocumentoRpt::RelatorioInventarios(Call& call) {
  return List(call,
              L"SELECT d.COD_DOCTO, g.DESCR_GRUPO, a.DESCR_ASSUNTO, d.NUM_CAIXA, d.MACO, d.DT_ARMAZ, "
              L"a.DESCR_CHAVE1 AS ACHAVE1, a.DESCR_CHAVE2 AS ACHAVE2, a.DESCR_CHAVE3 AS ACHAVE3, "
              L"a.DESCR_CHAVE4 AS ACHAVE4, a.DESCR_CHAVE5 AS ACHAVE5, "
              L"d.DESCR_CHAVE1, d.DESCR_CHAVE2, d.DESCR_CHAVE3, d.DESCR_CHAVE4, d.DESCR_CHAVE5, d.OBS "
              L"FROM DOCUMENTO d "
              L"INNER JOIN ASSUNTO a ON d.COD_ASSUNTO = a.COD_ASSUNTO  "
              L"INNER JOIN GRUPO g ON d.COD_GRUPO = g.COD_GRUPO "
              L"WHERE d.COD_GRUPO IS NOT NULL AND d.EXTENSAO='#INV' ");
}

}  // namespace kodra::reports
