// The listings of CCaixaRpt over all modules. Those of main and subordinate modules are two SELECTs in one UNION, of
// which the second carries the ORDER BY. The order in which filters are attached is part of what clients rely on.
#include "frame/parameter_reader.h"
#include "reports/modules/caixa_logged.h"
#include "reports/modules/module_filters.h"
#include "sql/tradutor_sql.h"

namespace kodra::reports {
namespace {

using data::JoinKind;

// Pages and documents of the main module c.
void AddTotalsOfModule(data::SelectBuilder& builder) {
  builder.AddToColumns(L"(SELECT SUM(", sql::SQLToInt(L"doc.FRENTE"),
                       L") FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_PAGINAS, "
                       L"(SELECT COUNT(*) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_DOCS");
}

}  // namespace

frame::ReportRows CCaixaRpt::ModulosExcluidos(AutomationObject* obj) {
  return Logged(L"ModulosExcluidos", [&] {
    InicializaPS(obj);
    data::SelectBuilder main = NewBuilder();
    main.SetColumns(
        L"c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, c.TIPO_GUARDA");
    main.SetFrom(L"CAIXA c");
    main.SetWhere(L"c.TIPO_GUARDA = 'E'");
    FilterDepto(main, *obj);
    FilterPregresso(main, *obj);

    data::SelectBuilder subordinates = NewBuilder();
    subordinates.SetColumns(
        SubordinateCode(),
        L", c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, s.TIPO_GUARDA");
    subordinates.SetFrom(L"CAIXA_SUBORDINADA s");
    subordinates.AddJoin(0, JoinKind::kInner, L"CAIXA c", L"s.NUM_CAIXA = c.NUM_CAIXA");
    subordinates.SetWhere(L"s.TIPO_GUARDA = 'E'");
    FilterDepto(subordinates, *obj);
    FilterPregresso(main, *obj);
    subordinates.SetOrderBy(L"DATA_VENCIMENTO, NUM_CAIXA");
    return OpenUnion(main, subordinates);
  });
}

frame::ReportRows CCaixaRpt::ModulosVencidos(AutomationObject* obj) {
  return Logged(L"ModulosVencidos", [&] {
    InicializaPS(obj);
    sql::DefineTipoBanco(TipoBanco());
    data::SelectBuilder main = NewBuilder();
    main.SetColumns(
        L"d.DESCR_DEPTO, c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, "
        L"c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, c.TIPO_GUARDA, c.ANOS_VENCIMENTO, ");
    AddTotalsOfModule(main);
    main.SetFrom(L"CAIXA c");
    main.AddJoin(0, JoinKind::kLeftOuter, L"DEPTO d", L"c.COD_DEPTO = d.COD_DEPTO");
    main.SetWhere(L"((c.TIPO_GUARDA = 'T' AND c.DATA_VENCIMENTO <= ", sql::SQLDataAtual(),
                  L")"
                  L" OR (c.TIPO_GUARDA = 'D' AND c.DATA_FECHAMENTO IS NOT NULL))"
                  L" AND c.NUM_CAIXA <> 'AA000'");
    FilterDepto(main, *obj);
    FilterPregresso(main, *obj);

    data::SelectBuilder subordinates = NewBuilder();
    subordinates.SetColumns(L"d.DESCR_DEPTO, ", SubordinateCode(),
                            L", c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, "
                            L"s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, s.TIPO_GUARDA, s.ANOS_VENCIMENTO, ");
    AddTotalsOfModule(subordinates);
    subordinates.SetFrom(L"CAIXA_SUBORDINADA s");
    subordinates.AddJoin(0, JoinKind::kInner, L"CAIXA c", L"s.NUM_CAIXA = c.NUM_CAIXA");
    subordinates.AddJoin(1, JoinKind::kLeftOuter, L"DEPTO d", L"c.COD_DEPTO = d.COD_DEPTO");
    subordinates.SetWhere(L"((s.TIPO_GUARDA = 'T' AND s.DATA_VENCIMENTO <= ", sql::SQLDataAtual(),
                          L") "
                          L" OR (s.TIPO_GUARDA = 'D' AND s.DATA_FECHAMENTO IS NOT NULL))");
    FilterDepto(subordinates, *obj);
    subordinates.SetOrderBy(L"DATA_VENCIMENTO, NUM_CAIXA");
    FilterDepto(subordinates, *obj);
    FilterPregresso(main, *obj);
    return OpenUnion(main, subordinates);
  });
}

frame::ReportRows CCaixaRpt::DocsNaoIndexadosNosModulos(AutomationObject* obj) {
  return Logged(L"DocsNaoIndexadosNosModulos", [&] {
    InicializaPS(obj);
    data::SelectBuilder builder = NewBuilder();
    builder.SetColumns(L"c.NUM_CAIXA, c.DESC_CAIXA, COUNT(*) AS NaoIndexados");
    builder.SetFrom(L"DOCUMENTO d");
    builder.AddJoin(0, JoinKind::kInner, L"CAIXA c", L"c.NUM_CAIXA = d.NUM_CAIXA");
    builder.SetWhere(L"d.COD_ASSUNTO IS NULL AND d.NUM_CAIXA<>'AA000'");
    FilterDepto(builder, *obj);
    builder.SetGroupBy(L"c.NUM_CAIXA, c.DESC_CAIXA");
    builder.SetOrderBy(L"c.NUM_CAIXA");
    return OpenResult(builder.SQL());
  });
}

frame::ReportRows CCaixaRpt::RelatoriosModulos(AutomationObject* obj) {
  return Logged(L"RelatoriosModulos", [&] {
    InicializaPS(obj);
    data::SelectBuilder main = NewBuilder();
    main.SetColumns(
        L"c.NUM_CAIXA, c.DESC_CAIXA, "
        L"c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, "
        L"c.COORD_X AS FILEIRA, c.COORD_Y AS ESTANTE, c.COORD_Z AS PRATELEIRA, "
        L"ct.DESC_CONTAINER AS CONTAINER, c.TIPO_GUARDA ");
    main.SetFrom(L"CAIXA c");
    main.AddJoin(0, JoinKind::kLeftOuter, L"CONTAINER ct", L"c.CONTAINER = ct.NUM_CONTAINER");
    main.SetWhere(L"c.NUM_CAIXA <> 'AA000'");
    FilterDepto(main, *obj);
    if (frame::ReadFlag(*obj, L"SomenteExistentes")) main.AddToWhere(L" AND c.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P'");
    FilterPregresso(main, *obj);

    data::SelectBuilder subordinates = NewBuilder();
    subordinates.SetColumns(SubordinateCode(),
                            L" AS NUM_CAIXA, c.DESC_CAIXA, "
                            L"s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, "
                            L"'' AS FILEIRA, '' AS ESTANTE, '' AS PRATELEIRA, '' AS CONTAINER, s.TIPO_GUARDA");
    subordinates.SetFrom(L"CAIXA_SUBORDINADA s");
    subordinates.AddJoin(0, JoinKind::kInner, L"CAIXA c", L"s.NUM_CAIXA = c.NUM_CAIXA");
    subordinates.SetWhere(L"(1=1)");
    FilterDepto(subordinates, *obj);
    // The second test reads the parent's kind.
    if (frame::ReadFlag(*obj, L"SomenteExistentes"))
      subordinates.AddToWhere(L" AND s.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P'");
    FilterPregresso(subordinates, *obj);
    if (frame::ReadText(*obj, L"Ordenacao") == L"D")
      subordinates.SetOrderBy(L"DESC_CAIXA");
    else
      subordinates.SetOrderBy(L"NUM_CAIXA");
    return OpenUnion(main, subordinates);
  });
}

}  // namespace kodra::reports
