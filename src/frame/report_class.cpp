#include "frame/report_class.h"

#include "data/abre_firehose_rs.h"
#include "sql/tradutor_sql.h"
#include "values/convert.h"
#include "values/erro.h"
#include "values/password.h"

namespace kodra::frame {
namespace {

// How many report calls of this thread have begun and not ended.
thread_local int callsRunning = 0;

}  // namespace

ReportClass::Call::Call(ReportClass& report)
    : report_(report), translatorsCode_(sql::TipoBancoAtual()), reportsCode_(report.tipoBanco_) {
  ++callsRunning;
}

ReportClass::Call::~Call() {
  if (--callsRunning == 0) return;
  sql::DefineTipoBanco(translatorsCode_);
  report_.tipoBanco_ = reportsCode_;
}

void ReportClass::InicializaPS(const AutomationObject* obj) {
  if (stringConexao_.empty())
    throw Erro(kErrBase + 9998, SourceOf(L"InicializaPS"), L"É preciso definir a propriedade \"StringConexao\".");
  if (obj == nullptr) throw Erro(kErrBase + 9999, SourceOf(L"InicializaPS"), L"Objeto não definido.");
  LearnTipoBanco();
}

void ReportClass::LearnTipoBanco() {
  const ObjectRef connectionType = surroundings_.CreateObject(L"KodraConexao.StrCon");
  connectionType->Let(L"StrCon", stringConexao_);
  tipoBanco_ = values::ToInt32(connectionType->Get(L"TipoBanco"));
  sql::DefineTipoBanco(tipoBanco_);
}

data::SelectBuilder ReportClass::NewBuilder() const {
  data::SelectBuilder builder;
  builder.SetTipoBanco(tipoBanco_);
  return builder;
}

ReportRows ReportClass::Open(std::wstring_view statement) const {
  std::unique_ptr<platform::Connection> connection;
  return data::AbreFirehoseRs(statement, stringConexao_, platform::ad::kCmdText, connection, surroundings_);
}

std::wstring ReportClass::SourceOf(std::wstring_view member) const {
  const values::LocalText<100> source(kApplicationTitle, L".", className_, L"::", member);
  return std::wstring(source.View());
}

Erro ReportClass::CaughtErro() const { return values::CurrentErro(stringConexao_); }

void ReportClass::RaiseFramed(std::wstring_view method) const {
  throw Erro(kReportError, SourceOf(method), std::wstring(kReportErrorPrefix) + CaughtErro().Description());
}

}  // namespace kodra::frame
