// The operators: all read first, then returned from memory.
#include <map>

#include "tests/rows/cases.h"
#include "tests/rows/sample.h"

namespace kodra::rows {
namespace {

using namespace testbed;

const Report kOperators{L"COperadorRpt", L"RelatorioOperadores"};

// The leading digits of a type's code decide its description. A code without any is type 0.
Text TypeName(const MaybeText& code) {
  static const std::map<Text, Text> kNames{{L"1", L"Administrador"}, {L"2", L"Arquivista"},  {L"3", L"Digitalizador"},
                                           {L"0", L"Consulta"},      {L"12abc", L"Auditor"}, {L"x", L"Consulta"}};
  return code ? kNames.at(*code) : L"Consulta";
}

bool IsActive(const MaybeText& flag) {
  static const std::map<Text, bool> kMeanings{
      {L"1", true},  {L"S", true}, {L"T", true}, {L"Y", true},   {L"V", true},          {L"0", false},    {L"N", false},
      {L"F", false}, {L"", false}, {L",", true}, {L"sim", true}, {L"Verdadeiro", true}, {L"false", false}};
  return flag && kMeanings.at(*flag);
}

// All operators except those that are deleted and those without a department or a group.
Table Operators() {
  Table expected({L"DESCR_OPERADOR", L"NOME_COMPLETO", L"DESCR_TIPO", L"DESCR_DEPTO", L"CHAPA", L"RAMAL",
                  L"DESCR_GRUPO_OP", L"ATIVO"});
  std::size_t deleted = 0;
  for (const Operador& o : All<Operador>()) {
    const Depto* department = Find(&Depto::codDepto, o.codDepto);
    const GrupoOperadores* group = Find(&GrupoOperadores::codGrpop, o.codGrpop);
    if (department == nullptr || group == nullptr) continue;
    if (o.opcoesPessoais == L"APAGADO") {
      ++deleted;
      continue;
    }
    expected.Add(o.descrOperador, o.nomeCompleto.value_or(L""), TypeName(o.tipo), department->descrDepto,
                 o.chapa.value_or(L""), o.ramal.value_or(L""), group->descrGrpop, IsActive(o.idcAtivo));
  }
  EXPECT_GT(deleted, 0U);
  EXPECT_LT(expected.rows.size() + deleted, All<Operador>().size());
  return expected;
}

INSTANTIATE_TEST_SUITE_P(
    Operators, ReportRows,
    testing::Combine(testing::Values(Case{
                         "OfADepartmentAndAGroupWhoAreNotDeleted", kOperators, {}, Operators, {L"DESCR_OPERADOR"}}),
                     BothEngines()),
    CaseName);

class OperatorRows : public OnBothEngines {};
INSTANTIATE_TEST_SUITE_P(, OperatorRows, BothEngines(), EngineName);

TEST_P(OperatorRows, OfAnArchiveWithoutOperatorsAreNoRecordset) { ExpectNoRecordset(EmptyOn(GetParam()), kOperators); }

TEST(OperatorRowsOfAChangedArchive, AreNoRecordsetWithoutOperators) {
  for (const wchar_t* change : {L"DELETE FROM OPERADOR", L"UPDATE OPERADOR SET OPCOES_PESSOAIS = 'APAGADO'"})
    ExpectNoRecordset(ChangedArchive({change}).ConnectionString(), kOperators);
}

TEST(OperatorRowsOfAChangedArchive, HoldATextOf255Characters) {
  const std::wstring longest(255, L'ç');
  const ChangedArchive archive(
      {L"DELETE FROM OPERADOR WHERE COD_OPERADOR <> '1'", L"UPDATE OPERADOR SET CHAPA = '" + longest + L"'"});
  EXPECT_EQ(RowsAt(archive.ConnectionString(), kOperators).Column(L"CHAPA"), std::vector<Value>{longest});
}

Raised FailedAt(const std::wstring& step, const std::wstring& cause) {
  return {kReportError, L"KodraRpt.COperadorRpt::RelatorioOperadores", L"Erro " + step + L": " + cause};
}

TEST(OperatorErrors, OfTheDatabaseNameTheReading) {
  EXPECT_EQ(ErrorAt(SqliteFile(kMissingFile), kOperators), FailedAt(L"ao obter dados do SGBD", kFileIsMissing));
  const ChangedArchive archive({L"DROP TABLE GRUPOS_OPERADORES"});
  EXPECT_EQ(ErrorAt(archive.ConnectionString(), kOperators),
            FailedAt(L"ao obter dados do SGBD", RefusedBySqlite(L"no such table: GRUPOS_OPERADORES")));
}

TEST(OperatorErrors, OfATextThatIsTooLongNameTheFilling) {
  const ChangedArchive archive(
      {L"UPDATE OPERADOR SET CHAPA = '" + std::wstring(256, L'ç') + L"' WHERE COD_OPERADOR = '3'"});
  EXPECT_EQ(ErrorAt(archive.ConnectionString(), kOperators),
            FailedAt(L"ao preencher conjunto de dados de saída",
                     L"Multiple-step operation generated errors. Check each status value."));
}

}  // namespace
}  // namespace kodra::rows
