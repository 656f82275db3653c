#include "reports/statistics/estat_subgrupo_rpt.h"

#include "frame/parameter_reader.h"
#include "reports/statistics/period.h"
#include "reports/statistics/taxonomy_names.h"
#include "sql/tradutor_sql.h"

namespace kodra::reports {
namespace {

values::Piece CountColumns(std::wstring_view kind) {
  if (kind == L"F") return L"g.DESCR_GRUPO, d.FRENTE";
  if (kind == L"P") return L"g.DESCR_GRUPO, d.FRENTE, d.VERSO";
  return L"g.DESCR_GRUPO, d.COD_DOCTO";
}

}  // namespace

frame::ReportRows CEstatSubgrupoRpt::RelatorioEstatisticas(AutomationObject* obj) {
  return Report(L"RelatorioEstatisticas", [&] {
    InicializaPS(obj);
    const std::wstring name = TaxonomyName(L"NOME_SUBGRUPO", StringConexao(), Around());
    const Period period = ReadPeriod(*obj);
    const StatedPeriod stated(period);
    const auto where = stated.Between(L"d.DT_ARMAZ", sql::fdYYYYMMDD);
    const std::wstring kind = frame::ReadText(*obj, L"TipoRpt");
    data::SelectBuilder builder = NewBuilder();
    builder.SetColumns(StatisticsTitle(name), L" AS TITULO, ", stated.Title(), L" AS TIT1, ", CountColumns(kind));
    builder.SetFrom(L"DOCUMENTO d");
    builder.AddJoin(0, data::JoinKind::kInner, L"GRUPO g", L"g.COD_GRUPO = d.COD_GRUPO");
    builder.SetWhere(where);
    return Open(builder.SQL());
  });
}

}  // namespace kodra::reports
