#include "reports/statistics/estat_serie_rpt.h"

#include "frame/parameter_reader.h"
#include "reports/statistics/period.h"
#include "reports/statistics/taxonomy_names.h"
#include "sql/tradutor_sql.h"

namespace kodra::reports {
namespace {

values::Piece Subtitle(std::wstring_view kind) {
  if (kind == L"F") return L"'(por número de folhas)' AS Subtitulo, ";
  if (kind == L"P") return L"'(por número de páginas)' AS Subtitulo, ";
  return L"'(por número de documentos)' AS Subtitulo, ";
}

// Pages are front pages whatever the subtitle says.
values::Piece Total(std::wstring_view kind) {
  if (kind == L"N") return L"COUNT(";
  return L"SUM(";
}

// Documents stored on the last day count at any time of day: the upper bound is the day after.
Period ToTheDayAfter(const Period& period) { return {period.first, {period.last.days + 1}}; }

}  // namespace

frame::ReportRows CEstatSerieRpt::RelatorioEstatisticas(AutomationObject* obj) {
  return Report(L"RelatorioEstatisticas", [&] {
    InicializaPS(obj);
    const std::wstring series = TaxonomyName(L"NOME_SERIE", StringConexao(), Around());
    const std::wstring subgroup = TaxonomyName(L"NOME_SUBGRUPO", StringConexao(), Around());
    const Period period = ReadPeriod(*obj);
    const std::wstring kind = frame::ReadText(*obj, L"TipoRpt");
    const StatedPeriod stated(period);
    const values::LocalText<64> prefix(L"'", subgroup, L": '");
    data::SelectBuilder builder = NewBuilder();
    builder.SetColumns(StatisticsTitle(series), L" AS Titulo, ", Subtitle(kind), stated.Title(), L" AS Periodo, ",
                       sql::SQLStrConcat({prefix.View(), L"g.DESCR_GRUPO"}), L" AS Subgrupo, ",
                       L"a.DESCR_ASSUNTO AS Serie, ", Total(kind), sql::SQLToInt(L"d.FRENTE"), L") AS Total");
    builder.SetFrom(L"ASSUNTO a");
    builder.AddJoin(0, data::JoinKind::kInner, L"GRUPO g", L"a.COD_GRUPO = g.COD_GRUPO");
    builder.AddJoin(1, data::JoinKind::kInner, L"DOCUMENTO d", L"a.COD_ASSUNTO = d.COD_ASSUNTO");
    const std::wstring group = frame::ReadText(*obj, L"CodGrupo");
    const StatedPeriod bounds(ToTheDayAfter(period));
    builder.SetWhere(L"(", bounds.Between(L"d.DT_ARMAZ", sql::fdDDMMYYYY),
                     L") "
                     L"AND d.COD_ASSUNTO IN (SELECT COD_ASSUNTO FROM ASSUNTO WHERE COD_GRUPO='",
                     group, L"')");
    builder.SetGroupBy(L"g.DESCR_GRUPO, a.DESCR_ASSUNTO");
    builder.SetOrderBy(L"a.DESCR_ASSUNTO");
    return Open(builder.SQL());
  });
}

}  // namespace kodra::reports
