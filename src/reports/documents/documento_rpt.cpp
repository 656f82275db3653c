#include "reports/documents/documento_rpt.h"

#include "frame/parameter_reader.h"
#include "sql/tradutor_sql.h"
#include "values/format_date.h"

namespace kodra::reports {
namespace {

struct Join {
  std::wstring_view table = {};
  std::wstring_view condition = {};
};

constexpr Join kSuporte = {L"SUPORTE s", L"d.COD_SUPORTE = s.COD_SUPORTE"};
constexpr Join kOperador = {L"OPERADOR o", L"d.COD_OPERADOR = o.COD_OPERADOR"};
constexpr Join kAssunto = {L"ASSUNTO a", L"d.COD_ASSUNTO = a.COD_ASSUNTO "};
constexpr Join kGrupo = {L"GRUPO g", L"d.COD_GRUPO = g.COD_GRUPO"};

// A whole day as bounds of the storage date; the database sees of them what the translator's date layout keeps.
template <values::DatePattern kPattern>
auto Bound(const values::Calendar& day) {
  return sql::SQLToDate(day, values::DateBy<kPattern>(day), sql::fdYYYYMMDD);
}

void FilterPeriod(data::SelectBuilder& builder, AutomationObject& parameters) {
  const Date last = frame::ReadDate(parameters, L"DataArmazenamento2");
  if (last.days == 0.0) return;
  const values::Calendar firstDay = values::ToCalendar(frame::ReadDate(parameters, L"DataArmazenamento1"));
  const values::Calendar lastDay = values::ToCalendar(last);
  builder.AddToWhere(L" AND d.DT_ARMAZ BETWEEN ", Bound<L"yyyy-mm-dd 00:00:00">(firstDay), L" AND ",
                     Bound<L"yyyy-mm-dd 23:59:59">(lastDay));
}

void FilterDepto(data::SelectBuilder& builder, AutomationObject& parameters) {
  const std::wstring code = frame::ReadText(parameters, L"CodDepto");
  if (code.empty()) return;
  builder.AddToWhere(L" AND d.COD_DEPTO = '", code, L"'");
}

}  // namespace

// What differs between the three listings.
struct CDocumentoRpt::Listing {
  std::wstring_view columns;
  Join joins[4];
  std::wstring_view where;
};

frame::ReportRows CDocumentoRpt::List(std::wstring_view method, AutomationObject* obj, const Listing& listing) {
  return Report(method, [&] {
    InicializaPS(obj);
    data::SelectBuilder builder = NewBuilder();
    builder.SetColumns(listing.columns);
    builder.SetFrom(L"DOCUMENTO d");
    for (std::int32_t index = 0; const Join& join : listing.joins)
      if (!join.table.empty()) builder.AddJoin(index++, data::JoinKind::kInner, join.table, join.condition);
    builder.SetWhere(listing.where);
    FilterPeriod(builder, *obj);
    FilterDepto(builder, *obj);
    builder.SetOrderBy(L"d.COD_DOCTO");
    return Open(builder.SQL());
  });
}

frame::ReportRows CDocumentoRpt::RelatorioSintetico(AutomationObject* obj) {
  static constexpr Listing kListing = {
      .columns =
          L"d.COD_DOCTO, s.DESCR_SUPORTE, d.NUM_CAIXA, d.NUM_CD, "
          L"d.DT_ARMAZ, d.DT_VENC, d.FRENTE, d.VERSO ",
      .joins = {kSuporte},
      .where = L"(1=1)",
  };
  return List(L"RelatorioSintetico", obj, kListing);
}

frame::ReportRows CDocumentoRpt::RelatorioAnalitico(AutomationObject* obj) {
  static constexpr Listing kListing = {
      .columns =
          L"d.COD_DOCTO, g.DESCR_GRUPO, a.DESCR_ASSUNTO, "
          L"d.DESCR_CHAVE1, d.DESCR_CHAVE2, d.DESCR_CHAVE3, d.DESCR_CHAVE4, d.DESCR_CHAVE5, "
          L"o.DESCR_OPERADOR, s.DESCR_SUPORTE, d.DT_ARMAZ, d.ARQUIVO, d.OBS, d.FRENTE, "
          L"d.NUM_CAIXA, d.DT_VENC, d.VERSO, d.NUM_CD",
      .joins = {kSuporte, kOperador, kAssunto, kGrupo},
      .where = L"d.COD_GRUPO IS NOT NULL",
  };
  return List(L"RelatorioAnalitico", obj, kListing);
}

frame::ReportRows CDocumentoRpt::RelatorioInventarios(AutomationObject* obj) {
  static constexpr Listing kListing = {
      .columns =
          L"d.COD_DOCTO, g.DESCR_GRUPO, a.DESCR_ASSUNTO, d.NUM_CAIXA, d.MACO, d.DT_ARMAZ, "
          L"a.DESCR_CHAVE1 AS ACHAVE1, a.DESCR_CHAVE2 AS ACHAVE2, a.DESCR_CHAVE3 AS ACHAVE3, "
          L"a.DESCR_CHAVE4 AS ACHAVE4, a.DESCR_CHAVE5 AS ACHAVE5, "
          L"d.DESCR_CHAVE1, d.DESCR_CHAVE2, d.DESCR_CHAVE3, d.DESCR_CHAVE4, d.DESCR_CHAVE5, d.OBS",
      .joins = {kAssunto, kGrupo},
      .where = L"d.COD_GRUPO IS NOT NULL AND d.EXTENSAO='#INV'",
  };
  return List(L"RelatorioInventarios", obj, kListing);
}

}  // namespace kodra::reports
