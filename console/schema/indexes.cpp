#include "console/schema/indexes.h"

#include "sql/tipo_banco.h"
#include "values/utf8.h"

namespace kodra::console::schema {
namespace {

using values::ToUtf8;

constexpr std::string_view kSintetico = "CDocumentoRpt.RelatorioSintetico";
constexpr std::string_view kAnalitico = "CDocumentoRpt.RelatorioAnalitico";
constexpr std::string_view kInventarios = "CDocumentoRpt.RelatorioInventarios";

std::string Joined(const std::vector<std::wstring_view>& columns, std::string_view separator) {
  std::string text;
  for (const std::wstring_view column : columns)
    text += (text.empty() ? std::string() : std::string(separator)) + ToUtf8(column);
  return text;
}

}  // namespace

const std::vector<Index>& Indexes() {
  static const std::vector<Index> indexes = {
      {.table = L"DOCUMENTO",
       .columns = {L"NUM_CAIXA"},
       .reports = {"CCaixaRpt.ModulosVencidos", "CCaixaRpt.AutorizacaoDescarteModuloSubRpt",
                   "CCaixaRpt.DocsNoModuloSubRpt", "CCaixaRpt.EtiquetaDivisoria"}},
      {.table = L"DOCUMENTO", .columns = {L"COD_DOCTO"}, .reports = {"CSolicitacaoRpt.RelatorioRetiradaOriginal"}},
      {.table = L"DOCUMENTO", .columns = {L"COD_DEPTO"}, .reports = {kSintetico, kAnalitico, kInventarios}},
      {.table = L"DOCUMENTO", .columns = {L"COD_ASSUNTO"}, .reports = {"CCaixaRpt.DocsNaoIndexadosNosModulos"}},
      {.table = L"DOCUMENTO",
       .columns = {L"DT_ARMAZ"},
       .reports = {kSintetico, kAnalitico, kInventarios, "CEstatImgRpt.RelatorioEstatisticas",
                   "CEstatSuporteRpt.RelatorioEstatisticas", "CEstatSubgrupoRpt.RelatorioEstatisticas"},
       .isForPeriod = true},
      {.table = L"DOCUMENTO",
       .columns = {L"DATA_INDEXACAO"},
       .reports = {"CEstatIndexRpt.RelatorioEstatisticasPorDocumento"},
       .isForPeriod = true},
      {.table = L"SOLICITACAO", .columns = {L"COD_SOLICIT"}, .reports = {"CSolicitacaoRpt.RelatorioRetiradaOriginal"}},
      {.table = L"EVENTO", .columns = {L"DATA_INICIAL"}, .reports = {"CLogRpt.RelatorioLog"}},
  };
  return indexes;
}

bool IsUseful(const Index& index, std::int32_t databaseCode) {
  return !index.isForPeriod || databaseCode != sql::tbSQLite;
}

std::string NameOf(const Index& index) { return "IX_" + ToUtf8(index.table) + "_" + Joined(index.columns, "_"); }

std::string CreateStatement(const Index& index) { return "CREATE INDEX " + NameOf(index) + " ON " + Described(index); }

std::string Described(const Index& index) { return ToUtf8(index.table) + " (" + Joined(index.columns, ", ") + ")"; }

}  // namespace kodra::console::schema
