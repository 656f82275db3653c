#include "reports/statistics/estat_img_rpt.h"

#include "frame/parameter_reader.h"
#include "reports/statistics/period.h"
#include "reports/statistics/production_filter.h"
#include "sql/tradutor_sql.h"

namespace kodra::reports {
namespace {

values::Piece CountColumns(std::wstring_view kind) {
  if (kind == L"P") return L", d.FRENTE, d.VERSO ";
  if (kind == L"F") return L", d.FRENTE ";
  return L", d.COD_DOCTO ";
}

}  // namespace

frame::ReportRows CEstatImgRpt::RelatorioEstatisticas(AutomationObject* obj) {
  return Report(L"RelatorioEstatisticas", [&] {
    InicializaPS(obj);
    const Period period = ReadPeriod(*obj);
    const ProductionFilter filter = ReadProductionFilter(*obj);
    const StatedPeriod stated(period);
    const std::wstring owner = frame::ReadText(*obj, L"Owner");
    const std::wstring kind = frame::ReadText(*obj, L"TipoRpt");
    data::SelectBuilder builder = NewBuilder();
    builder.SetColumns(stated.Title(), L" AS TIT1, ");
    filter.AddColumns(builder);
    builder.AddToColumns(
        L"d.DT_ARMAZ, "
        L"p.EMPRESA AS FUNDO, "
        L"'",
        owner, L"' AS OWNER", CountColumns(kind));
    builder.SetFrom(L"DOCUMENTO d");
    builder.AddJoin(0, data::JoinKind::kInner, L"SUPORTE s", L"d.COD_SUPORTE = s.COD_SUPORTE");
    const std::int32_t joins = filter.AddJoins(builder, 1, L"d.COD_OPERADOR");
    builder.AddJoin(joins, data::JoinKind::kInner, L"PARAMETRO p", L"p.CODIGO = '1'");
    builder.SetWhere(stated.Between(L"d.DT_ARMAZ", sql::fdDDMMYYYY),
                     L" AND d.NUM_CAIXA <> 'AA000' "
                     L" AND s.DESCR_SUPORTE <> 'DIGITAL' ");
    filter.AddConditions(builder, L"d.COD_OPERADOR");
    return Open(builder.SQL());
  });
}

}  // namespace kodra::reports
