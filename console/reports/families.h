// The guide's entries by family of reports, one file per family, and the columns and oddities that families share.
#pragma once

#include "console/reports/guide.h"

namespace kodra::console::guide {

std::vector<Report> Catalogs();
std::vector<Report> Documents();
std::vector<Report> ModuleLabels();
std::vector<Report> ModuleListings();
std::vector<Report> Containers();
std::vector<Report> Statistics();
// The listings that the program makes itself, without a report method.
std::vector<Report> OwnListings();

using enum ValueType;
using enum Place;
using enum PageKind;

inline constexpr Column kCodDocto = {"COD_DOCTO", kText, "Código do documento", "Documento"};
inline constexpr Column kDescrGrupo = {"DESCR_GRUPO", kText, "Subgrupo", "Subgrupo"};
inline constexpr Column kDescrAssunto = {"DESCR_ASSUNTO", kText, "Série", "Série"};
inline constexpr Column kDescrSuporte = {"DESCR_SUPORTE", kText, "Suporte", "Suporte"};
inline constexpr Column kDtArmaz = {"DT_ARMAZ", kMoment, "Data e hora de armazenamento", "Armazenamento"};
inline constexpr Column kDtVenc = {"DT_VENC", kDate, "Data de vencimento do documento", "Vencimento"};
inline constexpr Column kFrente = {"FRENTE", kNumber, "Folhas: páginas de frente", "Frente"};
inline constexpr Column kVerso = {"VERSO", kNumber, "Páginas de verso", "Verso"};
inline constexpr Column kNumCaixa = {"NUM_CAIXA", kText, "Módulo em que o documento está", "Módulo"};
inline constexpr Column kNumCd = {"NUM_CD", kText, "Mídia da cópia digital", "Mídia"};

inline constexpr Column kModulo = {"NUM_CAIXA", kText, "Código do módulo: 5 caracteres, 7 se subordinado", "Módulo"};
inline constexpr Column kDescCaixa = {"DESC_CAIXA", kText, "Descrição do módulo", "Descrição"};
inline constexpr Column kDocInicial = {"DOC_INICIAL", kText, "Primeiro documento", "Documento inicial"};
inline constexpr Column kDocFinal = {"DOC_FINAL", kText, "Último documento", "Documento final"};
inline constexpr Column kDataVencimento = {"DATA_VENCIMENTO", kDate, "Fim do prazo de guarda", "Vencimento"};
inline constexpr Column kDataFechamento = {"DATA_FECHAMENTO", kDate, "Data de fechamento; nula no módulo aberto",
                                           "Fechamento"};
inline constexpr Column kTipoGuarda = {"TIPO_GUARDA",
                                       kText,
                                       "Tipo de guarda: E descartado, T por prazo, D até fechar, P fora das relações",
                                       "Guarda",
                                       kColumn,
                                       {},
                                       {},
                                       "T por prazo, D até fechar, E descartado, P fora das relações"};
inline constexpr Column kAnosVencimento = {"ANOS_VENCIMENTO", kNumber, "Anos de guarda", "Anos de guarda"};

inline constexpr Failure kNoListOfSubordinates = {
    "Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo …",
    "o módulo … não existe, ou KodraBsnV3.ObtedorDeModulos não devolveu a lista dos seus subordinados",
    "Confira o código em Modulo1; se ele existe, confira a instalação e o log de KodraBsnV3"};
inline constexpr Failure kNoClosedSubordinate = {
    "Não há módulos subordinados fechados associados ao módulo …", "nenhum subordinado do módulo … está fechado",
    "Feche ao menos um, e vêm as etiquetas de todos; ou confira o código em Modulo1"};

inline constexpr Oddity kPastedFilters = {
    "Os filtros entram no SQL entre aspas simples, como foram informados: um apóstrofo no valor dá erro de sintaxe no "
    "banco",
    "Filters are pasted between quotes as they are."};

}  // namespace kodra::console::guide
