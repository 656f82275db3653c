// The ten catalogs: each lists its register with one statement, which is the same on every database.
#include <gtest/gtest.h>

#include "reports/reports.h"
#include "tests/reports/report_scenario.h"

namespace kodra::reports {
namespace {

struct Catalog {
  const char* name;
  Subject report;
  const char* statement;
};

const Catalog kCatalogs[] = {
    {"ListsTheTypesOfMedia", SubjectOf("CTipo_MidiaRpt::RelatorioTiposMidia", &CTipo_MidiaRpt::RelatorioTiposMidia),
     "SELECT DESCR_MIDIA, VALIDADE_MIDIA, CAPACIDADE_MIDIA FROM TIPO_MIDIA ORDER BY DESCR_MIDIA"},
    {"ListsTheSupports", SubjectOf("CSuporteRpt::RelatorioSuportes", &CSuporteRpt::RelatorioSuportes),
     "SELECT DESCR_SUPORTE FROM SUPORTE ORDER BY DESCR_SUPORTE"},
    {"ListsTheGroups", SubjectOf("CGrupoRpt::RelatorioGrupos", &CGrupoRpt::RelatorioGrupos),
     "SELECT DESCR_CLASSE, OBS_CLASSE FROM CLASSE ORDER BY DESCR_CLASSE"},
    {"ListsTheSubgroupsByTheirGroup", SubjectOf("CSubgrupoRpt::RelatorioSubgrupos", &CSubgrupoRpt::RelatorioSubgrupos),
     "SELECT g.DESCR_CLASSE, sb.DESCR_GRUPO, sb.OBS_GRUPO, sb.IDC_ATIVO FROM GRUPO sb "
     "INNER JOIN CLASSE g ON g.COD_CLASSE = sb.COD_CLASSE ORDER BY g.DESCR_CLASSE, sb.DESCR_GRUPO"},
    {"ListsTheSeriesWithTheirMandatoryKeysAndOwnersIfAny",
     SubjectOf("CSerieRpt::RelatorioSeries", &CSerieRpt::RelatorioSeries),
     "SELECT c.DESCR_CLASSE, g.DESCR_GRUPO, a.DESCR_ASSUNTO, a.OBS_ASSUNTO, a.DONO, a.IDC_ATIVO AS SERIE_ATIVA, "
     "a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, 'S' AS OBRIGATORIA1, "
     "CASE WHEN a.DESCR_CHAVE2 IS NULL OR a.DESCR_CHAVE2='' THEN '' "
     "WHEN a.OBRIGATORIA2 IN ('1','S','T','Y') THEN 'S' ELSE 'N' END AS OBRIGATORIA2, "
     "CASE WHEN a.DESCR_CHAVE3 IS NULL OR a.DESCR_CHAVE3='' THEN '' "
     "WHEN a.OBRIGATORIA3 IN ('1','S','T','Y') THEN 'S' ELSE 'N' END AS OBRIGATORIA3, "
     "CASE WHEN a.DESCR_CHAVE4 IS NULL OR a.DESCR_CHAVE4='' THEN '' "
     "WHEN a.OBRIGATORIA4 IN ('1','S','T','Y') THEN 'S' ELSE 'N' END AS OBRIGATORIA4, "
     "CASE WHEN a.DESCR_CHAVE5 IS NULL OR a.DESCR_CHAVE5='' THEN '' "
     "WHEN a.OBRIGATORIA5 IN ('1','S','T','Y') THEN 'S' ELSE 'N' END AS OBRIGATORIA5, "
     "a.MASK1, a.MASK2, a.MASK3, a.MASK4, a.MASK5, o.DESCR_OPERADOR, "
     "p.NOMEGRUPO, p.NOMESUBGRUPO, p.NOMESERIE, p.NOMESERIEPLURAL  "
     "FROM ASSUNTO a INNER JOIN GRUPO g ON a.COD_GRUPO = g.COD_GRUPO "
     "LEFT JOIN OPERADOR o ON a.DONO = o.COD_OPERADOR "
     "INNER JOIN CLASSE c ON g.COD_CLASSE = c.COD_CLASSE INNER JOIN PARAMETRO p ON p.CODIGO = '1' "
     "ORDER BY c.DESCR_CLASSE, g.DESCR_GRUPO, a.DESCR_ASSUNTO"},
    {"ListsTheControlledTermsOfEverySeries",
     SubjectOf("CDicionarioRpt::RelatorioTermosControlados", &CDicionarioRpt::RelatorioTermosControlados),
     "SELECT g.DESCR_GRUPO, a.DESCR_ASSUNTO, d.COD_PALAVRA, "
     "a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, d.DESCR_DICIONARIO "
     "FROM DICIONARIO d INNER JOIN ASSUNTO a ON d.COD_ASSUNTO = a.COD_ASSUNTO "
     "INNER JOIN GRUPO g ON a.COD_GRUPO = g.COD_GRUPO "
     "ORDER BY g.DESCR_GRUPO, a.DESCR_ASSUNTO, "
     "a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, d.DESCR_DICIONARIO"},
    {"ListsTheDepartments", SubjectOf("CDeptoRpt::RelatorioDeptos", &CDeptoRpt::RelatorioDeptos),
     "SELECT DESCR_DEPTO, ENDERECO, CIDADE, ESTADO, CEP, END_EMAIL FROM DEPTO ORDER BY DESCR_DEPTO"},
    {"ListsTheDepositories", SubjectOf("CDepositoRpt::RelatorioDepositos", &CDepositoRpt::RelatorioDepositos),
     "SELECT NOME, ENDERECO, CIDADE, ESTADO, CEP, TELEFONE, FAX, CONTATO FROM DEPOSITO ORDER BY NOME"},
    {"ListsTheTypesOfModuleWithoutTheReservedRow",
     SubjectOf("CTipo_CaixaRpt::RelatorioTiposModulo", &CTipo_CaixaRpt::RelatorioTiposModulo),
     "SELECT DESCR_TIPO_CX, NUM_MAX_DOCS, NUM_MAX_FOLHAS FROM TIPO_CAIXA WHERE COD_TIPO_CX<>'0' "
     "ORDER BY DESCR_TIPO_CX"},
    {"ListsTheGroupsOfOperators",
     SubjectOf("CGrupoOperadorRpt::RelatorioGruposOperadores", &CGrupoOperadorRpt::RelatorioGruposOperadores),
     "SELECT DESCR_GRPOP, OBS_GRPOP FROM GRUPOS_OPERADORES ORDER BY DESCR_GRPOP"},
};

class CatalogTest : public testing::TestWithParam<Catalog> {};
INSTANTIATE_TEST_SUITE_P(Catalogs, CatalogTest, testing::ValuesIn(kCatalogs),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(CatalogTest, ListsItsRegister) { CheckListing(GetParam().report, GetParam().statement); }

TEST_P(CatalogTest, RaisesEveryErrorInItsFrame) { CheckFrame(GetParam().report); }

TEST_P(CatalogTest, WorksAgainAfterTheFailureOfAnyCall) { CheckFailures(GetParam().report); }

}  // namespace
}  // namespace kodra::reports
