// The operators of the archive with their department, group and type, in a recordset made in memory.
#include <vector>

#include "reports/operators/operador_obj.h"
#include "reports/operators/operator_flag.h"
#include "reports/output_dataset.h"
#include "reports/reports.h"
#include "values/convert.h"
#include "values/numbers.h"
#include "values/upper.h"

namespace kodra::reports {
namespace {

constexpr std::int32_t kTextSize = 255;

std::vector<OperadorObj> ReadOperators(const Call& call) {
  const frame::ReportRows rows = call.Open(
      L"SELECT o.DESCR_OPERADOR, o.NOME_COMPLETO, o.TIPO, d.DESCR_DEPTO, "
      L"o.CHAPA, o.RAMAL, o.IDC_ATIVO AS ATIVO, "
      L"gp.DESCR_GRPOP AS DESCR_GRUPO_OP "
      L"FROM OPERADOR o "
      L"INNER JOIN DEPTO d ON o.COD_DEPTO = d.COD_DEPTO "
      L"INNER JOIN GRUPOS_OPERADORES gp ON o.COD_GRPOP = gp.COD_GRPOP "
      L"WHERE o.OPCOES_PESSOAIS <> 'APAGADO' OR o.OPCOES_PESSOAIS IS NULL "
      L"ORDER BY o.DESCR_OPERADOR");
  SourceField ativo(*rows, L"ATIVO");
  SourceField chapa(*rows, L"CHAPA");
  SourceField depto(*rows, L"DESCR_DEPTO");
  SourceField grupo(*rows, L"DESCR_GRUPO_OP");
  SourceField login(*rows, L"DESCR_OPERADOR");
  SourceField nome(*rows, L"NOME_COMPLETO");
  SourceField ramal(*rows, L"RAMAL");
  SourceField tipo(*rows, L"TIPO");
  std::vector<OperadorObj> operators;
  for (; !rows->Eof(); rows->MoveNext()) {
    OperadorObj& record = operators.emplace_back();
    record.Ativo = EhVerdadeiro(ativo.Get());
    record.Chapa = chapa.Text();
    record.Descr_Depto = depto.Text();
    record.Descr_Grupo_Op = grupo.Text();
    record.Descr_Operador = login.Text();
    record.Nome_Completo = nome.Text();
    record.Ramal = ramal.Text();
    record.Tipo = tipo.Text();
  }
  rows->Close();
  return operators;
}

// The description of a type code, from a sibling object made for this one question.
std::wstring ObtemDescricaoTipo(const Call& call, std::wstring_view code) {
  const ObjectRef types = call.Around().CreateObject(L"KodraBsnV3.ObtedorDeTiposOperadores");
  types->Let(L"StringConexao", call.StringConexao());
  const Value number = values::LeadingNumber(code);
  return values::ToText(types->Call(L"ObtemDescricao", {&number, 1}));
}

frame::ReportRows Fill(Call& call, const std::vector<OperadorObj>& operators) {
  call.SetErrorPrefix(L"Erro ao criar conjunto de dados de saída: ");
  OutputDataset output(call.Around());
  output.AppendText(L"DESCR_OPERADOR", kTextSize);
  output.AppendText(L"NOME_COMPLETO", kTextSize);
  output.AppendText(L"DESCR_TIPO", kTextSize);
  output.AppendText(L"DESCR_DEPTO", kTextSize);
  output.AppendText(L"CHAPA", kTextSize);
  output.AppendText(L"RAMAL", kTextSize);
  output.AppendText(L"DESCR_GRUPO_OP", kTextSize);
  output.Append(L"ATIVO", platform::ad::kBoolean);
  call.SetErrorPrefix(L"Erro ao preencher conjunto de dados de saída: ");
  output.Open();
  for (const OperadorObj& record : operators) {
    output.AddNew();
    output.Let(L"DESCR_OPERADOR", record.Descr_Operador);
    output.Let(L"NOME_COMPLETO", record.Nome_Completo);
    output.Let(L"DESCR_TIPO", ObtemDescricaoTipo(call, record.Tipo));
    output.Let(L"DESCR_DEPTO", record.Descr_Depto);
    output.Let(L"CHAPA", record.Chapa);
    output.Let(L"RAMAL", record.Ramal);
    output.Let(L"DESCR_GRUPO_OP", record.Descr_Grupo_Op);
    output.Let(L"ATIVO", record.Ativo);
    output.Update();
  }
  output.MoveFirst();
  call.SetErrorPrefix(L"Erro ao enviar dados para o motor de relatórios: ");
  return output.Release();
}

}  // namespace

bool EhVerdadeiro(const Value& value) {
  constexpr std::wstring_view kYes = L"1,Y,S,T,V";
  const std::wstring text = values::ToTextOrEmpty(value);
  return !text.empty() && kYes.find(values::UpperCase(text.front())) != std::wstring_view::npos;
}

// Operators marked as deleted are left out; type codes are replaced by their descriptions. Reads no property of the
// parameter object. Returns null when there are no operators. An error names the step that failed.
frame::ReportRows COperadorRpt::RelatorioOperadores(Call& call) {
  call.SetErrorPrefix(L"Erro : ");
  call.InicializaPS();
  call.SetErrorPrefix(L"Erro ao obter dados do SGBD: ");
  const std::vector<OperadorObj> operators = ReadOperators(call);
  return operators.empty() ? nullptr : Fill(call, operators);
}

}  // namespace kodra::reports
