#include "reports/statistics/estat_suporte_rpt.h"

#include "frame/parameter_reader.h"
#include "reports/statistics/period.h"
#include "sql/tradutor_sql.h"

namespace kodra::reports {
namespace {

// One layout prints both kinds: front pages come with a back count of zero.
text::Piece PageColumns(std::wstring_view kind) {
  if (kind == L"F") return L", d.FRENTE, 0 AS VERSO ";
  if (kind == L"P") return L", d.FRENTE, d.VERSO ";
  return L"";
}

}  // namespace

frame::ReportRows CEstatSuporteRpt::RelatorioEstatisticas(platform::AutomationObject* obj) {
  return Report(L"RelatorioEstatisticas", [&] {
    InicializaPS(obj);
    const Period period = ReadPeriod(*obj);
    data::SelectBuilder builder = NewBuilder();
    const std::wstring title = period.Title();
    const std::wstring where = period.Between(L"d.DT_ARMAZ", sql::fdDDMMYYYY);
    builder.SetColumns({
        title,
        L" AS TIT, "
        L"d.COD_DOCTO, "
        L"s.DESCR_SUPORTE",
        PageColumns(frame::ReadText(*obj, L"TipoRpt")),
    });
    builder.SetFrom(L"DOCUMENTO d");
    builder.AddJoin(0, data::JoinKind::kInner, L"SUPORTE s", L"d.COD_SUPORTE = s.COD_SUPORTE");
    builder.SetWhere(where);
    return Open(std::move(builder).SQL());
  });
}

}  // namespace kodra::reports
