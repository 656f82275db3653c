#include "reports/modules/module_call.h"

#include "frame/cerro.h"
#include "values/convert.h"
#include "values/numbers.h"

namespace kodra::reports {

namespace ad = platform::ad;

void ModuleCall::CheckConnection() {
  if (!HasConexao() && StringConexao().empty())
    throw Erro(kErrBase + 9998, SourceOf(L"InicializaPS"),
               L"Uma das propriedades \"Conexao\" ou \"StringConexao\" precisam ser informadas.");
  if (HasConexao()) object_.SetStringConexao(object_.Conexao().connection->ConnectionString());
}

Erro ModuleCall::Framed(const Erro& cause) {
  if (passesErrorsOn_) return cause;
  frame::CErro erro;
  erro.SetErro(cause);
  if (erro.Source() == kApplicationTitle) erro.SetSource(Source());
  try {
    object_.WriteFailure(Source() + L": ----> saindo com o erro " + values::NumberToText(erro.Number()) + L" em " +
                         erro.Source() + L": " + erro.Description());
  } catch (...) {  // NOLINT(bugprone-empty-catch): a listener that fails does not hide the error being reported
  }
  return FramedFrom(erro.Source(), cause);
}

frame::ReportRows ModuleCall::OpenResult(const std::wstring& statement) const {
  if (!HasConexao()) return Open(statement);
  frame::ReportRows rows = Around().NewRecordset();
  rows->SetCursorLocation(ad::kUseClient);
  rows->Open(statement, object_.Conexao().connection.get(), ad::kUnspecified, ad::kUnspecified, ad::kUnspecified);
  return rows;
}

frame::ReportRows ModuleCall::OpenUnion(const std::wstring& main, const std::wstring& subordinates) const {
  return OpenResult(HasConexao() ? main : main + L" UNION " + subordinates);
}

frame::ReportRows ModuleCall::NewStatic() const {
  frame::ReportRows rows = Around().NewRecordset();
  rows->SetCursorLocation(ad::kUseClient);
  rows->SetCursorType(ad::kOpenStatic);
  return rows;
}

void ModuleCall::OpenStatic(platform::Recordset& recordset, const std::wstring& statement) const {
  platform::ActiveConnection connection = StringConexao();
  if (HasConexao()) connection = object_.Conexao().connection.get();
  recordset.Open(statement, connection, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified);
}

ObjectRef ModuleCall::CreateBusinessObject(const std::wstring& progId) const {
  ObjectRef object = Around().CreateObject(progId);
  object->Let(L"StringConexao", StringConexao());
  object->Let(L"LogFile", object_.LogFile());
  if (HasConexao()) object->Set(L"Conexao", object_.Conexao().object);
  return object;
}

std::wstring ModuleCall::SubordinateCode() const {
  const ObjectRef modules = CreateBusinessObject(L"KodraBsnV3.ModulosBsn");
  Value databaseCode = Sql().Code();
  const Value alias = L"s";
  return values::ToText(modules->CallByReference(L"NumCxSubordinadaSQL", databaseCode, {&alias, 1}));
}

}  // namespace kodra::reports
