// The column lists of the tables.
#include "testbed/archive/schema.h"

namespace kodra::testbed {
namespace {

Cell ToCell(const std::wstring& text) { return std::wstring_view(text); }
Cell ToCell(std::int64_t number) { return number; }
Cell ToCell(Day day) { return day; }
Cell ToCell(Moment moment) { return moment; }
template <class T>
Cell ToCell(const std::optional<T>& value) {
  return value ? ToCell(*value) : Cell();
}

template <class Record>
struct ReadColumn {
  Column column;
  Cell (*read)(const Record&);
};

template <class Record, class T>
Record RecordOfMember(T Record::*);
template <auto Member>
using RecordOf = decltype(RecordOfMember(Member));

// A column that is a member, and a column that is an element of an array member.
template <auto Member>
ReadColumn<RecordOf<Member>> In(Column column) {
  return {column, [](const RecordOf<Member>& record) { return ToCell(record.*Member); }};
}
template <auto Member, std::size_t kIndex>
ReadColumn<RecordOf<Member>> In(Column column) {
  return {column, [](const RecordOf<Member>& record) { return ToCell((record.*Member)[kIndex]); }};
}

Column Chars(std::wstring_view name, int length) { return {name, ColumnType::kText, length}; }
Column LongText(std::wstring_view name) { return {name, ColumnType::kLongText}; }
Column Integer(std::wstring_view name) { return {name, ColumnType::kInteger}; }
Column Date(std::wstring_view name) { return {name, ColumnType::kDate}; }
Column DateAndTime(std::wstring_view name) { return {name, ColumnType::kMoment}; }

template <class Record>
Table<Record> Make(std::wstring_view name, std::size_t keyColumns, const std::vector<ReadColumn<Record>>& columns,
                   std::vector<std::wstring_view> indexed = {}) {
  Table<Record> table{{name, keyColumns, {}, std::move(indexed)}, {}};
  for (const auto& [column, read] : columns) {
    table.shape.columns.push_back(column);
    table.read.push_back(read);
  }
  return table;
}

}  // namespace

template <>
const Table<Parametro>& TableOf() {
  static const auto table = Make<Parametro>(
      L"PARAMETRO", 1,
      {In<&Parametro::codigo>(Chars(L"CODIGO", 10)), In<&Parametro::empresa>(Chars(L"EMPRESA", 64)),
       In<&Parametro::nomeGrupo>(Chars(L"NOMEGRUPO", 50)), In<&Parametro::nomeSubgrupo>(Chars(L"NOMESUBGRUPO", 50)),
       In<&Parametro::nomeSerie>(Chars(L"NOMESERIE", 50)),
       In<&Parametro::nomeSeriePlural>(Chars(L"NOMESERIEPLURAL", 50)),
       In<&Parametro::minutosBloqueio>(Integer(L"MINUTOS_BLOQUEIO")),
       In<&Parametro::maxDiasSenha>(Integer(L"MAX_DIAS_SENHA")),
       In<&Parametro::testarQualidadeSenha>(Chars(L"TESTAR_QUALIDADE_SENHA", 1)),
       In<&Parametro::usarAd>(Chars(L"USAR_AD", 1)),
       In<&Parametro::tamanhoMaximoArquivo>(Integer(L"TAMANHO_MAXIMO_ARQUIVO"))});
  return table;
}

template <>
const Table<Classe>& TableOf() {
  static const auto table = Make<Classe>(
      L"CLASSE", 1,
      {In<&Classe::codClasse>(Chars(L"COD_CLASSE", 10)), In<&Classe::descrClasse>(Chars(L"DESCR_CLASSE", 100)),
       In<&Classe::obsClasse>(Chars(L"OBS_CLASSE", 255))});
  return table;
}

template <>
const Table<Grupo>& TableOf() {
  static const auto table =
      Make<Grupo>(L"GRUPO", 1,
                  {In<&Grupo::codGrupo>(Chars(L"COD_GRUPO", 10)), In<&Grupo::codClasse>(Chars(L"COD_CLASSE", 10)),
                   In<&Grupo::descrGrupo>(Chars(L"DESCR_GRUPO", 100)), In<&Grupo::obsGrupo>(Chars(L"OBS_GRUPO", 255)),
                   In<&Grupo::idcAtivo>(Chars(L"IDC_ATIVO", 1))});
  return table;
}

template <>
const Table<Assunto>& TableOf() {
  static const auto table = Make<Assunto>(L"ASSUNTO", 1,
                                          {In<&Assunto::codAssunto>(Chars(L"COD_ASSUNTO", 10)),
                                           In<&Assunto::codGrupo>(Chars(L"COD_GRUPO", 10)),
                                           In<&Assunto::descrAssunto>(Chars(L"DESCR_ASSUNTO", 100)),
                                           In<&Assunto::obsAssunto>(Chars(L"OBS_ASSUNTO", 255)),
                                           In<&Assunto::dono>(Chars(L"DONO", 10)),
                                           In<&Assunto::idcAtivo>(Chars(L"IDC_ATIVO", 1)),
                                           In<&Assunto::descrChave, 0>(Chars(L"DESCR_CHAVE1", 50)),
                                           In<&Assunto::descrChave, 1>(Chars(L"DESCR_CHAVE2", 50)),
                                           In<&Assunto::descrChave, 2>(Chars(L"DESCR_CHAVE3", 50)),
                                           In<&Assunto::descrChave, 3>(Chars(L"DESCR_CHAVE4", 50)),
                                           In<&Assunto::descrChave, 4>(Chars(L"DESCR_CHAVE5", 50)),
                                           In<&Assunto::obrigatoria, 0>(Chars(L"OBRIGATORIA2", 1)),
                                           In<&Assunto::obrigatoria, 1>(Chars(L"OBRIGATORIA3", 1)),
                                           In<&Assunto::obrigatoria, 2>(Chars(L"OBRIGATORIA4", 1)),
                                           In<&Assunto::obrigatoria, 3>(Chars(L"OBRIGATORIA5", 1)),
                                           In<&Assunto::mask, 0>(Chars(L"MASK1", 50)),
                                           In<&Assunto::mask, 1>(Chars(L"MASK2", 50)),
                                           In<&Assunto::mask, 2>(Chars(L"MASK3", 50)),
                                           In<&Assunto::mask, 3>(Chars(L"MASK4", 50)),
                                           In<&Assunto::mask, 4>(Chars(L"MASK5", 50))},
                                          {L"COD_GRUPO"});
  return table;
}

template <>
const Table<Dicionario>& TableOf() {
  static const auto table = Make<Dicionario>(
      L"DICIONARIO", 1,
      {In<&Dicionario::codPalavra>(Chars(L"COD_PALAVRA", 10)), In<&Dicionario::codAssunto>(Chars(L"COD_ASSUNTO", 10)),
       In<&Dicionario::descrDicionario>(Chars(L"DESCR_DICIONARIO", 255))});
  return table;
}

template <>
const Table<Modelo>& TableOf() {
  static const auto table =
      Make<Modelo>(L"MODELO", 1,
                   {In<&Modelo::codModelo>(Chars(L"COD_MODELO", 128)), In<&Modelo::codGrupo>(Chars(L"COD_GRUPO", 10)),
                    In<&Modelo::codAssunto>(Chars(L"COD_ASSUNTO", 10)), In<&Modelo::chave, 0>(Chars(L"CHAVE1", 100)),
                    In<&Modelo::chave, 1>(Chars(L"CHAVE2", 100)), In<&Modelo::chave, 2>(Chars(L"CHAVE3", 100)),
                    In<&Modelo::chave, 3>(Chars(L"CHAVE4", 100)), In<&Modelo::chave, 4>(Chars(L"CHAVE5", 100)),
                    In<&Modelo::validade>(Integer(L"VALIDADE"))});
  return table;
}

template <>
const Table<Suporte>& TableOf() {
  static const auto table = Make<Suporte>(
      L"SUPORTE", 1,
      {In<&Suporte::codSuporte>(Chars(L"COD_SUPORTE", 10)), In<&Suporte::descrSuporte>(Chars(L"DESCR_SUPORTE", 50))});
  return table;
}

template <>
const Table<TipoMidia>& TableOf() {
  static const auto table = Make<TipoMidia>(
      L"TIPO_MIDIA", 1,
      {In<&TipoMidia::codMidia>(Chars(L"COD_MIDIA", 10)), In<&TipoMidia::descrMidia>(Chars(L"DESCR_MIDIA", 50)),
       In<&TipoMidia::validadeMidia>(Integer(L"VALIDADE_MIDIA")),
       In<&TipoMidia::capacidadeMidia>(Integer(L"CAPACIDADE_MIDIA"))});
  return table;
}

template <>
const Table<Cd>& TableOf() {
  static const auto table =
      Make<Cd>(L"CD", 1,
               {In<&Cd::numCd>(Chars(L"NUM_CD", 10)), In<&Cd::docInicial>(Chars(L"DOC_INICIAL", 10)),
                In<&Cd::docFinal>(Chars(L"DOC_FINAL", 10)), In<&Cd::dataGravacao>(Date(L"DATA_GRAVACAO")),
                In<&Cd::codMidia>(Chars(L"COD_MIDIA", 10))});
  return table;
}

template <>
const Table<Depto>& TableOf() {
  static const auto table =
      Make<Depto>(L"DEPTO", 1,
                  {In<&Depto::codDepto>(Chars(L"COD_DEPTO", 10)), In<&Depto::descrDepto>(Chars(L"DESCR_DEPTO", 100)),
                   In<&Depto::endereco>(Chars(L"ENDERECO", 150)), In<&Depto::cidade>(Chars(L"CIDADE", 60)),
                   In<&Depto::estado>(Chars(L"ESTADO", 2)), In<&Depto::cep>(Chars(L"CEP", 9)),
                   In<&Depto::endEmail>(Chars(L"END_EMAIL", 100))});
  return table;
}

template <>
const Table<GrupoOperadores>& TableOf() {
  static const auto table = Make<GrupoOperadores>(L"GRUPOS_OPERADORES", 1,
                                                  {In<&GrupoOperadores::codGrpop>(Chars(L"COD_GRPOP", 10)),
                                                   In<&GrupoOperadores::descrGrpop>(Chars(L"DESCR_GRPOP", 100)),
                                                   In<&GrupoOperadores::obsGrpop>(Chars(L"OBS_GRPOP", 255))});
  return table;
}

template <>
const Table<Operador>& TableOf() {
  static const auto table =
      Make<Operador>(L"OPERADOR", 1,
                     {In<&Operador::codOperador>(Chars(L"COD_OPERADOR", 10)),
                      In<&Operador::descrOperador>(Chars(L"DESCR_OPERADOR", 50)),
                      In<&Operador::nomeCompleto>(Chars(L"NOME_COMPLETO", 300)),
                      In<&Operador::tipo>(Chars(L"TIPO", 10)), In<&Operador::codDepto>(Chars(L"COD_DEPTO", 10)),
                      In<&Operador::codGrpop>(Chars(L"COD_GRPOP", 10)), In<&Operador::chapa>(Chars(L"CHAPA", 20)),
                      In<&Operador::ramal>(Chars(L"RAMAL", 10)), In<&Operador::idcAtivo>(Chars(L"IDC_ATIVO", 12)),
                      In<&Operador::opcoesPessoais>(Chars(L"OPCOES_PESSOAIS", 255))});
  return table;
}

template <>
const Table<Deposito>& TableOf() {
  static const auto table =
      Make<Deposito>(L"DEPOSITO", 1,
                     {In<&Deposito::codDeposito>(Chars(L"COD_DEPOSITO", 10)), In<&Deposito::nome>(Chars(L"NOME", 100)),
                      In<&Deposito::endereco>(Chars(L"ENDERECO", 150)), In<&Deposito::cidade>(Chars(L"CIDADE", 60)),
                      In<&Deposito::estado>(Chars(L"ESTADO", 2)), In<&Deposito::cep>(Chars(L"CEP", 9)),
                      In<&Deposito::telefone>(Chars(L"TELEFONE", 20)), In<&Deposito::fax>(Chars(L"FAX", 20)),
                      In<&Deposito::contato>(Chars(L"CONTATO", 100))});
  return table;
}

template <>
const Table<Container>& TableOf() {
  static const auto table = Make<Container>(L"CONTAINER", 1,
                                            {In<&Container::numContainer>(Chars(L"NUM_CONTAINER", 10)),
                                             In<&Container::descContainer>(Chars(L"DESC_CONTAINER", 100))});
  return table;
}

template <>
const Table<TipoCaixa>& TableOf() {
  static const auto table = Make<TipoCaixa>(
      L"TIPO_CAIXA", 1,
      {In<&TipoCaixa::codTipoCx>(Chars(L"COD_TIPO_CX", 10)), In<&TipoCaixa::descrTipoCx>(Chars(L"DESCR_TIPO_CX", 50)),
       In<&TipoCaixa::numMaxDocs>(Integer(L"NUM_MAX_DOCS")), In<&TipoCaixa::numMaxFolhas>(Integer(L"NUM_MAX_FOLHAS"))});
  return table;
}

template <>
const Table<Caixa>& TableOf() {
  static const auto table = Make<Caixa>(
      L"CAIXA", 1,
      {In<&Caixa::numCaixa>(Chars(L"NUM_CAIXA", 5)), In<&Caixa::descCaixa>(Chars(L"DESC_CAIXA", 100)),
       In<&Caixa::obsCaixa>(Chars(L"OBS_CAIXA", 255)), In<&Caixa::docInicial>(Chars(L"DOC_INICIAL", 10)),
       In<&Caixa::docFinal>(Chars(L"DOC_FINAL", 10)), In<&Caixa::dataVencimento>(Date(L"DATA_VENCIMENTO")),
       In<&Caixa::dataFechamento>(Date(L"DATA_FECHAMENTO")), In<&Caixa::tipoGuarda>(Chars(L"TIPO_GUARDA", 1)),
       In<&Caixa::anosVencimento>(Integer(L"ANOS_VENCIMENTO")), In<&Caixa::codDepto>(Chars(L"COD_DEPTO", 10)),
       In<&Caixa::docsPregressos>(Integer(L"DOCS_PREGRESSOS")), In<&Caixa::coordX>(Chars(L"COORD_X", 10)),
       In<&Caixa::coordY>(Chars(L"COORD_Y", 10)), In<&Caixa::coordZ>(Chars(L"COORD_Z", 10)),
       In<&Caixa::container>(Chars(L"CONTAINER", 10)), In<&Caixa::codDeposito>(Chars(L"COD_DEPOSITO", 10)),
       In<&Caixa::codTipoCx>(Chars(L"COD_TIPO_CX", 10))},
      {L"CONTAINER"});
  return table;
}

template <>
const Table<CaixaSubordinada>& TableOf() {
  static const auto table = Make<CaixaSubordinada>(
      L"CAIXA_SUBORDINADA", 2,
      {In<&CaixaSubordinada::numCaixa>(Chars(L"NUM_CAIXA", 5)), In<&CaixaSubordinada::numSeq>(Integer(L"NUM_SEQ")),
       In<&CaixaSubordinada::docInicial>(Chars(L"DOC_INICIAL", 10)),
       In<&CaixaSubordinada::docFinal>(Chars(L"DOC_FINAL", 10)),
       In<&CaixaSubordinada::dataVencimento>(Date(L"DATA_VENCIMENTO")),
       In<&CaixaSubordinada::dataFechamento>(Date(L"DATA_FECHAMENTO")),
       In<&CaixaSubordinada::tipoGuarda>(Chars(L"TIPO_GUARDA", 1)),
       In<&CaixaSubordinada::anosVencimento>(Integer(L"ANOS_VENCIMENTO"))});
  return table;
}

template <>
const Table<Documento>& TableOf() {
  static const auto table = Make<Documento>(L"DOCUMENTO", 1,
                                            {In<&Documento::codDocto>(Chars(L"COD_DOCTO", 10)),
                                             In<&Documento::codSuporte>(Chars(L"COD_SUPORTE", 10)),
                                             In<&Documento::numCaixa>(Chars(L"NUM_CAIXA", 5)),
                                             In<&Documento::numCd>(Chars(L"NUM_CD", 10)),
                                             In<&Documento::codGrupo>(Chars(L"COD_GRUPO", 10)),
                                             In<&Documento::codAssunto>(Chars(L"COD_ASSUNTO", 10)),
                                             In<&Documento::codDepto>(Chars(L"COD_DEPTO", 10)),
                                             In<&Documento::codOperador>(Chars(L"COD_OPERADOR", 10)),
                                             In<&Documento::codIndexador>(Chars(L"COD_INDEXADOR", 10)),
                                             In<&Documento::dtArmaz>(DateAndTime(L"DT_ARMAZ")),
                                             In<&Documento::dataIndexacao>(DateAndTime(L"DATA_INDEXACAO")),
                                             In<&Documento::dtVenc>(Date(L"DT_VENC")),
                                             In<&Documento::frente>(Integer(L"FRENTE")),
                                             In<&Documento::verso>(Integer(L"VERSO")),
                                             In<&Documento::descrChave, 0>(Chars(L"DESCR_CHAVE1", 100)),
                                             In<&Documento::descrChave, 1>(Chars(L"DESCR_CHAVE2", 100)),
                                             In<&Documento::descrChave, 2>(Chars(L"DESCR_CHAVE3", 100)),
                                             In<&Documento::descrChave, 3>(Chars(L"DESCR_CHAVE4", 100)),
                                             In<&Documento::descrChave, 4>(Chars(L"DESCR_CHAVE5", 100)),
                                             In<&Documento::arquivo>(Chars(L"ARQUIVO", 255)),
                                             In<&Documento::extensao>(Chars(L"EXTENSAO", 10)),
                                             In<&Documento::maco>(Chars(L"MACO", 20)),
                                             In<&Documento::obs>(Chars(L"OBS", 255))},
                                            {L"NUM_CAIXA", L"COD_ASSUNTO", L"DT_ARMAZ", L"DATA_INDEXACAO"});
  return table;
}

template <>
const Table<Solicitacao>& TableOf() {
  static const auto table = Make<Solicitacao>(
      L"SOLICITACAO", 2,
      {In<&Solicitacao::codSolicit>(Integer(L"COD_SOLICIT")), In<&Solicitacao::codDocto>(Chars(L"COD_DOCTO", 10)),
       In<&Solicitacao::codOperador>(Chars(L"COD_OPERADOR", 10)), In<&Solicitacao::devolvido>(Chars(L"DEVOLVIDO", 1)),
       In<&Solicitacao::dtRetirada>(DateAndTime(L"DT_RETIRADA")),
       In<&Solicitacao::dtDevolucao>(DateAndTime(L"DT_DEVOLUCAO")),
       In<&Solicitacao::obsSolicit>(Chars(L"OBS_SOLICIT", 255))});
  return table;
}

template <>
const Table<Evento>& TableOf() {
  static const auto table = Make<Evento>(
      L"EVENTO", 1,
      {In<&Evento::codEvento>(Integer(L"COD_EVENTO")), In<&Evento::dataInicial>(DateAndTime(L"DATA_INICIAL")),
       In<&Evento::nomeOperador>(Chars(L"NOME_OPERADOR", 300)), In<&Evento::maquina>(Chars(L"MAQUINA", 255)),
       In<&Evento::codDocto>(Chars(L"COD_DOCTO", 10)), In<&Evento::tipoEvento>(Chars(L"TIPO_EVENTO", 3)),
       In<&Evento::acao>(LongText(L"ACAO"))},
      {L"DATA_INICIAL"});
  return table;
}

}  // namespace kodra::testbed
