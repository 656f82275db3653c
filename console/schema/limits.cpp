#include "console/schema/limits.h"

#include <algorithm>

#include "sql/tipo_banco.h"

namespace kodra::console::schema {

const std::vector<Limit>& Limits() {
  static const std::vector<Limit> limits = {
      {.databaseCode = sql::tbSQLite,
       .reports = {"CSolicitacaoRpt.RelatorioDevolucaoOriginal"},
       .extent = Extent::kAlwaysFails,
       .text = "sempre dá erro de sintaxe, porque o relatório não sabe escrever uma data como texto no SQLite",
       .entry = "On SQLite a date has no text."},
      {.databaseCode = sql::tbSQLite,
       .reports = {"CDocumentoRpt.RelatorioSintetico", "CDocumentoRpt.RelatorioAnalitico",
                   "CDocumentoRpt.RelatorioInventarios"},
       .extent = Extent::kFailsWith,
       .text = "filtrar por período dá erro de sintaxe, porque as datas vão para o SQLite sem aspas",
       .entry = "On SQLite a date bound is not quoted.",
       .inStatement = L" BETWEEN "},
      {.databaseCode = sql::tbSQLite,
       .reports = {"CEstatImgRpt.RelatorioEstatisticas", "CEstatIndexRpt.RelatorioEstatisticasPorDocumento",
                   "CEstatSuporteRpt.RelatorioEstatisticas", "CEstatSubgrupoRpt.RelatorioEstatisticas",
                   "CEstatSerieRpt.RelatorioEstatisticas"},
       .extent = Extent::kFindsNothing,
       .text = "nenhum documento cai no período, porque as datas vão para o SQLite sem aspas",
       .entry = "On SQLite a date bound is not quoted."},
      {.databaseCode = sql::tbSQLite,
       .reports = {"CCDRpt.RelatorioMidias"},
       .extent = Extent::kFindsNothing,
       .text =
           "com TipoRpt V, nenhuma mídia aparece como vencida, porque o nome da coluna vai para o SQLite entre aspas",
       .entry = "On SQLite a date is added to a quoted name."},
      {.databaseCode = sql::tbDB2,
       .reports = {"CCaixaRpt.ModulosExcluidos", "CCaixaRpt.ModulosVencidos"},
       .extent = Extent::kAlwaysFails,
       .text = "sempre dá erro com StringConexao, porque o DB2 não aceita ordenar por NUM_CAIXA as duas metades da "
               "instrução",
       .entry = "On DB2 the discarded and the due modules are an error of the statement.",
       .inStatement = L" UNION "},
      {.databaseCode = sql::tbOracleAlt,
       .reports = {"CCaixaRpt.AutorizacaoDescarteModuloSubRpt"},
       .extent = Extent::kFailsWith,
       .text = "um código sem 5 caracteres dá erro antes do Oracle 23, porque a linha em branco vem de um SELECT sem "
               "FROM",
       .entry = "Oracle's second code gets a blank row from no table.",
       .inStatement = L"' ' AS COD_DOCTO"},
  };
  return limits;
}

std::vector<const Limit*> LimitsOf(std::string_view report, std::int32_t databaseCode) {
  std::vector<const Limit*> found;
  for (const Limit& limit : Limits())
    if (limit.databaseCode == databaseCode && std::ranges::find(limit.reports, report) != limit.reports.end())
      found.push_back(&limit);
  return found;
}

}  // namespace kodra::console::schema
