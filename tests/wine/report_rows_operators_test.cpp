// The rows of the operators report from the sample archive, and its errors by the name of the step.
#include "tests/wine/report_rows.h"

namespace kodra::face {
namespace {

constexpr const wchar_t* kReport = L"COperadorRpt";
constexpr const wchar_t* kMethod = L"RelatorioOperadores";

// The leading digits of a type's code decide its description; without any it is type 0.
std::wstring TypeName(const Cell& code) {
  static const std::map<Cell, std::wstring> kNames = {
      {L"1", L"Administrador"}, {L"2", L"Arquivista"}, {L"3", L"Digitalizador"},   {L"12abc", L"Auditor"},
      {L"0", L"Consulta"},      {L"x", L"Consulta"},   {std::nullopt, L"Consulta"}};
  return kNames.at(code);
}

// VARIANT_TRUE and VARIANT_FALSE as text.
std::wstring Active(const Cell& flag) {
  static const std::set<Cell> kYes = {L"1", L"S", L"T", L"Y", L"V", L",", L"sim", L"Verdadeiro"};
  static const std::set<Cell> kNo = {L"0", L"N", L"F", L"", L"false", std::nullopt};
  EXPECT_NE(kYes.contains(flag), kNo.contains(flag)) << testing::PrintToString(OrEmpty(flag));
  return kYes.contains(flag) ? L"-1" : L"0";
}

class OperatorRows : public OnBothDatabases {};
KODRA_ON_BOTH_DATABASES(OperatorRows);

TEST_P(OperatorRows, AreThoseOfADepartmentAndAGroupWhoAreNotDeleted) {
  Rows expected{{L"DESCR_OPERADOR", L"NOME_COMPLETO", L"DESCR_TIPO", L"DESCR_DEPTO", L"CHAPA", L"RAMAL",
                 L"DESCR_GRUPO_OP", L"ATIVO"},
                {}};
  std::size_t deleted = 0;
  for (const Row& o : All(L"OPERADOR")) {
    const auto department = Find(L"DEPTO", L"COD_DEPTO", o[L"COD_DEPTO"]);
    const auto group = Find(L"GRUPOS_OPERADORES", L"COD_GRPOP", o[L"COD_GRPOP"]);
    if (!department || !group) continue;
    if (o[L"OPCOES_PESSOAIS"] == L"APAGADO") {
      ++deleted;
      continue;
    }
    expected.rows.push_back({o[L"DESCR_OPERADOR"], OrEmpty(o[L"NOME_COMPLETO"]), TypeName(o[L"TIPO"]),
                             (*department)[L"DESCR_DEPTO"], OrEmpty(o[L"CHAPA"]), OrEmpty(o[L"RAMAL"]),
                             (*group)[L"DESCR_GRPOP"], Active(o[L"IDC_ATIVO"])});
  }
  EXPECT_GT(deleted, 0U);
  EXPECT_LT(expected.rows.size() + deleted, All(L"OPERADOR").size());
  ExpectRows(expected, RowsOf(kReport, kMethod), {L"DESCR_OPERADOR"});
}

TEST_P(OperatorRows, HaveTheFlagAsABoolean) {
  const auto rows = Open(kReport, kMethod);
  EXPECT_EQ(VT_BOOL, Got(Get(Got(Call(rows, L"Fields", {L"ATIVO"})).object(), L"Value")).type());
}

// The report on an archive with changes.
Outcome RunOn(const std::wstring& connection) {
  return RunReport(kReport, kMethod, Var(ParametersOf(kReport).get()), connection);
}
Failure FailedAt(const std::wstring& step, const std::wstring& cause) {
  return {0x80041FAB, L"KodraRpt.COperadorRpt::RelatorioOperadores", L"Erro " + step + L": " + cause};
}

TEST(OperatorRowsOfOwnArchive, AreNothingWithoutOperators) {
  for (const wchar_t* change : {L"DELETE FROM OPERADOR", L"UPDATE OPERADOR SET OPCOES_PESSOAIS = 'APAGADO'"}) {
    const OwnArchive archive({change});
    const Outcome outcome = RunOn(archive.Connection());
    EXPECT_EQ(S_OK, outcome.hr);
    EXPECT_EQ(VT_DISPATCH, outcome.value.type());
    EXPECT_FALSE(outcome.value.object());
  }
}

TEST(OperatorRowsOfOwnArchive, HoldATextOf255Characters) {
  const OwnArchive archive({L"DELETE FROM OPERADOR WHERE COD_OPERADOR <> '1'",
                            L"UPDATE OPERADOR SET CHAPA = '" + std::wstring(255, L'ç') + L"'"});
  const Rows rows = ReadAll(Got(RunOn(archive.Connection())).object());
  ASSERT_EQ(1U, rows.rows.size());
  EXPECT_EQ(std::wstring(255, L'ç'), Row(rows.columns, rows.rows[0])[L"CHAPA"]);
}

TEST(OperatorErrors, BeforeTheFirstStepNameNone) {
  EXPECT_EQ(FailedAt(L"", L"Objeto não definido."),
            RunReport(kReport, kMethod, Var(static_cast<IDispatch*>(nullptr)), ArchiveConnection()).failure);
}

TEST(OperatorErrors, OfTheDatabaseNameTheReading) {
  const OwnFile missing(L"ausente.db");
  EXPECT_EQ(FailedAt(L"ao obter dados do SGBD", L"[modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados \"" +
                                                    missing.path() + L"\" não encontrado."),
            RunOn(ConnectionTo(missing.path())).failure);
  const OwnArchive archive({L"DROP TABLE GRUPOS_OPERADORES"});
  EXPECT_EQ(FailedAt(L"ao obter dados do SGBD", RefusedBySQLite(L"no such table: GRUPOS_OPERADORES")),
            RunOn(archive.Connection()).failure);
}

TEST(OperatorErrors, OfATextThatIsTooLongNameTheFilling) {
  const OwnArchive archive(
      {L"UPDATE OPERADOR SET CHAPA = '" + std::wstring(256, L'ç') + L"' WHERE COD_OPERADOR = '3'"});
  EXPECT_EQ(FailedAt(L"ao preencher conjunto de dados de saída",
                     L"Multiple-step operation generated errors. Check each status value."),
            RunOn(archive.Connection()).failure);
}

}  // namespace
}  // namespace kodra::face
