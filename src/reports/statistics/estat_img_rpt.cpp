// Imaging production: the documents stored in a period, for the layout to count and sum.
#include "frame/parameter_reader.h"
#include "reports/reports.h"
#include "reports/statistics/period.h"
#include "reports/statistics/production_filter.h"

namespace kodra::reports {
namespace {

std::wstring CountColumns(const std::wstring& kind) {
  if (kind == L"P") return L", d.FRENTE, d.VERSO ";
  if (kind == L"F") return L", d.FRENTE ";
  return L", d.COD_DOCTO ";
}

}  // namespace

// Reads Owner, DataInicial, DataFinal, CodOperador and CodDepto (empty: all) and TipoRpt: "P" returns front and back
// pages, "F" front pages, any other text the document code. The placeholder module AA000 and the born-digital support
// are not production and are never listed.
frame::ReportRows CEstatImgRpt::RelatorioEstatisticas(Call& call) {
  call.InicializaPS();
  const Period period = ReadPeriod(call.Parameters());
  const ProductionFilter filter = ReadProductionFilter(call.Parameters());
  const std::wstring title = PeriodTitle(period);
  const std::wstring owner = frame::ReadText(call.Parameters(), L"Owner");
  const std::wstring kind = frame::ReadText(call.Parameters(), L"TipoRpt");
  data::SelectBuilder select;
  select.SetColumns(title + L" AS TIT1, " + filter.Columns() +
                    L"d.DT_ARMAZ, "
                    L"p.EMPRESA AS FUNDO, "
                    L"'" +
                    owner + L"' AS OWNER" + CountColumns(kind));
  select.SetFrom(L"DOCUMENTO d");
  select.AddJoin(0, data::JoinKind::kInner, L"SUPORTE s", L"d.COD_SUPORTE = s.COD_SUPORTE");
  const std::int32_t joins = filter.AddJoins(select, 1, L"d.COD_OPERADOR");
  select.AddJoin(joins, data::JoinKind::kInner, L"PARAMETRO p", L"p.CODIGO = '1'");
  select.SetWhere(Between(L"d.DT_ARMAZ", period, sql::fdDDMMYYYY, call.Sql()) +
                  L" AND d.NUM_CAIXA <> 'AA000' "
                  L" AND s.DESCR_SUPORTE <> 'DIGITAL' " +
                  filter.Conditions(L"d.COD_OPERADOR"));
  return call.Open(select.SQL());
}

}  // namespace kodra::reports
