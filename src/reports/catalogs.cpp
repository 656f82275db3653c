// The archive's catalogs: each report lists one register whole. It only checks that there is a parameter object.
#include "reports/reports.h"

namespace kodra::reports {
namespace {

frame::ReportRows List(Call& call, const wchar_t* statement) {
  call.InicializaPS();
  return call.Open(statement);
}

}  // namespace

// Types of the media that hold digital copies.
frame::ReportRows CTipo_MidiaRpt::RelatorioTiposMidia(Call& call) {
  return List(call,
              L"SELECT DESCR_MIDIA, VALIDADE_MIDIA, CAPACIDADE_MIDIA "
              L"FROM TIPO_MIDIA "
              L"ORDER BY DESCR_MIDIA");
}

// What documents are made of: paper, microfilm and so on.
frame::ReportRows CSuporteRpt::RelatorioSuportes(Call& call) {
  return List(call,
              L"SELECT DESCR_SUPORTE "
              L"FROM SUPORTE "
              L"ORDER BY DESCR_SUPORTE");
}

// The groups, the first level of the taxonomy.
frame::ReportRows CGrupoRpt::RelatorioGrupos(Call& call) {
  return List(call,
              L"SELECT DESCR_CLASSE, OBS_CLASSE "
              L"FROM CLASSE "
              L"ORDER BY DESCR_CLASSE");
}

// The subgroups, the second level of the taxonomy.
frame::ReportRows CSubgrupoRpt::RelatorioSubgrupos(Call& call) {
  return List(call,
              L"SELECT g.DESCR_CLASSE, sb.DESCR_GRUPO, sb.OBS_GRUPO, sb.IDC_ATIVO "
              L"FROM GRUPO sb "
              L"INNER JOIN CLASSE g ON g.COD_CLASSE = sb.COD_CLASSE "
              L"ORDER BY g.DESCR_CLASSE, sb.DESCR_GRUPO");
}

// The series, the third level of the taxonomy, with their index keys. The first key must always be filled.
frame::ReportRows CSerieRpt::RelatorioSeries(Call& call) {
  return List(call,
              L"SELECT c.DESCR_CLASSE, "
              L"g.DESCR_GRUPO, "
              L"a.DESCR_ASSUNTO, a.OBS_ASSUNTO, a.DONO, a.IDC_ATIVO AS SERIE_ATIVA, "
              L"a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, "
              L"'S' AS OBRIGATORIA1, "
              L"CASE WHEN a.DESCR_CHAVE2 IS NULL OR a.DESCR_CHAVE2='' THEN '' "
              L"WHEN a.OBRIGATORIA2 IN ('1','S','T','Y') THEN 'S' ELSE 'N' END AS OBRIGATORIA2, "
              L"CASE WHEN a.DESCR_CHAVE3 IS NULL OR a.DESCR_CHAVE3='' THEN '' "
              L"WHEN a.OBRIGATORIA3 IN ('1','S','T','Y') THEN 'S' ELSE 'N' END AS OBRIGATORIA3, "
              L"CASE WHEN a.DESCR_CHAVE4 IS NULL OR a.DESCR_CHAVE4='' THEN '' "
              L"WHEN a.OBRIGATORIA4 IN ('1','S','T','Y') THEN 'S' ELSE 'N' END AS OBRIGATORIA4, "
              L"CASE WHEN a.DESCR_CHAVE5 IS NULL OR a.DESCR_CHAVE5='' THEN '' "
              L"WHEN a.OBRIGATORIA5 IN ('1','S','T','Y') THEN 'S' ELSE 'N' END AS OBRIGATORIA5, "
              L"a.MASK1, a.MASK2, a.MASK3, a.MASK4, a.MASK5, "
              L"o.DESCR_OPERADOR, "
              L"p.NOMEGRUPO, p.NOMESUBGRUPO, p.NOMESERIE, p.NOMESERIEPLURAL  "
              L"FROM ASSUNTO a "
              L"INNER JOIN GRUPO g ON a.COD_GRUPO = g.COD_GRUPO "
              L"LEFT JOIN OPERADOR o ON a.DONO = o.COD_OPERADOR "
              L"INNER JOIN CLASSE c ON g.COD_CLASSE = c.COD_CLASSE "
              L"INNER JOIN PARAMETRO p ON p.CODIGO = '1' "
              L"ORDER BY c.DESCR_CLASSE, g.DESCR_GRUPO, a.DESCR_ASSUNTO");
}

// The controlled terms, with the series and the keys that they fill.
frame::ReportRows CDicionarioRpt::RelatorioTermosControlados(Call& call) {
  return List(call,
              L"SELECT g.DESCR_GRUPO, a.DESCR_ASSUNTO, d.COD_PALAVRA, "
              L"a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, "
              L"d.DESCR_DICIONARIO "
              L"FROM DICIONARIO d "
              L"INNER JOIN ASSUNTO a ON d.COD_ASSUNTO = a.COD_ASSUNTO "
              L"INNER JOIN GRUPO g ON a.COD_GRUPO = g.COD_GRUPO "
              L"ORDER BY g.DESCR_GRUPO, a.DESCR_ASSUNTO, "
              L"a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, "
              L"d.DESCR_DICIONARIO");
}

// The departments with their addresses.
frame::ReportRows CDeptoRpt::RelatorioDeptos(Call& call) {
  return List(call,
              L"SELECT DESCR_DEPTO, ENDERECO, CIDADE, ESTADO, CEP, END_EMAIL "
              L"FROM DEPTO "
              L"ORDER BY DESCR_DEPTO");
}

// The depositories, where modules are stored, with their addresses.
frame::ReportRows CDepositoRpt::RelatorioDepositos(Call& call) {
  return List(call,
              L"SELECT NOME, ENDERECO, CIDADE, ESTADO, CEP, TELEFONE, FAX, CONTATO "
              L"FROM DEPOSITO "
              L"ORDER BY NOME");
}

// The types of storage modules and what fits into one. The type '0' is a reserved row.
frame::ReportRows CTipo_CaixaRpt::RelatorioTiposModulo(Call& call) {
  return List(call,
              L"SELECT DESCR_TIPO_CX, NUM_MAX_DOCS, NUM_MAX_FOLHAS "
              L"FROM TIPO_CAIXA "
              L"WHERE COD_TIPO_CX<>'0' "
              L"ORDER BY DESCR_TIPO_CX");
}

// The groups of operators.
frame::ReportRows CGrupoOperadorRpt::RelatorioGruposOperadores(Call& call) {
  return List(call,
              L"SELECT DESCR_GRPOP, OBS_GRPOP "
              L"FROM GRUPOS_OPERADORES "
              L"ORDER BY DESCR_GRPOP");
}

}  // namespace kodra::reports
