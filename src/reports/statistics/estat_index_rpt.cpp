#include "reports/statistics/estat_index_rpt.h"

#include "frame/parameter_reader.h"
#include "reports/statistics/period.h"
#include "reports/statistics/production_filter.h"
#include "sql/tradutor_sql.h"

namespace kodra::reports {

frame::ReportRows CEstatIndexRpt::RelatorioEstatisticasPorDocumento(AutomationObject* obj) {
  return Report(L"RelatorioEstatisticasPorDocumento", [&] {
    InicializaPS(obj);
    const Period period = ReadPeriod(*obj);
    const ProductionFilter filter = ReadProductionFilter(*obj);
    const StatedPeriod stated(period);
    const std::wstring owner = frame::ReadText(*obj, L"Owner");
    data::SelectBuilder builder = NewBuilder();
    builder.SetColumns(stated.Title(), L" AS TIT1, ");
    filter.AddColumns(builder);
    builder.AddToColumns(
        L"d.DATA_INDEXACAO, "
        L"d.COD_DOCTO, "
        L"p.EMPRESA AS FUNDO, "
        L"'",
        owner, L"' AS OWNER");
    builder.SetFrom(L"DOCUMENTO d");
    const std::int32_t joins = filter.AddJoins(builder, 0, L"d.COD_INDEXADOR");
    builder.AddJoin(joins, data::JoinKind::kInner, L"PARAMETRO p", L"p.CODIGO = '1'");
    builder.SetWhere(stated.Between(L"d.DATA_INDEXACAO", sql::fdDDMMYYYY));
    filter.AddConditions(builder, L"d.COD_INDEXADOR");
    return Open(builder.SQL());
  });
}

frame::ReportRows CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave(AutomationObject* obj) {
  return Report(L"RelatorioEstatisticasPorPalavrasChave", [&] {
    InicializaPS(obj);
    const StatedPeriod period(ReadPeriod(*obj));
    const std::wstring operatorName = frame::ReadText(*obj, L"DescrOperador");
    const std::wstring departmentName = frame::ReadText(*obj, L"DescrDepto");
    const std::wstring first = frame::ReadText(*obj, L"NumeroPC1");
    const std::wstring second = frame::ReadText(*obj, L"NumeroPC2");
    const std::wstring third = frame::ReadText(*obj, L"NumeroPC3");
    const std::wstring fourth = frame::ReadText(*obj, L"NumeroPC4");
    const std::wstring fifth = frame::ReadText(*obj, L"NumeroPC5");
    const std::wstring remarks = frame::ReadText(*obj, L"NumeroObs");
    const std::wstring owner = frame::ReadText(*obj, L"Owner");
    data::SelectBuilder builder = NewBuilder();
    builder.SetColumns(period.Title(), L" AS TIT1, '", operatorName, L"' AS OPERADOR, '", departmentName,
                       L"' AS DEPTO, ", first, L" AS PC1, ", second, L" AS PC2, ", third, L" AS PC3, ", fourth,
                       L" AS PC4, ", fifth, L" AS PC5, ", remarks, L" AS OBS, p.EMPRESA AS FUNDO, '", owner,
                       L"' AS OWNER");
    builder.SetFrom(L"PARAMETRO p");
    builder.SetWhere(L"p.CODIGO = '1'");
    return Open(builder.SQL());
  });
}

}  // namespace kodra::reports
