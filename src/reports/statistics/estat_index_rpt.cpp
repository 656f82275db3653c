// Indexing production: the documents indexed in a period, and counts by index key.
#include "frame/parameter_reader.h"
#include "reports/reports.h"
#include "reports/statistics/period.h"
#include "reports/statistics/production_filter.h"

namespace kodra::reports {

// Reads Owner, DataInicial, DataFinal, CodOperador (the one who indexed) and CodDepto (empty: all): one row per
// document.
frame::ReportRows CEstatIndexRpt::RelatorioEstatisticasPorDocumento(Call& call) {
  call.InicializaPS();
  const Period period = ReadPeriod(call.Parameters());
  const ProductionFilter filter = ReadProductionFilter(call.Parameters());
  const std::wstring title = PeriodTitle(period);
  const std::wstring owner = frame::ReadText(call.Parameters(), L"Owner");
  data::SelectBuilder select;
  select.SetColumns(title + L" AS TIT1, " + filter.Columns() +
                    L"d.DATA_INDEXACAO, "
                    L"d.COD_DOCTO, "
                    L"p.EMPRESA AS FUNDO, "
                    L"'" +
                    owner + L"' AS OWNER");
  select.SetFrom(L"DOCUMENTO d");
  const std::int32_t joins = filter.AddJoins(select, 0, L"d.COD_INDEXADOR");
  select.AddJoin(joins, data::JoinKind::kInner, L"PARAMETRO p", L"p.CODIGO = '1'");
  select.SetWhere(Between(L"d.DATA_INDEXACAO", period, sql::fdDDMMYYYY, call.Sql()) +
                  filter.Conditions(L"d.COD_INDEXADOR"));
  return call.Open(select.SQL());
}

// Reads Owner, DataInicial, DataFinal, DescrOperador, DescrDepto, NumeroPC1 to NumeroPC5 and NumeroObs: one row with
// the counts that the client made, which the statement contains unchanged.
frame::ReportRows CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave(Call& call) {
  call.InicializaPS();
  AutomationObject& parameters = call.Parameters();
  std::wstring statement = L"SELECT " + PeriodTitle(ReadPeriod(parameters)) + L" AS TIT1, ";
  statement += L"'" + frame::ReadText(parameters, L"DescrOperador") + L"' AS OPERADOR, ";
  statement += L"'" + frame::ReadText(parameters, L"DescrDepto") + L"' AS DEPTO, ";
  statement += frame::ReadText(parameters, L"NumeroPC1") + L" AS PC1, ";
  statement += frame::ReadText(parameters, L"NumeroPC2") + L" AS PC2, ";
  statement += frame::ReadText(parameters, L"NumeroPC3") + L" AS PC3, ";
  statement += frame::ReadText(parameters, L"NumeroPC4") + L" AS PC4, ";
  statement += frame::ReadText(parameters, L"NumeroPC5") + L" AS PC5, ";
  statement += frame::ReadText(parameters, L"NumeroObs") + L" AS OBS, ";
  statement +=
      L"p.EMPRESA AS FUNDO, "
      L"'" +
      frame::ReadText(parameters, L"Owner") +
      L"' AS OWNER "
      L"FROM PARAMETRO p "
      L"WHERE p.CODIGO = '1'";
  return call.Open(statement);
}

}  // namespace kodra::reports
