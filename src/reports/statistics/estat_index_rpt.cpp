#include "reports/statistics/estat_index_rpt.h"

#include "frame/parameter_reader.h"
#include "reports/statistics/period.h"
#include "reports/statistics/production_filter.h"
#include "sql/tradutor_sql.h"

namespace kodra::reports {

frame::ReportRows CEstatIndexRpt::RelatorioEstatisticasPorDocumento(platform::AutomationObject* obj) {
  return Report(L"RelatorioEstatisticasPorDocumento", [&] {
    InicializaPS(obj);
    const Period period = ReadPeriod(*obj);
    const ProductionFilter filter = ReadProductionFilter(*obj);
    data::SelectBuilder builder = NewBuilder();
    builder.SetColumns({period.Title(), L" AS TIT1, "});
    filter.AddColumns(builder);
    builder.AddToColumns({
        L"d.DATA_INDEXACAO, "
        L"d.COD_DOCTO, "
        L"p.EMPRESA AS FUNDO, "
        L"'",
        frame::ReadText(*obj, L"Owner"),
        L"' AS OWNER",
    });
    builder.SetFrom(L"DOCUMENTO d");
    const std::int32_t joins = filter.AddJoins(builder, 0, L"d.COD_INDEXADOR");
    builder.AddJoin(joins, data::JoinKind::kInner, L"PARAMETRO p", L"p.CODIGO = '1'");
    builder.SetWhere(period.Between(L"d.DATA_INDEXACAO", sql::fdDDMMYYYY));
    filter.AddConditions(builder, L"d.COD_INDEXADOR");
    return Open(std::move(builder).SQL());
  });
}

frame::ReportRows CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave(platform::AutomationObject* obj) {
  return Report(L"RelatorioEstatisticasPorPalavrasChave", [&] {
    InicializaPS(obj);
    const auto given = [&](std::wstring_view property) { return frame::ReadText(*obj, property); };
    data::SelectBuilder builder = NewBuilder();
    builder.SetColumns({
        ReadPeriod(*obj).Title(),
        L" AS TIT1, ",
        L"'",
        given(L"DescrOperador"),
        L"' AS OPERADOR, ",
        L"'",
        given(L"DescrDepto"),
        L"' AS DEPTO, ",
        given(L"NumeroPC1"),
        L" AS PC1, ",
        given(L"NumeroPC2"),
        L" AS PC2, ",
        given(L"NumeroPC3"),
        L" AS PC3, ",
        given(L"NumeroPC4"),
        L" AS PC4, ",
        given(L"NumeroPC5"),
        L" AS PC5, ",
        given(L"NumeroObs"),
        L" AS OBS, ",
        L"p.EMPRESA AS FUNDO, ",
        L"'",
        given(L"Owner"),
        L"' AS OWNER",
    });
    builder.SetFrom(L"PARAMETRO p");
    builder.SetWhere(L"p.CODIGO = '1'");
    return Open(std::move(builder).SQL());
  });
}

}  // namespace kodra::reports
