#include "reports/catalog/operador_rpt.h"

#include "data/compiled_statement.h"
#include "reports/output_dataset.h"
#include "values/convert.h"
#include "values/numbers.h"
#include "values/upper.h"

namespace kodra::reports {
namespace {

using data::JoinKind;

constexpr std::int32_t kTextSize = 255;

constexpr void SelectOperators(data::SelectBuilder& builder) {
  builder.SetColumns(
      L"o.DESCR_OPERADOR, o.NOME_COMPLETO, o.TIPO, d.DESCR_DEPTO, "
      L"o.CHAPA, o.RAMAL, o.IDC_ATIVO AS ATIVO, "
      L"gp.DESCR_GRPOP AS DESCR_GRUPO_OP");
  builder.SetFrom(L"OPERADOR o");
  builder.AddJoin(0, JoinKind::kInner, L"DEPTO d", L"o.COD_DEPTO = d.COD_DEPTO");
  builder.AddJoin(1, JoinKind::kInner, L"GRUPOS_OPERADORES gp", L"o.COD_GRPOP = gp.COD_GRPOP");
  builder.SetWhere(L"o.OPCOES_PESSOAIS <> 'APAGADO' OR o.OPCOES_PESSOAIS IS NULL");
  builder.SetOrderBy(L"o.DESCR_OPERADOR");
}

}  // namespace

bool EhVerdadeiro(const Value& value) {
  constexpr std::wstring_view kYes = L"1,Y,S,T,V";
  const std::wstring text = values::ToTextOrEmpty(value);
  return !text.empty() && kYes.find(values::UpperCase(text.front())) != std::wstring_view::npos;
}

frame::ReportRows COperadorRpt::RelatorioOperadores(AutomationObject* obj) {
  const Call call(*this);
  std::wstring step;
  try {
    InicializaPS(obj);
    step = L"ao obter dados do SGBD";
    const std::vector<OperadorObj> operators = ReadOperators();
    return operators.empty() ? nullptr : Fill(operators, step);
  } catch (...) {
    throw Erro(frame::kReportError, SourceOf(L"RelatorioOperadores"),
               L"Erro " + step + L": " + CaughtErro().Description());
  }
}

std::vector<OperadorObj> COperadorRpt::ReadOperators() const {
  const frame::ReportRows rows = Open(data::kCompiledStatement<SelectOperators>);
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

frame::ReportRows COperadorRpt::Fill(const std::vector<OperadorObj>& operators, std::wstring& step) const {
  step = L"ao criar conjunto de dados de saída";
  OutputDataset output(Around());
  output.AppendText(L"DESCR_OPERADOR", kTextSize);
  output.AppendText(L"NOME_COMPLETO", kTextSize);
  output.AppendText(L"DESCR_TIPO", kTextSize);
  output.AppendText(L"DESCR_DEPTO", kTextSize);
  output.AppendText(L"CHAPA", kTextSize);
  output.AppendText(L"RAMAL", kTextSize);
  output.AppendText(L"DESCR_GRUPO_OP", kTextSize);
  output.Append(L"ATIVO", platform::ad::kBoolean);
  step = L"ao preencher conjunto de dados de saída";
  output.Open();
  for (const OperadorObj& record : operators) {
    output.AddNew();
    output[0].Let(record.Descr_Operador);
    output[1].Let(record.Nome_Completo);
    output[2].Let(ObtemDescricaoTipo(record.Tipo));
    output[3].Let(record.Descr_Depto);
    output[4].Let(record.Chapa);
    output[5].Let(record.Ramal);
    output[6].Let(record.Descr_Grupo_Op);
    output[7].Let(record.Ativo);
    output.Update();
  }
  output.MoveFirst();
  step = L"ao enviar dados para o motor de relatórios";
  return output.Release();
}

std::wstring COperadorRpt::ObtemDescricaoTipo(std::wstring_view code) const {
  const ObjectRef types = Around().CreateObject(L"KodraBsnV3.ObtedorDeTiposOperadores");
  types->Let(L"StringConexao", StringConexao());
  const Value number = values::LeadingNumber(code);
  return values::ToText(types->Call(L"ObtemDescricao", {&number, 1}));
}

}  // namespace kodra::reports
