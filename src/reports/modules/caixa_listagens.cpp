// The listings of CCaixaRpt over all modules. Those of main and subordinate modules are two SELECTs in one UNION, of
// which the second has the ORDER BY. Clients rely on the order in which filters are attached.
#include "frame/parameter_reader.h"
#include "reports/modules/module_filters.h"
#include "reports/reports.h"

namespace kodra::reports {
namespace {

// Pages and documents of the main module c.
std::wstring TotalsOfModule(const sql::Translator& sql) {
  return L"(SELECT SUM(" + sql.ToInt(L"doc.FRENTE") +
         L") FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_PAGINAS, "
         L"(SELECT COUNT(*) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_DOCS ";
}

}  // namespace

// Modules whose contents were discarded. Reads CodDepto and ModoPregresso.
frame::ReportRows CCaixaRpt::ModulosExcluidos(Call& call) {
  call.InicializaPS();
  AutomationObject& parameters = call.Parameters();
  std::wstring main =
      L"SELECT c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, "
      L"c.TIPO_GUARDA "
      L"FROM CAIXA c "
      L"WHERE c.TIPO_GUARDA = 'E'";
  main += DeptoFilter(parameters);
  main += PregressoFilter(parameters);

  std::wstring subordinates = L"SELECT " + call.SubordinateCode() +
                              L", c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, "
                              L"s.TIPO_GUARDA "
                              L"FROM CAIXA_SUBORDINADA s "
                              L"INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA "
                              L"WHERE s.TIPO_GUARDA = 'E'";
  subordinates += DeptoFilter(parameters);
  main += PregressoFilter(parameters);
  subordinates += L" ORDER BY DATA_VENCIMENTO, NUM_CAIXA";
  return call.OpenUnion(main, subordinates);
}

// Modules due for discard. Reads CodDepto and ModoPregresso.
frame::ReportRows CCaixaRpt::ModulosVencidos(Call& call) {
  call.InicializaPS();
  AutomationObject& parameters = call.Parameters();
  const std::wstring totals = TotalsOfModule(call.Sql());
  const std::wstring today = call.Sql().DataAtual();
  std::wstring main =
      L"SELECT d.DESCR_DEPTO, c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, "
      L"c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, c.TIPO_GUARDA, c.ANOS_VENCIMENTO, " +
      totals +
      L"FROM CAIXA c "
      L"LEFT JOIN DEPTO d ON c.COD_DEPTO = d.COD_DEPTO "
      L"WHERE ((c.TIPO_GUARDA = 'T' AND c.DATA_VENCIMENTO <= " +
      today +
      L")"
      L" OR (c.TIPO_GUARDA = 'D' AND c.DATA_FECHAMENTO IS NOT NULL))"
      L" AND c.NUM_CAIXA <> 'AA000'";
  main += DeptoFilter(parameters);
  main += PregressoFilter(parameters);

  std::wstring subordinates = L"SELECT d.DESCR_DEPTO, " + call.SubordinateCode() +
                              L", c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, "
                              L"s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, s.TIPO_GUARDA, s.ANOS_VENCIMENTO, " +
                              totals +
                              L"FROM CAIXA_SUBORDINADA s "
                              L"INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA "
                              L"LEFT JOIN DEPTO d ON c.COD_DEPTO = d.COD_DEPTO "
                              L"WHERE ((s.TIPO_GUARDA = 'T' AND s.DATA_VENCIMENTO <= " +
                              today +
                              L") "
                              L" OR (s.TIPO_GUARDA = 'D' AND s.DATA_FECHAMENTO IS NOT NULL))";
  subordinates += DeptoFilter(parameters);
  subordinates += DeptoFilter(parameters);
  subordinates += L" ORDER BY DATA_VENCIMENTO, NUM_CAIXA";
  main += PregressoFilter(parameters);
  return call.OpenUnion(main, subordinates);
}

// How many documents of each module are not classified. Reads CodDepto.
frame::ReportRows CCaixaRpt::DocsNaoIndexadosNosModulos(Call& call) {
  call.InicializaPS();
  return call.OpenResult(
      L"SELECT c.NUM_CAIXA, c.DESC_CAIXA, COUNT(*) AS NaoIndexados "
      L"FROM DOCUMENTO d "
      L"INNER JOIN CAIXA c ON c.NUM_CAIXA = d.NUM_CAIXA "
      L"WHERE d.COD_ASSUNTO IS NULL AND d.NUM_CAIXA<>'AA000'" +
      DeptoFilter(call.Parameters()) +
      L" GROUP BY c.NUM_CAIXA, c.DESC_CAIXA"
      L" ORDER BY c.NUM_CAIXA");
}

// Every module with its place. Reads CodDepto, SomenteExistentes, ModoPregresso and Ordenacao ("D": by description).
frame::ReportRows CCaixaRpt::RelatoriosModulos(Call& call) {
  call.InicializaPS();
  AutomationObject& parameters = call.Parameters();
  std::wstring main =
      L"SELECT c.NUM_CAIXA, c.DESC_CAIXA, "
      L"c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, "
      L"c.COORD_X AS FILEIRA, c.COORD_Y AS ESTANTE, c.COORD_Z AS PRATELEIRA, "
      L"ct.DESC_CONTAINER AS CONTAINER, c.TIPO_GUARDA  "
      L"FROM CAIXA c "
      L"LEFT JOIN CONTAINER ct ON c.CONTAINER = ct.NUM_CONTAINER "
      L"WHERE c.NUM_CAIXA <> 'AA000'";
  main += DeptoFilter(parameters);
  if (frame::ReadFlag(parameters, L"SomenteExistentes")) main += L" AND c.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P'";
  main += PregressoFilter(parameters);

  std::wstring subordinates = L"SELECT " + call.SubordinateCode() +
                              L" AS NUM_CAIXA, c.DESC_CAIXA, "
                              L"s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, "
                              L"'' AS FILEIRA, '' AS ESTANTE, '' AS PRATELEIRA, '' AS CONTAINER, s.TIPO_GUARDA "
                              L"FROM CAIXA_SUBORDINADA s "
                              L"INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA "
                              L"WHERE (1=1)";
  subordinates += DeptoFilter(parameters);
  // The second test reads the parent's kind.
  if (frame::ReadFlag(parameters, L"SomenteExistentes"))
    subordinates += L" AND s.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P'";
  subordinates += PregressoFilter(parameters);
  const bool byDescription = frame::ReadText(parameters, L"Ordenacao") == L"D";
  subordinates += byDescription ? L" ORDER BY DESC_CAIXA" : L" ORDER BY NUM_CAIXA";
  return call.OpenUnion(main, subordinates);
}

}  // namespace kodra::reports
