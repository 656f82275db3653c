// One call of a report method: what a report reads, asks and opens, and the frame around its errors.
//
//   ReportRows RelatorioDeptos(ReportCall& call) {
//     call.InicializaPS();
//     return call.Open(L"SELECT …");
//   }
//   …
//   ReportObject departments(L"CDeptoRpt", surroundings);
//   departments.SetStringConexao(L"DSN=Acervo");
//   ReportRows rows = Run(departments, L"RelatorioDeptos", &RelatorioDeptos, parameters);
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "frame/report_object.h"
#include "sql/translator.h"
#include "values/automation.h"
#include "values/erro.h"
#include "values/password.h"

namespace kodra::frame {

// The number of every error that a report method raises.
inline constexpr std::int32_t kReportError = kErrBase + 8107;

// The result of a report method for its client; null where a report says so.
using ReportRows = std::unique_ptr<platform::Recordset>;

// The ordinary report class. Two classes differ: one names the step that failed (SetErrorPrefix), the other derives
// from this. A client's object that the call asks may run other reports on the same thread, or the same one again: each
// run has a call of its own.
class ReportCall {
 public:
  using Object = ReportObject;

  // REQUIRES: method is a literal; the object and the parameters, which may be null, outlive the call.
  ReportCall(ReportObject& object, std::wstring_view method, AutomationObject* parameters)
      : object_(object), method_(method), parameters_(parameters) {}
  ReportCall(const ReportCall&) = delete;
  ReportCall& operator=(const ReportCall&) = delete;
  virtual ~ReportCall() = default;

  // Checks the connection string, then the parameter object; reads the database code from the connection component.
  // Raises kErrBase + 9998 (no connection string) and kErrBase + 9999 (no parameter object).
  void InicializaPS();

  platform::Surroundings& Around() const { return object_.Around(); }
  const std::wstring& StringConexao() const { return object_.StringConexao(); }
  // The client's parameter object. Raises RuntimeError::kObjectNotSet when there is none.
  AutomationObject& Parameters() const;
  // The SQL of the database. REQUIRES: InicializaPS has passed.
  const sql::Translator& Sql() const { return sql_; }

  // "KodraRpt.<Class>::<member>"; without an argument, for the report method itself.
  std::wstring SourceOf(std::wstring_view member) const;
  std::wstring Source() const { return SourceOf(method_); }

  // Opens an SQL text on a connection of its own, read once from start to end.
  ReportRows Open(const std::wstring& statement) const;

  // Sets the text before the cause in the description of an error, "Erro ao gerar dados para o relatório: " by default.
  void SetErrorPrefix(std::wstring prefix) { errorPrefix_ = std::move(prefix); }
  // The error as it reaches the client: kReportError under the method's own source, the cause in the description only.
  virtual Erro Framed(const Erro& cause);

 protected:
  // Raises kErrBase + 9998 when there is nothing to connect with.
  virtual void CheckConnection();
  // kReportError from that source, with the prefix and the cause in the description.
  Erro FramedFrom(std::wstring source, const Erro& cause) const;

 private:
  ReportObject& object_;
  std::wstring_view method_;
  AutomationObject* parameters_;
  sql::Translator sql_;
  std::wstring errorPrefix_ = L"Erro ao gerar dados para o relatório: ";
};

// Runs a report method. Whatever fails in it reaches the client as Framed() says; the words of others are stripped of
// the passwords of the connection string.
template <class Call>
ReportRows Run(typename Call::Object& object, std::wstring_view method, ReportRows (*report)(Call&),
               AutomationObject* parameters) {
  Call call(object, method, parameters);
  try {
    return report(call);
  } catch (...) {
    throw call.Framed(values::CurrentErro(object.StringConexao()));
  }
}

}  // namespace kodra::frame
