// The rows of the twelve catalog reports from the sample archive, compared with rows worked out from its tables.
#include "tests/wine/foreign_object.h"
#include "tests/wine/rows.h"

namespace kodra::face {
namespace {

// A report that is one table's columns in the order of one of them.
void ExpectRegister(const std::wstring& name, const std::wstring& method, const std::wstring& table,
                    const Names& columns, const std::wstring& orderBy) {
  Rows expected{columns, {}};
  const Table source(table);
  for (const Row& row : source.rows()) expected.rows.push_back(row.Pick(columns));
  ExpectRows(expected, ReadAll(OpenReport(name, method)), {orderBy});
}

TEST(CatalogRows, MediaTypesAreListedByDescription) {
  ExpectRegister(L"CTipo_MidiaRpt", L"RelatorioTiposMidia", L"TIPO_MIDIA",
                 {L"DESCR_MIDIA", L"VALIDADE_MIDIA", L"CAPACIDADE_MIDIA"}, L"DESCR_MIDIA");
}

TEST(CatalogRows, SupportsAreListedByDescription) {
  ExpectRegister(L"CSuporteRpt", L"RelatorioSuportes", L"SUPORTE", {L"DESCR_SUPORTE"}, L"DESCR_SUPORTE");
}

TEST(CatalogRows, DepositoriesAreListedByName) {
  ExpectRegister(L"CDepositoRpt", L"RelatorioDepositos", L"DEPOSITO",
                 {L"NOME", L"ENDERECO", L"CIDADE", L"ESTADO", L"CEP", L"TELEFONE", L"FAX", L"CONTATO"}, L"NOME");
}

TEST(CatalogRows, DepartmentsAreListedByDescription) {
  ExpectRegister(L"CDeptoRpt", L"RelatorioDeptos", L"DEPTO",
                 {L"DESCR_DEPTO", L"ENDERECO", L"CIDADE", L"ESTADO", L"CEP", L"END_EMAIL"}, L"DESCR_DEPTO");
}

TEST(CatalogRows, GroupsAreListedByDescription) {
  ExpectRegister(L"CGrupoRpt", L"RelatorioGrupos", L"CLASSE", {L"DESCR_CLASSE", L"OBS_CLASSE"}, L"DESCR_CLASSE");
}

TEST(CatalogRows, OperatorGroupsAreListedByDescription) {
  ExpectRegister(L"CGrupoOperadorRpt", L"RelatorioGruposOperadores", L"GRUPOS_OPERADORES",
                 {L"DESCR_GRPOP", L"OBS_GRPOP"}, L"DESCR_GRPOP");
}

TEST(CatalogRows, ModuleTypesAreListedWithoutTheReservedTypeZero) {
  Rows expected{{L"DESCR_TIPO_CX", L"NUM_MAX_DOCS", L"NUM_MAX_FOLHAS"}, {}};
  const Table types(L"TIPO_CAIXA");
  EXPECT_EQ(1U, types.Where(L"COD_TIPO_CX", L"0").size());
  for (const Row& row : types.rows())
    if (row[L"COD_TIPO_CX"] != L"0") expected.rows.push_back(row.Pick(expected.columns));
  ExpectRows(expected, ReadAll(OpenReport(L"CTipo_CaixaRpt", L"RelatorioTiposModulo")), {L"DESCR_TIPO_CX"});
}

TEST(CatalogRows, SubgroupsAreListedUnderTheirGroupsAndWithoutAGroupNotAtAll) {
  Rows expected{{L"DESCR_CLASSE", L"DESCR_GRUPO", L"OBS_GRUPO", L"IDC_ATIVO"}, {}};
  const Table groups(L"CLASSE");
  const Table subgroups(L"GRUPO");
  for (const Row& subgroup : subgroups.rows())
    for (const Row& group : groups.Where(L"COD_CLASSE", subgroup[L"COD_CLASSE"]))
      expected.rows.push_back(
          {group[L"DESCR_CLASSE"], subgroup[L"DESCR_GRUPO"], subgroup[L"OBS_GRUPO"], subgroup[L"IDC_ATIVO"]});
  EXPECT_LT(expected.rows.size(), subgroups.rows().size());
  ExpectRows(expected, ReadAll(OpenReport(L"CSubgrupoRpt", L"RelatorioSubgrupos")), {L"DESCR_CLASSE", L"DESCR_GRUPO"});
}

TEST(CatalogRows, ControlledTermsAreListedUnderTheirSeries) {
  const Names keys = {L"DESCR_CHAVE1", L"DESCR_CHAVE2", L"DESCR_CHAVE3", L"DESCR_CHAVE4", L"DESCR_CHAVE5"};
  Rows expected{{L"DESCR_GRUPO", L"DESCR_ASSUNTO", L"COD_PALAVRA", keys[0], keys[1], keys[2], keys[3], keys[4],
                 L"DESCR_DICIONARIO"},
                {}};
  const Table terms(L"DICIONARIO");
  const Table series(L"ASSUNTO");
  const Table subgroups(L"GRUPO");
  for (const Row& term : terms.rows())
    for (const Row& one : series.Where(L"COD_ASSUNTO", term[L"COD_ASSUNTO"]))
      for (const Row& subgroup : subgroups.Where(L"COD_GRUPO", one[L"COD_GRUPO"])) {
        Cells cells = {subgroup[L"DESCR_GRUPO"], one[L"DESCR_ASSUNTO"], term[L"COD_PALAVRA"]};
        for (const auto& key : keys) cells.push_back(one[key]);
        cells.push_back(term[L"DESCR_DICIONARIO"]);
        expected.rows.push_back(cells);
      }
  EXPECT_LT(expected.rows.size(), terms.rows().size());  // a term without a series drops out
  ExpectRows(expected, ReadAll(OpenReport(L"CDicionarioRpt", L"RelatorioTermosControlados")),
             {L"DESCR_GRUPO", L"DESCR_ASSUNTO", keys[0], keys[1], keys[2], keys[3], keys[4], L"DESCR_DICIONARIO"});
}

// Whether a key of a series must be filled.
Cell Mark(const Row& series, int key) {
  if (key == 1) return L"S";
  const std::wstring number = std::to_wstring(key);
  if (series[L"DESCR_CHAVE" + number].value_or(L"").empty()) return L"";
  const std::wstring flag = series[L"OBRIGATORIA" + number].value_or(L"");
  return flag == L"1" || flag == L"S" || flag == L"T" || flag == L"Y" ? L"S" : L"N";
}

Rows ExpectedSeries() {
  Rows expected{
      {L"DESCR_CLASSE", L"DESCR_GRUPO",    L"DESCR_ASSUNTO", L"OBS_ASSUNTO",    L"DONO",         L"SERIE_ATIVA",
       L"DESCR_CHAVE1", L"DESCR_CHAVE2",   L"DESCR_CHAVE3",  L"DESCR_CHAVE4",   L"DESCR_CHAVE5", L"OBRIGATORIA1",
       L"OBRIGATORIA2", L"OBRIGATORIA3",   L"OBRIGATORIA4",  L"OBRIGATORIA5",   L"MASK1",        L"MASK2",
       L"MASK3",        L"MASK4",          L"MASK5",         L"DESCR_OPERADOR", L"NOMEGRUPO",    L"NOMESUBGRUPO",
       L"NOMESERIE",    L"NOMESERIEPLURAL"},
      {}};
  const Table series(L"ASSUNTO");
  const Table subgroups(L"GRUPO");
  const Table groups(L"CLASSE");
  const Table operators(L"OPERADOR");
  const Table parameters(L"PARAMETRO");
  for (const Row& one : series.rows())
    for (const Row& subgroup : subgroups.Where(L"COD_GRUPO", one[L"COD_GRUPO"]))
      for (const Row& group : groups.Where(L"COD_CLASSE", subgroup[L"COD_CLASSE"]))
        for (const Row& names : parameters.Where(L"CODIGO", L"1")) {
          const auto owners = operators.Where(L"COD_OPERADOR", one[L"DONO"]);
          Cells cells = {group[L"DESCR_CLASSE"], subgroup[L"DESCR_GRUPO"], one[L"DESCR_ASSUNTO"], one[L"OBS_ASSUNTO"],
                         one[L"DONO"],           one[L"IDC_ATIVO"]};
          for (int key = 1; key <= 5; ++key) cells.push_back(one[L"DESCR_CHAVE" + std::to_wstring(key)]);
          for (int key = 1; key <= 5; ++key) cells.push_back(Mark(one, key));
          for (int key = 1; key <= 5; ++key) cells.push_back(one[L"MASK" + std::to_wstring(key)]);
          cells.push_back(owners.empty() ? Cell() : owners.front()[L"DESCR_OPERADOR"]);
          for (const auto& cell : names.Pick({L"NOMEGRUPO", L"NOMESUBGRUPO", L"NOMESERIE", L"NOMESERIEPLURAL"}))
            cells.push_back(cell);
          expected.rows.push_back(cells);
        }
  return expected;
}

TEST(CatalogRows, SeriesAreListedUnderTheirSubgroupsWithTheMarkOfEachKey) {
  const Rows expected = ExpectedSeries();
  // The archive has every mark of a key beyond the first.
  for (const wchar_t* mark : {L"", L"N", L"S"}) {
    const std::size_t second = PositionOf(expected.columns, L"OBRIGATORIA2");
    EXPECT_TRUE(std::any_of(expected.rows.begin(), expected.rows.end(), [&](const Cells& cells) {
      return std::find(cells.begin() + second, cells.begin() + second + 4, Cell(mark)) != cells.begin() + second + 4;
    })) << mark;
  }
  ExpectRows(expected, ReadAll(OpenReport(L"CSerieRpt", L"RelatorioSeries")),
             {L"DESCR_CLASSE", L"DESCR_GRUPO", L"DESCR_ASSUNTO"});
}

TEST(CatalogRows, ASeriesWithoutAnOwnerIsListed) {
  const Rows series = ReadAll(OpenReport(L"CSerieRpt", L"RelatorioSeries"));
  const auto ownerless = std::count_if(series.rows.begin(), series.rows.end(), [&](const Cells& cells) {
    const Row row(series.columns, cells);
    return !row[L"DONO"] && !row[L"DESCR_OPERADOR"];
  });
  EXPECT_EQ(std::count_if(series.rows.begin(), series.rows.end(),
                          [&](const Cells& cells) { return !Row(series.columns, cells)[L"DONO"]; }),
            ownerless);
  EXPECT_GT(ownerless, 0);
}

Ref<IDispatch> MediaParameters(const wchar_t* kind) {
  const auto parameters = Create(L"KodraRpt.CCDRptObj");
  EXPECT_EQ(S_OK, Put(parameters, L"TipoRpt", kind).hr);
  return parameters;
}

const Names kMediaColumns = {L"NUM_CD", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_GRAVACAO", L"RELATORIO"};

TEST(CatalogRows, AllMediaAreListedUnderTheirTitleForEveryKindButExpired) {
  Rows expected{kMediaColumns, {}};
  const Table media(L"CD");
  for (const Row& row : media.rows())
    expected.rows.push_back(
        {row[L"NUM_CD"], row[L"DOC_INICIAL"], row[L"DOC_FINAL"], row[L"DATA_GRAVACAO"], L"Todas as Mídias"});
  for (const wchar_t* kind : {L"", L"T", L"todas", L"1"})
    ExpectRows(expected, ReadAll(OpenReport(L"CCDRpt", L"RelatorioMidias", MediaParameters(kind))), {L"NUM_CD"});
}

// In SQLite's dialect the recording date of the condition is a quoted name: no date, so no medium passes.
TEST(CatalogRows, ExpiredMediaAreNoneOnSQLite) {
  for (const wchar_t* kind : {L"V", L"vencidas"}) {
    const Rows rows = ReadAll(OpenReport(L"CCDRpt", L"RelatorioMidias", MediaParameters(kind)));
    EXPECT_EQ(kMediaColumns, rows.columns);
    EXPECT_TRUE(rows.rows.empty());
  }
}

const Names kModelColumns = {L"GRUPO",        L"SUBGRUPO",     L"SERIE",        L"DESCR_CHAVE1", L"DESCR_CHAVE2",
                             L"DESCR_CHAVE3", L"DESCR_CHAVE4", L"DESCR_CHAVE5", L"CHAVE1",       L"CHAVE2",
                             L"CHAVE3",       L"CHAVE4",       L"CHAVE5",       L"VALIDADE"};
const Names kModelOrder = {L"GRUPO", L"SUBGRUPO", L"SERIE"};

// All models, or the one of a code as it is stored.
Rows ExpectedModels(const Cell& code = {}) {
  Rows expected{kModelColumns, {}};
  const Table models(L"MODELO");
  const Table subgroups(L"GRUPO");
  const Table groups(L"CLASSE");
  const Table series(L"ASSUNTO");
  for (const Row& model : models.rows()) {
    if (code && model[L"COD_MODELO"] != code) continue;
    for (const Row& subgroup : subgroups.Where(L"COD_GRUPO", model[L"COD_GRUPO"]))
      for (const Row& one : series.Where(L"COD_ASSUNTO", model[L"COD_ASSUNTO"])) {
        const auto found = groups.Where(L"COD_CLASSE", subgroup[L"COD_CLASSE"]);
        Cells cells = {found.empty() ? Cell() : found.front()[L"DESCR_CLASSE"], subgroup[L"DESCR_GRUPO"],
                       one[L"DESCR_ASSUNTO"]};
        for (int key = 1; key <= 5; ++key) cells.push_back(one[L"DESCR_CHAVE" + std::to_wstring(key)]);
        for (int key = 1; key <= 5; ++key) cells.push_back(model[L"CHAVE" + std::to_wstring(key)]);
        cells.push_back(model[L"VALIDADE"]);
        expected.rows.push_back(cells);
      }
  }
  return expected;
}

Rows Models(const std::wstring& code) {
  const auto parameters = Create(L"KodraRpt.CModeloRptObj");
  EXPECT_EQ(S_OK, Put(parameters, L"CodModelo", code).hr);
  return ReadAll(OpenReport(L"CModeloRpt", L"RelatorioModelos", parameters));
}

TEST(CatalogRows, AllModelsAreListedForAnEmptyCode) {
  ExpectRows(ExpectedModels(), Models(L""), kModelOrder);
  ExpectRows(ExpectedModels(), Models(L"   "), kModelOrder);
}

TEST(CatalogRows, AModelWhoseSubgroupHasNoGroupIsListed) {
  const Rows expected = ExpectedModels();
  EXPECT_TRUE(std::any_of(expected.rows.begin(), expected.rows.end(), [](const Cells& cells) { return !cells[0]; }));
  const Rows actual = Models(L"");
  EXPECT_TRUE(std::any_of(actual.rows.begin(), actual.rows.end(), [](const Cells& cells) { return !cells[0]; }));
}

TEST(CatalogRows, AModelIsFoundByItsCodeInAnyLetterCaseAndWithBlanksAround) {
  EXPECT_EQ(1U, ExpectedModels(L"Padrao-0001").rows.size());
  for (const wchar_t* code : {L"Padrao-0001", L"  pAdRaO-0001  ", L"PADRAO-0001"})
    ExpectRows(ExpectedModels(L"Padrao-0001"), Models(code), kModelOrder);
  ExpectRows(ExpectedModels(L"mod-0003"), Models(L"Mod-0003"), kModelOrder);
  ExpectRows(ExpectedModels(L"ÍNDICE-0004"), Models(L"índice-0004 "), kModelOrder);
}

TEST(CatalogRows, AModelOfAnUnknownCodeIsNotFound) {
  const Rows rows = Models(L"Padrao-00");
  EXPECT_EQ(kModelColumns, rows.columns);
  EXPECT_TRUE(rows.rows.empty());
}

TEST(CatalogRows, AModelCodeIsAValueAndNoPartOfTheStatement) {
  const Rows rows = Models(L"x' OR '1'='1");
  EXPECT_EQ(kModelColumns, rows.columns);
  EXPECT_TRUE(rows.rows.empty());
}

TEST(CatalogRows, AModelCodeIsCutTo128CharactersBeforeItsBlanksGo) {
  const std::wstring blanks(117, L' ');
  ASSERT_EQ(128U, (L"PADRAO-0001" + blanks).size());
  ExpectRows(ExpectedModels(L"Padrao-0001"), Models(L"Padrao-0001" + blanks + L"x"), kModelOrder);
  EXPECT_TRUE(Models(L"Padrao-0001" + blanks.substr(1) + L"x").rows.empty());
}

TEST(CatalogRows, DatesComeAsDatesAndNumbersAsNumbers) {
  const auto media = OpenReport(L"CCDRpt", L"RelatorioMidias");
  EXPECT_EQ(VT_DATE, Got(Get(Got(Call(media, L"Fields", {L"DATA_GRAVACAO"})).object(), L"Value")).type());
  const auto types = OpenReport(L"CTipo_MidiaRpt", L"RelatorioTiposMidia");
  EXPECT_EQ(VT_BSTR, Got(Get(Got(Call(types, L"Fields", {L"DESCR_MIDIA"})).object(), L"Value")).type());
  EXPECT_EQ(VT_I4, Got(Get(Got(Call(types, L"Fields", {L"VALIDADE_MIDIA"})).object(), L"Value")).type());
}

TEST(CatalogRows, AClientsOwnParameterObjectIsReadByMemberName) {
  EXPECT_TRUE(ReadAll(OpenReport(L"CCDRpt", L"RelatorioMidias", ForeignObject::With(L"TIPORPT", L"V"))).rows.empty());
  EXPECT_FALSE(ReadAll(OpenReport(L"CCDRpt", L"RelatorioMidias", ForeignObject::With(L"TipoRpt", L"v"))).rows.empty());
  ExpectRows(
      ExpectedModels(L"Padrao-0001"),
      ReadAll(OpenReport(L"CModeloRpt", L"RelatorioModelos", ForeignObject::With(L"CodModelo", L"  padrao-0001 "))),
      kModelOrder);
}

TEST(CatalogRows, AParameterObjectOfAnotherReportServesAReportThatReadsNone) {
  EXPECT_FALSE(ReadAll(OpenReport(L"CDeptoRpt", L"RelatorioDeptos", Create(L"KodraRpt.CLogRptObj"))).rows.empty());
}

}  // namespace
}  // namespace kodra::face
