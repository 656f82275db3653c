// Production by subgroup: the documents stored in a period.
#include "frame/parameter_reader.h"
#include "reports/reports.h"
#include "reports/statistics/period.h"
#include "reports/statistics/taxonomy_names.h"

namespace kodra::reports {
namespace {

std::wstring CountColumns(const std::wstring& kind) {
  if (kind == L"F") return L"g.DESCR_GRUPO, d.FRENTE ";
  if (kind == L"P") return L"g.DESCR_GRUPO, d.FRENTE, d.VERSO ";
  return L"g.DESCR_GRUPO, d.COD_DOCTO ";
}

}  // namespace

// Reads DataInicial, DataFinal and TipoRpt: "F" returns front pages, "P" front and back pages, any other text the
// document code. The title has the installation's own name for a subgroup.
frame::ReportRows CEstatSubgrupoRpt::RelatorioEstatisticas(Call& call) {
  call.InicializaPS();
  const std::wstring name = TaxonomyName(L"NOME_SUBGRUPO", call.StringConexao(), call.Around());
  const Period period = ReadPeriod(call.Parameters());
  const std::wstring title = PeriodTitle(period);
  const std::wstring where = Between(L"d.DT_ARMAZ", period, sql::fdYYYYMMDD, call.Sql());
  const std::wstring kind = frame::ReadText(call.Parameters(), L"TipoRpt");
  return call.Open(L"SELECT " + StatisticsTitle(name) + L" AS TITULO, " + title + L" AS TIT1, " + CountColumns(kind) +
                   L"FROM DOCUMENTO d "
                   L"INNER JOIN GRUPO g ON g.COD_GRUPO = d.COD_GRUPO "
                   L"WHERE " +
                   where);
}

}  // namespace kodra::reports
