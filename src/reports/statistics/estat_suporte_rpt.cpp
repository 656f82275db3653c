// Production by support: the documents stored in a period.
#include "frame/parameter_reader.h"
#include "reports/reports.h"
#include "reports/statistics/period.h"

namespace kodra::reports {
namespace {

// One layout prints both kinds: front pages come with a back count of zero.
std::wstring PageColumns(const std::wstring& kind) {
  if (kind == L"F") return L", d.FRENTE, 0 AS VERSO ";
  if (kind == L"P") return L", d.FRENTE, d.VERSO ";
  return L"";
}

}  // namespace

// Reads DataInicial, DataFinal and TipoRpt: "F" returns front pages, "P" front and back pages, any other text neither.
frame::ReportRows CEstatSuporteRpt::RelatorioEstatisticas(Call& call) {
  call.InicializaPS();
  const Period period = ReadPeriod(call.Parameters());
  const std::wstring title = PeriodTitle(period);
  const std::wstring where = Between(L"d.DT_ARMAZ", period, sql::fdDDMMYYYY, call.Sql());
  const std::wstring kind = frame::ReadText(call.Parameters(), L"TipoRpt");
  return call.Open(L"SELECT " + title +
                   L" AS TIT, "
                   L"d.COD_DOCTO, "
                   L"s.DESCR_SUPORTE" +
                   PageColumns(kind) +
                   L" FROM DOCUMENTO d "
                   L"INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE "
                   L"WHERE " +
                   where);
}

}  // namespace kodra::reports
