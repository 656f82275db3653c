// What the methods of CCaixaRpt share: connection, log, error frame and sibling objects.
#include "reports/modules/caixa_rpt.h"

#include "frame/cerro.h"
#include "values/convert.h"
#include "values/numbers.h"
#include "values/password.h"

namespace kodra::reports {

namespace ad = platform::ad;

void CCaixaRpt::InicializaPS(const AutomationObject* obj) {
  if (!conexao_ && StringConexao().empty())
    throw Erro(kErrBase + 9998, SourceOf(L"InicializaPS"),
               L"Uma das propriedades \"Conexao\" ou \"StringConexao\" precisam ser informadas.");
  if (conexao_) SetStringConexao(conexao_.connection->ConnectionString());
  if (obj == nullptr) throw Erro(kErrBase + 9999, SourceOf(L"InicializaPS"), L"Objeto não definido.");
  LearnTipoBanco();
}

void CCaixaRpt::WriteLog(std::wstring_view text) {
  const std::wstring line = PassThroughLog(std::wstring(text));
  if (listener_) listener_(line);
}

void CCaixaRpt::WriteFailure(std::wstring_view text) {
  std::wstring line(text);
  try {
    line = PassThroughLog(line);
  } catch (...) {  // NOLINT(bugprone-empty-catch): the client hears of the failure without a log too
  }
  if (listener_) listener_(line);
}

std::wstring CCaixaRpt::PassThroughLog(const std::wstring& line) {
  if (!log_) log_ = Around().CreateObject(L"VantLog.FnLog");
  // On every line: the client may have changed the file between two calls.
  log_->Let(L"LogFile", logFile_);
  log_->Let(L"Ativar", !logFile_.empty());
  Value left = line;
  log_->CallByReference(L"DebugLog", left, {});
  std::wstring announced = values::ToText(std::move(left));
  return announced == line ? announced : values::HidePassword(announced, StringConexao());
}

void CCaixaRpt::RaiseLogged(std::wstring_view method) {
  frame::CErro erro;
  erro.SetErro(CaughtErro());
  const std::wstring source = SourceOf(method);
  if (erro.Source() == kApplicationTitle) erro.SetSource(source);
  try {
    WriteFailure(values::LocalText<200>(source, L": ----> saindo com o erro ", values::NumberToText(erro.Number()),
                                        L" em ", erro.Source(), L": ", erro.Description()));
  } catch (...) {  // NOLINT(bugprone-empty-catch): a listener that fails does not hide the error being reported
  }
  throw Erro(frame::kReportError, erro.Source(), std::wstring(frame::kReportErrorPrefix) + erro.Description());
}

frame::ReportRows CCaixaRpt::OpenResult(std::wstring_view statement) {
  if (!conexao_) return Open(statement);
  frame::ReportRows rows = Around().NewRecordset();
  rows->SetCursorLocation(ad::kUseClient);
  rows->Open(statement, conexao_.connection.get(), ad::kUnspecified, ad::kUnspecified, ad::kUnspecified);
  return rows;
}

frame::ReportRows CCaixaRpt::OpenUnion(data::SelectBuilder& main, const data::SelectBuilder& subordinates) {
  if (!HasConexao()) main.SetUnion(subordinates.SQL());
  return OpenResult(main.SQL());
}

frame::ReportRows CCaixaRpt::NewStatic() const {
  frame::ReportRows rows = Around().NewRecordset();
  rows->SetCursorLocation(ad::kUseClient);
  rows->SetCursorType(ad::kOpenStatic);
  return rows;
}

void CCaixaRpt::OpenStatic(platform::Recordset& recordset, std::wstring_view statement) {
  platform::ActiveConnection connection = StringConexao();
  if (conexao_) connection = conexao_.connection.get();
  recordset.Open(statement, connection, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified);
}

ObjectRef CCaixaRpt::CreateBusinessObject(const std::wstring& progId) {
  ObjectRef object = Around().CreateObject(progId);
  object->Let(L"StringConexao", StringConexao());
  object->Let(L"LogFile", logFile_);
  if (conexao_) object->Set(L"Conexao", conexao_.object);
  return object;
}

std::wstring CCaixaRpt::SubordinateCode() {
  const ObjectRef modules = CreateBusinessObject(L"KodraBsnV3.ModulosBsn");
  Value databaseCode = TipoBanco();
  const Value alias = L"s";
  return values::ToText(modules->CallByReference(L"NumCxSubordinadaSQL", databaseCode, {&alias, 1}));
}

CCaixaRpt::ClosedSubordinates CCaixaRpt::ObtemSubordinadosFechados(const std::wstring& module) {
  constexpr std::int32_t kClosedOnly = 1;
  const std::wstring source = SourceOf(L"ObtemSubordinadosFechados");
  DebugLog(source, L": gerando filtro");
  ObjectRef filter = Around().CreateObject(L"KodraBsnV3.ModulosFiltro");
  filter->Let(L"NumCaixa", module);
  filter->Let(L"Fechados", kClosedOnly);
  DebugLog(source, L": obtendo dados");
  ObjectRef reader = CreateBusinessObject(L"KodraBsnV3.ObtedorDeModulos");
  Value argument = filter;
  ObjectRef modules = ObjectIn(reader->CallByReference(L"ObtemSubordinados", argument, {}));
  return {std::move(filter), std::move(reader), std::move(modules)};
}

void CCaixaRpt::RequireAny(const ClosedSubordinates& closed, const std::wstring& module) {
  const auto raise = [&](std::int32_t number, const wchar_t* description) {
    throw Erro(kErrBase + number, std::wstring(kApplicationTitle), description + module);
  };
  if (!closed.modules)
    raise(10, L"Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo ");
  if (values::ToInt32(closed.modules->Get(L"Count")) == 0)
    raise(11, L"Não há módulos subordinados fechados associados ao módulo ");
}

}  // namespace kodra::reports
