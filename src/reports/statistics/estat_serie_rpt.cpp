// Production by series within a subgroup, counted by the database.
#include "frame/parameter_reader.h"
#include "reports/reports.h"
#include "reports/statistics/period.h"
#include "reports/statistics/taxonomy_names.h"

namespace kodra::reports {
namespace {

std::wstring Subtitle(const std::wstring& kind) {
  if (kind == L"F") return L"'(por número de folhas)' AS Subtitulo, ";
  if (kind == L"P") return L"'(por número de páginas)' AS Subtitulo, ";
  return L"'(por número de documentos)' AS Subtitulo, ";
}

// Documents stored on the last day count at any time of day: the upper bound is the day after.
Period ToTheDayAfter(const Period& period) { return {period.first, {period.last.days + 1}}; }

}  // namespace

// Reads DataInicial, DataFinal, CodGrupo and TipoRpt: "N" counts documents, any other text sums front pages; "F" and
// "P" differ only in the subtitle. Title and subgroup have the installation's own names.
frame::ReportRows CEstatSerieRpt::RelatorioEstatisticas(Call& call) {
  call.InicializaPS();
  const sql::Translator& sql = call.Sql();
  const std::wstring series = TaxonomyName(L"NOME_SERIE", call.StringConexao(), call.Around());
  const std::wstring subgroup = TaxonomyName(L"NOME_SUBGRUPO", call.StringConexao(), call.Around());
  const Period period = ReadPeriod(call.Parameters());
  const std::wstring kind = frame::ReadText(call.Parameters(), L"TipoRpt");
  const std::wstring title = PeriodTitle(period);
  // Pages are front pages whatever the subtitle says.
  const std::wstring total = (kind == L"N" ? L"COUNT(" : L"SUM(") + sql.ToInt(L"d.FRENTE") + L")";
  const std::wstring group = frame::ReadText(call.Parameters(), L"CodGrupo");
  return call.Open(L"SELECT " + StatisticsTitle(series) + L" AS Titulo, " + Subtitle(kind) + title + L" AS Periodo, " +
                   sql.StrConcat({L"'" + subgroup + L": '", L"g.DESCR_GRUPO"}) +
                   L" AS Subgrupo, "
                   L"a.DESCR_ASSUNTO AS Serie, " +
                   total +
                   L" AS Total "
                   L"FROM ASSUNTO a "
                   L"INNER JOIN GRUPO g ON a.COD_GRUPO = g.COD_GRUPO "
                   L"INNER JOIN DOCUMENTO d ON a.COD_ASSUNTO = d.COD_ASSUNTO "
                   L"WHERE (" +
                   Between(L"d.DT_ARMAZ", ToTheDayAfter(period), sql::fdDDMMYYYY, sql) +
                   L") "
                   L"AND d.COD_ASSUNTO IN (SELECT COD_ASSUNTO FROM ASSUNTO WHERE COD_GRUPO='" +
                   group +
                   L"') "
                   L"GROUP BY g.DESCR_GRUPO, a.DESCR_ASSUNTO "
                   L"ORDER BY a.DESCR_ASSUNTO");
}

}  // namespace kodra::reports
