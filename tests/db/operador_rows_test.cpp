// The operators: read whole, then given again from memory.
#include <map>

#include "reports/catalog/operador_rpt.h"
#include "tests/db/reports_on.h"

namespace kodra::tests {
namespace {

using namespace reports;
using namespace testbed;

class OperadorRows : public OnBoth {};
KODRA_ON_BOTH_DATABASES(OperadorRows);

// The leading digits of a type's code decide its description; without any it is type 0.
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

TEST_P(OperadorRows, WithoutTheDeletedAndThoseOfNoDepartmentOrGroup) {
  Table expected({L"DESCR_OPERADOR", L"NOME_COMPLETO", L"DESCR_TIPO", L"DESCR_DEPTO", L"CHAPA", L"RAMAL",
                  L"DESCR_GRUPO_OP", L"ATIVO"});
  for (const Operador& o : All<Operador>()) {
    const Depto* department = Find(&Depto::codDepto, o.codDepto);
    const GrupoOperadores* group = Find(&GrupoOperadores::codGrpop, o.codGrpop);
    if (department == nullptr || group == nullptr || o.opcoesPessoais == L"APAGADO") continue;
    expected.Add(o.descrOperador, o.nomeCompleto.value_or(L""), TypeName(o.tipo), department->descrDepto,
                 o.chapa.value_or(L""), o.ramal.value_or(L""), group->descrGrpop, IsActive(o.idcAtivo));
  }
  ASSERT_LT(expected.rows.size(), All<Operador>().size());
  ExpectRows(RowsOf(&COperadorRpt::RelatorioOperadores, Parameters(L"COperadorRptObj")), expected, {L"DESCR_OPERADOR"});
}

TEST_P(OperadorRows, AnArchiveWithoutOperatorsGivesNoRecordset) {
  ReadTheEmptyArchive();
  EXPECT_EQ(Open(&COperadorRpt::RelatorioOperadores, Parameters(L"COperadorRptObj")), nullptr);
}

class OperadorOnSqlite : public OnSqlite {};

TEST_F(OperadorOnSqlite, AFailureNamesItsStep) {
  COperadorRpt report(Machine());
  report.SetStringConexao(L"Driver={SQLite3};Database=/nao/existe/acervo.db;");
  auto obj = Parameters(L"COperadorRptObj");
  EXPECT_EQ(RaisedBy([&] { report.RelatorioOperadores(&obj); }),
            (Raised{frame::kReportError, L"KodraRpt.COperadorRpt::RelatorioOperadores",
                    L"Erro ao obter dados do SGBD: [modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados "
                    L"\"/nao/existe/acervo.db\" não encontrado."}));
}

}  // namespace
}  // namespace kodra::tests
