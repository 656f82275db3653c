// The catalogs that follow the taxonomy: inner joins drop rows, left joins keep them.
#include <algorithm>
#include <set>

#include "tests/rows/cases.h"
#include "tests/rows/sample.h"

namespace kodra::rows {
namespace {

using namespace testbed;

const Report kModels{L"CModeloRpt", L"RelatorioModelos"};

// Subgroups without a group are left out.
Table Subgroups() {
  Table expected({L"DESCR_CLASSE", L"DESCR_GRUPO", L"OBS_GRUPO", L"IDC_ATIVO"});
  for (const Grupo& subgroup : All<Grupo>()) {
    const Classe* group = Find(&Classe::codClasse, subgroup.codClasse);
    if (group != nullptr) expected.Add(group->descrClasse, subgroup.descrGrupo, subgroup.obsGrupo, subgroup.idcAtivo);
  }
  EXPECT_LT(expected.rows.size(), All<Grupo>().size());
  return expected;
}

// Terms without a series are left out.
Table ControlledTerms() {
  Table expected({L"DESCR_GRUPO", L"DESCR_ASSUNTO", L"COD_PALAVRA", L"DESCR_CHAVE1", L"DESCR_CHAVE2", L"DESCR_CHAVE3",
                  L"DESCR_CHAVE4", L"DESCR_CHAVE5", L"DESCR_DICIONARIO"});
  for (const Dicionario& word : All<Dicionario>()) {
    const Assunto* series = Find(&Assunto::codAssunto, word.codAssunto);
    if (series == nullptr) continue;
    const FiveTexts& keys = series->descrChave;
    expected.Add(Find(&Grupo::codGrupo, series->codGrupo)->descrGrupo, series->descrAssunto, word.codPalavra, keys[0],
                 keys[1], keys[2], keys[3], keys[4], word.descrDicionario);
  }
  EXPECT_LT(expected.rows.size(), All<Dicionario>().size());
  return expected;
}

// The mark of a key: none when it has no caption, otherwise yes for the four letters that mean yes.
Text Mark(const MaybeText& caption, const MaybeText& flag) {
  if (!caption || caption->empty()) return L"";
  const bool yes = flag && (*flag == L"1" || *flag == L"S" || *flag == L"T" || *flag == L"Y");
  return yes ? L"S" : L"N";
}

// Series without an owner are listed; series without a group are left out.
Table Series() {
  Table expected({L"DESCR_CLASSE",   L"DESCR_GRUPO",    L"DESCR_ASSUNTO", L"OBS_ASSUNTO",  L"DONO",
                  L"SERIE_ATIVA",    L"DESCR_CHAVE1",   L"DESCR_CHAVE2",  L"DESCR_CHAVE3", L"DESCR_CHAVE4",
                  L"DESCR_CHAVE5",   L"OBRIGATORIA1",   L"OBRIGATORIA2",  L"OBRIGATORIA3", L"OBRIGATORIA4",
                  L"OBRIGATORIA5",   L"MASK1",          L"MASK2",         L"MASK3",        L"MASK4",
                  L"MASK5",          L"DESCR_OPERADOR", L"NOMEGRUPO",     L"NOMESUBGRUPO", L"NOMESERIE",
                  L"NOMESERIEPLURAL"});
  const Parametro& names = *Find(&Parametro::codigo, Text(L"1"));
  bool withoutOwner = false;
  std::set<Text> marks;
  for (const Assunto& s : All<Assunto>()) {
    const Grupo* subgroup = Find(&Grupo::codGrupo, s.codGrupo);
    const Classe* group = subgroup == nullptr ? nullptr : Find(&Classe::codClasse, subgroup->codClasse);
    if (group == nullptr) continue;
    const Operador* owner = Find(&Operador::codOperador, s.dono);
    withoutOwner = withoutOwner || (owner == nullptr && !s.dono);
    const FiveTexts& keys = s.descrChave;
    for (std::size_t key = 1; key < 5; ++key) marks.insert(Mark(keys[key], s.obrigatoria[key - 1]));
    expected.Add(group->descrClasse, subgroup->descrGrupo, s.descrAssunto, s.obsAssunto, s.dono, s.idcAtivo, keys[0],
                 keys[1], keys[2], keys[3], keys[4], L"S", Mark(keys[1], s.obrigatoria[0]),
                 Mark(keys[2], s.obrigatoria[1]), Mark(keys[3], s.obrigatoria[2]), Mark(keys[4], s.obrigatoria[3]),
                 s.mask[0], s.mask[1], s.mask[2], s.mask[3], s.mask[4],
                 owner == nullptr ? MaybeText() : owner->descrOperador, names.nomeGrupo, names.nomeSubgrupo,
                 names.nomeSerie, names.nomeSeriePlural);
  }
  EXPECT_TRUE(withoutOwner);
  EXPECT_EQ(marks, (std::set<Text>{L"", L"N", L"S"}));
  EXPECT_LT(expected.rows.size(), All<Assunto>().size());
  return expected;
}

// The models with a code, or all of them when it is null; those of a subgroup without a group are included.
Table Models(const MaybeText& code) {
  Table expected({L"GRUPO", L"SUBGRUPO", L"SERIE", L"DESCR_CHAVE1", L"DESCR_CHAVE2", L"DESCR_CHAVE3", L"DESCR_CHAVE4",
                  L"DESCR_CHAVE5", L"CHAVE1", L"CHAVE2", L"CHAVE3", L"CHAVE4", L"CHAVE5", L"VALIDADE"});
  for (const Modelo& m : All<Modelo>()) {
    if (code && m.codModelo != *code) continue;
    const Grupo* subgroup = Find(&Grupo::codGrupo, m.codGrupo);
    const Assunto* series = Find(&Assunto::codAssunto, m.codAssunto);
    if (subgroup == nullptr || series == nullptr) continue;
    const Classe* group = Find(&Classe::codClasse, subgroup->codClasse);
    const FiveTexts& keys = series->descrChave;
    expected.Add(group == nullptr ? MaybeText() : group->descrClasse, subgroup->descrGrupo, series->descrAssunto,
                 keys[0], keys[1], keys[2], keys[3], keys[4], m.chave[0], m.chave[1], m.chave[2], m.chave[3],
                 m.chave[4], m.validade);
  }
  return expected;
}

Table AllModels() {
  Table expected = Models({});
  const std::vector<Value> groups = expected.Column(L"GRUPO");
  EXPECT_NE(std::find(groups.begin(), groups.end(), Value(Null{})), groups.end());
  return expected;
}

// A code is cut to this length before its blanks are removed.
constexpr std::size_t kLongestCode = 128;

std::vector<Case> Taxonomy() {
  std::vector<Case> cases{
      {"SubgroupsUnderTheirGroups",
       {L"CSubgrupoRpt", L"RelatorioSubgrupos"},
       {},
       Subgroups,
       {L"DESCR_CLASSE", L"DESCR_GRUPO"}},
      {"SeriesWithTheMarkOfEachKey",
       {L"CSerieRpt", L"RelatorioSeries"},
       {},
       Series,
       {L"DESCR_CLASSE", L"DESCR_GRUPO", L"DESCR_ASSUNTO"}},
      {"ControlledTermsUnderTheirSeries",
       {L"CDicionarioRpt", L"RelatorioTermosControlados"},
       {},
       ControlledTerms,
       {L"DESCR_GRUPO", L"DESCR_ASSUNTO", L"DESCR_CHAVE1", L"DESCR_CHAVE2", L"DESCR_CHAVE3", L"DESCR_CHAVE4",
        L"DESCR_CHAVE5", L"DESCR_DICIONARIO"}},
  };
  const std::vector<std::wstring> order{L"GRUPO", L"SUBGRUPO", L"SERIE"};
  cases.push_back({"AllModelsUnlessACodeIsAskedFor", kModels, {}, AllModels, order});
  cases.push_back({"AllModelsOfAnEmptyCode", kModels, {{L"CodModelo", L""}}, AllModels, order});
  cases.push_back({"AllModelsOfABlankCode", kModels, {{L"CodModelo", L"   "}}, AllModels, order});
  const std::wstring cutBlanks = L"PADRAO-0001" + std::wstring(kLongestCode - 11, L' ') + L"x";
  struct {
    const char* name;
    std::wstring code;
    const wchar_t* stored;
  } const codes[] = {
      {"AModelByItsCode", L"Padrao-0001", L"Padrao-0001"},
      {"AModelByItsCodeInSmallLetters", L"padrao-0001", L"Padrao-0001"},
      {"AModelByItsCodeInMixedLettersBetweenBlanks", L"  pAdRaO-0001  ", L"Padrao-0001"},
      {"AModelByItsCodeInCapitalsBetweenBlanks", L"  PADRAO-0001 ", L"Padrao-0001"},
      {"AModelByItsCodeInCapitals", L"PADRAO-0001", L"Padrao-0001"},
      {"AModelWhoseCodeIsStoredInSmallLetters", L"Mod-0003", L"mod-0003"},
      {"AModelByACodeWithAnAccent", L"índice-0004 ", L"ÍNDICE-0004"},
      {"AModelByACodeThatIsCutBeforeItsBlanksGo", cutBlanks, L"Padrao-0001"},
  };
  for (const auto& [name, code, stored] : codes) {
    const auto expected = [stored = Text(stored)] {
      EXPECT_EQ(Models(stored).rows.size(), 1U);
      return Models(stored);
    };
    cases.push_back({name, kModels, {{L"CodModelo", code}}, expected, order});
  }
  return cases;
}
INSTANTIATE_TEST_SUITE_P(Taxonomy, ReportRows, testing::Combine(testing::ValuesIn(Taxonomy()), BothEngines()),
                         CaseName);

class ModelRows : public OnBothEngines {};
INSTANTIATE_TEST_SUITE_P(, ModelRows, BothEngines(), EngineName);

TEST_P(ModelRows, OfAnUnknownCodeAreNone) {
  ExpectNoRows(RowsOf(kModels, {{L"CodModelo", L"Padrao-00"}}), Models({}).columns);
}

TEST_P(ModelRows, AreFoundByACodeThatIsAValueAndNoPartOfTheStatement) {
  ExpectNoRows(RowsOf(kModels, {{L"CodModelo", L"x' OR '1'='1"}}), Models({}).columns);
}

TEST_P(ModelRows, OfACodeWithACharacterWithinTheLongestLengthAreNone) {
  const std::wstring code = L"PADRAO-0001" + std::wstring(kLongestCode - 12, L' ') + L"x";
  ASSERT_EQ(code.size(), kLongestCode);
  ExpectNoRows(RowsOf(kModels, {{L"CodModelo", code}}), Models({}).columns);
}

}  // namespace
}  // namespace kodra::rows
