#include "reports/statistics/estat_serie_rpt.h"

#include "frame/parameter_reader.h"
#include "reports/statistics/period.h"
#include "reports/statistics/taxonomy_names.h"
#include "sql/tradutor_sql.h"

namespace kodra::reports {
namespace {

std::wstring_view Subtitle(std::wstring_view kind) {
  if (kind == L"F") return L"'(por número de folhas)' AS Subtitulo, ";
  if (kind == L"P") return L"'(por número de páginas)' AS Subtitulo, ";
  return L"'(por número de documentos)' AS Subtitulo, ";
}

// Pages are front pages whatever the subtitle says.
std::wstring Total(std::wstring_view kind) {
  return (kind == L"N" ? L"COUNT(" : L"SUM(") + sql::SQLToInt(L"d.FRENTE") + L") AS Total";
}

// Documents stored on the last day count at any time of day: the upper bound is the day after.
std::wstring InPeriod(const Period& period) {
  return Period{period.first, {period.last.days + 1}}.Between(L"d.DT_ARMAZ", sql::fdDDMMYYYY);
}

}  // namespace

frame::ReportRows CEstatSerieRpt::RelatorioEstatisticas(platform::AutomationObject* obj) {
  return Report(L"RelatorioEstatisticas", [&] {
    InicializaPS(obj);
    const std::wstring series = TaxonomyName(L"NOME_SERIE", StringConexao(), Around());
    const std::wstring subgroup = TaxonomyName(L"NOME_SUBGRUPO", StringConexao(), Around());
    const Period period = ReadPeriod(*obj);
    const std::wstring kind = frame::ReadText(*obj, L"TipoRpt");
    data::SelectBuilder builder = NewBuilder();
    std::wstring columns = StatisticsTitle(series) + L" AS Titulo, ";
    columns += Subtitle(kind);
    columns += period.Title() + L" AS Periodo, ";
    columns += sql::SQLStrConcat({L"'" + subgroup + L": '", L"g.DESCR_GRUPO"}) + L" AS Subgrupo, ";
    columns += L"a.DESCR_ASSUNTO AS Serie, ";
    columns += Total(kind);
    builder.SetColumns(columns);
    builder.SetFrom(L"ASSUNTO a");
    builder.AddJoin(0, data::JoinKind::kInner, L"GRUPO g", L"a.COD_GRUPO = g.COD_GRUPO");
    builder.AddJoin(1, data::JoinKind::kInner, L"DOCUMENTO d", L"a.COD_ASSUNTO = d.COD_ASSUNTO");
    const std::wstring group = frame::ReadText(*obj, L"CodGrupo");
    builder.SetWhere(L"(" + InPeriod(period) + L") " +
                     L"AND d.COD_ASSUNTO IN (SELECT COD_ASSUNTO FROM ASSUNTO WHERE COD_GRUPO='" + group + L"')");
    builder.SetGroupBy(L"g.DESCR_GRUPO, a.DESCR_ASSUNTO");
    builder.SetOrderBy(L"a.DESCR_ASSUNTO");
    return Open(builder.SQL());
  });
}

}  // namespace kodra::reports
