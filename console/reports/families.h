// The guide's families of reports, a file each, and the columns that they share.
#pragma once

#include "console/reports/guide.h"

namespace kodra::console::guide {

std::span<const Report> Catalogs();
std::span<const Report> Documents();
std::span<const Report> ModuleLabels();
std::span<const Report> ModuleListings();
std::span<const Report> Containers();
std::span<const Report> Statistics();

using enum ValueType;

inline constexpr Column kCodDocto = {"COD_DOCTO", kText, "Código do documento"};
inline constexpr Column kDescrGrupo = {"DESCR_GRUPO", kText, "Subgrupo"};
inline constexpr Column kDescrAssunto = {"DESCR_ASSUNTO", kText, "Série"};
inline constexpr Column kDescrSuporte = {"DESCR_SUPORTE", kText, "Suporte"};
inline constexpr Column kDtArmaz = {"DT_ARMAZ", kDate, "Data de armazenamento, com hora"};
inline constexpr Column kDtVenc = {"DT_VENC", kDate, "Data de vencimento do documento"};
inline constexpr Column kFrente = {"FRENTE", kNumber, "Folhas: páginas de frente"};
inline constexpr Column kVerso = {"VERSO", kNumber, "Páginas de verso"};
inline constexpr Column kNumCaixa = {"NUM_CAIXA", kText, "Módulo em que o documento está"};
inline constexpr Column kNumCd = {"NUM_CD", kText, "Mídia da cópia digital"};
inline constexpr Column kFundo = {"FUNDO", kText, "Nome da organização"};
inline constexpr Column kOwner = {"OWNER", kText, "O parâmetro Owner"};

inline constexpr Column kModulo = {"NUM_CAIXA", kText, "Código do módulo: 5 caracteres, 7 se subordinado"};
inline constexpr Column kDescCaixa = {"DESC_CAIXA", kText, "Descrição do módulo"};
inline constexpr Column kDocInicial = {"DOC_INICIAL", kText, "Primeiro documento"};
inline constexpr Column kDocFinal = {"DOC_FINAL", kText, "Último documento"};
inline constexpr Column kDataVencimento = {"DATA_VENCIMENTO", kDate, "Fim do prazo de guarda"};
inline constexpr Column kDataFechamento = {"DATA_FECHAMENTO", kDate, "Data de fechamento; nula no módulo aberto"};
inline constexpr Column kTipoGuarda = {"TIPO_GUARDA", kText,
                                       "Tipo de guarda: E descartado, T por prazo, D até fechar, P fora das relações"};
inline constexpr Column kAnosVencimento = {"ANOS_VENCIMENTO", kNumber, "Anos de guarda"};
inline constexpr Column kFileira = {"FILEIRA", kText, "Fileira"};
inline constexpr Column kEstante = {"ESTANTE", kText, "Estante"};
inline constexpr Column kPrateleira = {"PRATELEIRA", kText, "Prateleira"};

// The five index keys: of a series their captions, of a document or a model their values.
#define KODRA_FIVE_COLUMNS(prefix, meaning)                                                      \
  Column{prefix "1", kText, meaning " 1"}, Column{prefix "2", kText, meaning " 2"},              \
      Column{prefix "3", kText, meaning " 3"}, Column{prefix "4", kText, meaning " 4"}, Column { \
    prefix "5", kText, meaning " 5"                                                              \
  }

inline constexpr Oddity kPastedFilters = {
    "Os filtros entram no SQL entre aspas simples como foram dados: uma aspa no "
    "valor é erro de sintaxe no banco",
    "Filters are pasted between quotes as they are."};
inline constexpr Oddity kBrokenPeriodOnSqlite = {
    "No SQLite a data do período sai sem aspas: vira uma conta, e nenhum documento cai no período",
    "On SQLite a date bound is not quoted."};

}  // namespace kodra::console::guide
