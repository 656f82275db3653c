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
    std::wstring columns = period.Title() + L" AS TIT1, ";
    columns += filter.Columns();
    columns += L"d.DATA_INDEXACAO, ";
    columns += L"d.COD_DOCTO, ";
    columns += L"p.EMPRESA AS FUNDO, ";
    columns += L"'" + frame::ReadText(*obj, L"Owner") + L"' AS OWNER";
    builder.SetColumns(columns);
    builder.SetFrom(L"DOCUMENTO d");
    builder.SetWhere(period.Between(L"d.DATA_INDEXACAO", sql::fdDDMMYYYY));
    const std::int32_t joins = filter.Apply(builder, 0, L"d.COD_INDEXADOR");
    builder.AddJoin(joins, data::JoinKind::kInner, L"PARAMETRO p", L"p.CODIGO = '1'");
    return Open(builder.SQL());
  });
}

frame::ReportRows CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave(platform::AutomationObject* obj) {
  return Report(L"RelatorioEstatisticasPorPalavrasChave", [&] {
    InicializaPS(obj);
    const auto given = [&](std::wstring_view property) { return frame::ReadText(*obj, property); };
    data::SelectBuilder builder = NewBuilder();
    std::wstring columns = ReadPeriod(*obj).Title() + L" AS TIT1, ";
    columns += L"'" + given(L"DescrOperador") + L"' AS OPERADOR, ";
    columns += L"'" + given(L"DescrDepto") + L"' AS DEPTO, ";
    columns += given(L"NumeroPC1") + L" AS PC1, ";
    columns += given(L"NumeroPC2") + L" AS PC2, ";
    columns += given(L"NumeroPC3") + L" AS PC3, ";
    columns += given(L"NumeroPC4") + L" AS PC4, ";
    columns += given(L"NumeroPC5") + L" AS PC5, ";
    columns += given(L"NumeroObs") + L" AS OBS, ";
    columns += L"p.EMPRESA AS FUNDO, ";
    columns += L"'" + given(L"Owner") + L"' AS OWNER";
    builder.SetColumns(columns);
    builder.SetFrom(L"PARAMETRO p");
    builder.SetWhere(L"p.CODIGO = '1'");
    return Open(builder.SQL());
  });
}

}  // namespace kodra::reports
