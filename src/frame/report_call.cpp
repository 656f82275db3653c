#include "frame/report_call.h"

#include "data/abre_firehose_rs.h"
#include "sql/tradutor_sql.h"
#include "values/convert.h"

namespace kodra::frame {

void ReportCall::CheckConnection() {
  if (StringConexao().empty())
    throw Erro(kErrBase + 9998, SourceOf(L"InicializaPS"), L"É preciso definir a propriedade \"StringConexao\".");
}

void ReportCall::InicializaPS() {
  CheckConnection();
  if (parameters_ == nullptr) throw Erro(kErrBase + 9999, SourceOf(L"InicializaPS"), L"Objeto não definido.");
  const ObjectRef connectionType = Around().CreateObject(L"KodraConexao.StrCon");
  connectionType->Let(L"StrCon", StringConexao());
  const std::int32_t tipoBanco = values::ToInt32(connectionType->Get(L"TipoBanco"));
  sql_ = sql::Translator(tipoBanco);
  sql::DefineTipoBanco(tipoBanco);
}

AutomationObject& ReportCall::Parameters() const {
  if (parameters_ == nullptr) throw MakeRuntimeError(RuntimeError::kObjectNotSet);
  return *parameters_;
}

ReportRows ReportCall::Open(const std::wstring& statement) const {
  std::unique_ptr<platform::Connection> connection;
  return data::AbreFirehoseRs(statement, StringConexao(), platform::ad::kCmdText, connection, Around());
}

std::wstring ReportCall::SourceOf(std::wstring_view member) const {
  std::wstring source(kApplicationTitle);
  source.append(L".").append(object_.ClassName()).append(L"::").append(member);
  return source;
}

Erro ReportCall::FramedFrom(std::wstring source, const Erro& cause) const {
  return {kReportError, std::move(source), errorPrefix_ + cause.Description()};
}

Erro ReportCall::Framed(const Erro& cause) { return FramedFrom(Source(), cause); }

}  // namespace kodra::frame
