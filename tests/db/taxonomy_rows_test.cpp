// The registers that stand on the taxonomy: inner joins drop rows, left joins keep them, on both databases alike.
#include <algorithm>

#include "reports/catalog/dicionario_rpt.h"
#include "reports/catalog/modelo_rpt.h"
#include "reports/catalog/serie_rpt.h"
#include "reports/catalog/subgrupo_rpt.h"
#include "tests/db/reports_on.h"

namespace kodra::tests {
namespace {

using namespace reports;
using namespace testbed;

class TaxonomyRows : public OnBoth {};
KODRA_ON_BOTH_DATABASES(TaxonomyRows);

TEST_P(TaxonomyRows, SubgroupsWithoutAGroupDropOut) {
  Table expected({L"DESCR_CLASSE", L"DESCR_GRUPO", L"OBS_GRUPO", L"IDC_ATIVO"});
  for (const Grupo& subgroup : All<Grupo>()) {
    const Classe* group = Find(&Classe::codClasse, subgroup.codClasse);
    if (group != nullptr) expected.Add(group->descrClasse, subgroup.descrGrupo, subgroup.obsGrupo, subgroup.idcAtivo);
  }
  ASSERT_LT(expected.rows.size(), All<Grupo>().size());
  ExpectRows(RowsOf(&CSubgrupoRpt::RelatorioSubgrupos, Parameters(L"CSubgrupoRptObj")), expected,
             {L"DESCR_CLASSE", L"DESCR_GRUPO"});
}

// The mark of a key: none without a caption, else yes for the four letters that mean it.
Text Mark(const MaybeText& caption, const MaybeText& flag) {
  if (!caption || caption->empty()) return L"";
  const bool yes = flag && (*flag == L"1" || *flag == L"S" || *flag == L"T" || *flag == L"Y");
  return yes ? L"S" : L"N";
}

TEST_P(TaxonomyRows, SeriesKeepThoseWithoutAnOwnerAndDropThoseWithoutAGroup) {
  Table expected({L"DESCR_CLASSE",   L"DESCR_GRUPO",    L"DESCR_ASSUNTO", L"OBS_ASSUNTO",  L"DONO",
                  L"SERIE_ATIVA",    L"DESCR_CHAVE1",   L"DESCR_CHAVE2",  L"DESCR_CHAVE3", L"DESCR_CHAVE4",
                  L"DESCR_CHAVE5",   L"OBRIGATORIA1",   L"OBRIGATORIA2",  L"OBRIGATORIA3", L"OBRIGATORIA4",
                  L"OBRIGATORIA5",   L"MASK1",          L"MASK2",         L"MASK3",        L"MASK4",
                  L"MASK5",          L"DESCR_OPERADOR", L"NOMEGRUPO",     L"NOMESUBGRUPO", L"NOMESERIE",
                  L"NOMESERIEPLURAL"});
  const Parametro& names = *Find(&Parametro::codigo, Text(L"1"));
  bool withoutOwner = false;
  for (const Assunto& s : All<Assunto>()) {
    const Grupo* subgroup = Find(&Grupo::codGrupo, s.codGrupo);
    const Classe* group = subgroup == nullptr ? nullptr : Find(&Classe::codClasse, subgroup->codClasse);
    if (group == nullptr) continue;
    const Operador* owner = Find(&Operador::codOperador, s.dono);
    withoutOwner = withoutOwner || owner == nullptr;
    const FiveTexts& keys = s.descrChave;
    expected.Add(group->descrClasse, subgroup->descrGrupo, s.descrAssunto, s.obsAssunto, s.dono, s.idcAtivo, keys[0],
                 keys[1], keys[2], keys[3], keys[4], L"S", Mark(keys[1], s.obrigatoria[0]),
                 Mark(keys[2], s.obrigatoria[1]), Mark(keys[3], s.obrigatoria[2]), Mark(keys[4], s.obrigatoria[3]),
                 s.mask[0], s.mask[1], s.mask[2], s.mask[3], s.mask[4],
                 owner == nullptr ? MaybeText() : owner->descrOperador, names.nomeGrupo, names.nomeSubgrupo,
                 names.nomeSerie, names.nomeSeriePlural);
  }
  ASSERT_TRUE(withoutOwner);
  ASSERT_LT(expected.rows.size(), All<Assunto>().size());
  ExpectRows(RowsOf(&CSerieRpt::RelatorioSeries, Parameters(L"CSerieRptObj")), expected,
             {L"DESCR_CLASSE", L"DESCR_GRUPO", L"DESCR_ASSUNTO"});
}

TEST_P(TaxonomyRows, ControlledTermsWithoutASeriesDropOut) {
  Table expected({L"DESCR_GRUPO", L"DESCR_ASSUNTO", L"COD_PALAVRA", L"DESCR_CHAVE1", L"DESCR_CHAVE2", L"DESCR_CHAVE3",
                  L"DESCR_CHAVE4", L"DESCR_CHAVE5", L"DESCR_DICIONARIO"});
  for (const Dicionario& word : All<Dicionario>()) {
    const Assunto* series = Find(&Assunto::codAssunto, word.codAssunto);
    if (series == nullptr) continue;
    const FiveTexts& keys = series->descrChave;
    expected.Add(Find(&Grupo::codGrupo, series->codGrupo)->descrGrupo, series->descrAssunto, word.codPalavra, keys[0],
                 keys[1], keys[2], keys[3], keys[4], word.descrDicionario);
  }
  ASSERT_LT(expected.rows.size(), All<Dicionario>().size());
  ExpectRows(RowsOf(&CDicionarioRpt::RelatorioTermosControlados, Parameters(L"CDicionarioRptObj")), expected,
             {L"DESCR_GRUPO", L"DESCR_ASSUNTO", L"DESCR_CHAVE1", L"DESCR_CHAVE2", L"DESCR_CHAVE3", L"DESCR_CHAVE4",
              L"DESCR_CHAVE5", L"DESCR_DICIONARIO"});
}

// Models of one code, or all of them for a null.
Table Models(const MaybeText& code) {
  Table expected({L"GRUPO", L"SUBGRUPO", L"SERIE", L"DESCR_CHAVE1", L"DESCR_CHAVE2", L"DESCR_CHAVE3", L"DESCR_CHAVE4",
                  L"DESCR_CHAVE5", L"CHAVE1", L"CHAVE2", L"CHAVE3", L"CHAVE4", L"CHAVE5", L"VALIDADE"});
  for (const Modelo& m : Reports::All<Modelo>()) {
    if (code && m.codModelo != *code) continue;
    const Grupo* subgroup = Reports::Find(&Grupo::codGrupo, m.codGrupo);
    const Assunto* series = Reports::Find(&Assunto::codAssunto, m.codAssunto);
    if (subgroup == nullptr || series == nullptr) continue;
    const Classe* group = Reports::Find(&Classe::codClasse, subgroup->codClasse);
    const FiveTexts& keys = series->descrChave;
    expected.Add(group == nullptr ? MaybeText() : group->descrClasse, subgroup->descrGrupo, series->descrAssunto,
                 keys[0], keys[1], keys[2], keys[3], keys[4], m.chave[0], m.chave[1], m.chave[2], m.chave[3],
                 m.chave[4], m.validade);
  }
  return expected;
}

TEST_P(TaxonomyRows, AllModelsComeEvenThoseOfASubgroupWithoutAGroup) {
  const Table expected = Models({});
  ASSERT_TRUE(std::any_of(expected.rows.begin(), expected.rows.end(),
                          [](const Table::Row& row) { return row[0] == Value(Null{}); }));
  ExpectRows(RowsOf(&CModeloRpt::RelatorioModelos, Parameters(L"CModeloRptObj")), expected,
             {L"GRUPO", L"SUBGRUPO", L"SERIE"});
}

TEST_P(TaxonomyRows, AModelIsFoundInAnyLetterCaseAndWithBlanksAround) {
  for (const wchar_t* code : {L"Padrao-0001", L"padrao-0001", L"  PADRAO-0001 "}) {
    ExpectRows(RowsOf(&CModeloRpt::RelatorioModelos, Parameters(L"CModeloRptObj", {{L"CodModelo", code}})),
               Models(L"Padrao-0001"));
  }
}

TEST_P(TaxonomyRows, AModelOfAnotherCodeIsNoRow) {
  const Table rows =
      RowsOf(&CModeloRpt::RelatorioModelos, Parameters(L"CModeloRptObj", {{L"CodModelo", L"x' OR '1'='1"}}));
  ExpectNoRows(rows, Models({}).columns);
}

TEST_P(TaxonomyRows, ModelsStayReadableAfterTheirConnectionIsGone) {
  frame::ReportRows rows;
  {
    CModeloRpt report(Machine());
    report.SetStringConexao(ConnectionString());
    auto obj = Parameters(L"CModeloRptObj");
    rows = report.RelatorioModelos(&obj);
  }
  ExpectRows(Read(*rows), Models({}));
  rows->MoveFirst();
  EXPECT_FALSE(rows->Eof());
}

}  // namespace
}  // namespace kodra::tests
