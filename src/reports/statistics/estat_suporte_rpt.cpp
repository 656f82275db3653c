#include "reports/statistics/estat_suporte_rpt.h"

#include "frame/parameter_reader.h"
#include "reports/statistics/period.h"
#include "sql/tradutor_sql.h"

namespace kodra::reports {
namespace {

// One layout prints both kinds: front pages come with a back count of zero.
values::Piece PageColumns(std::wstring_view kind) {
  if (kind == L"F") return L", d.FRENTE, 0 AS VERSO ";
  if (kind == L"P") return L", d.FRENTE, d.VERSO ";
  return L"";
}

}  // namespace

frame::ReportRows CEstatSuporteRpt::RelatorioEstatisticas(AutomationObject* obj) {
  return Report(L"RelatorioEstatisticas", [&] {
    InicializaPS(obj);
    const Period period = ReadPeriod(*obj);
    const StatedPeriod stated(period);
    const auto where = stated.Between(L"d.DT_ARMAZ", sql::fdDDMMYYYY);
    const std::wstring kind = frame::ReadText(*obj, L"TipoRpt");
    data::SelectBuilder builder = NewBuilder();
    builder.SetColumns(stated.Title(),
                       L" AS TIT, "
                       L"d.COD_DOCTO, "
                       L"s.DESCR_SUPORTE",
                       PageColumns(kind));
    builder.SetFrom(L"DOCUMENTO d");
    builder.AddJoin(0, data::JoinKind::kInner, L"SUPORTE s", L"d.COD_SUPORTE = s.COD_SUPORTE");
    builder.SetWhere(where);
    return Open(builder.SQL());
  });
}

}  // namespace kodra::reports
