// What every report class shares: the connection string, the checks before a report, and the error frame.
//
// A report class owns its connection string and, during a call, the database code. It keeps no connection, recordset or
// builder between calls. One object is used by one thread at a time.
//
//   class CDeptoRpt : public ReportClass {
//    public:
//     explicit CDeptoRpt(platform::Surroundings& surroundings) : ReportClass(L"CDeptoRpt", surroundings) {}
//     ReportRows RelatorioDeptos(AutomationObject* obj) {
//       return Report(L"RelatorioDeptos", [&] {
//         InicializaPS(obj);
//         return Open(…);
//       });
//     }
//   };
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "data/select_builder.h"
#include "platform/surroundings.h"
#include "values/erro.h"

namespace kodra::frame {

// The number of every error that a report method raises.
inline constexpr std::int32_t kReportError = kErrBase + 8107;
// What stands before the cause in the description of most.
inline constexpr std::wstring_view kReportErrorPrefix = L"Erro ao gerar dados para o relatório: ";

// What a report method gives to its client; null where a report says so.
using ReportRows = std::unique_ptr<platform::Recordset>;

class ReportClass {
 public:
  const std::wstring& StringConexao() const { return stringConexao_; }
  // Stored as given; each report call checks it.
  void SetStringConexao(std::wstring text) { stringConexao_ = std::move(text); }

 protected:
  // A call of a report method, from its start to its end. A client's object that the call asks, or what hears its
  // events, may run another report on the same thread, or the same one again: the end of such an inner call puts the
  // database code of the outer one back. The code of the outermost call stays in the translator.
  class Call {
   public:
    explicit Call(ReportClass& report);
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

   private:
    ReportClass& report_;
    // What the translator and the report had before the call.
    std::int32_t translatorsCode_;
    std::int32_t reportsCode_;
  };

  // REQUIRES: className is a literal and surroundings outlives the object.
  ReportClass(std::wstring_view className, platform::Surroundings& surroundings)
      : className_(className), surroundings_(surroundings) {}
  ~ReportClass() = default;
  ReportClass(const ReportClass&) = delete;
  ReportClass& operator=(const ReportClass&) = delete;

  // Checks the connection string, then the parameter object; learns the database code from the connection component
  // and hands it to the translator. Raises kErrBase + 9998 (no connection string) and kErrBase + 9999 (null object).
  void InicializaPS(const AutomationObject* obj);

  // The second half of InicializaPS: asks the connection component for the database code.
  void LearnTipoBanco();
  // The database code of this call. REQUIRES: InicializaPS has passed.
  std::int32_t TipoBanco() const { return tipoBanco_; }
  platform::Surroundings& Around() const { return surroundings_; }

  // A builder for the database of this call. REQUIRES: InicializaPS has passed.
  data::SelectBuilder NewBuilder() const;
  // Opens an SQL text on a connection of its own, read once from start to end.
  ReportRows Open(std::wstring_view statement) const;

  // Runs a report method: whatever fails in it reaches the client as kErrBase + 8107 under the method's name, with the
  // cause in the description only.
  template <class Body>
  ReportRows Report(std::wstring_view method, Body body) {
    const Call call(*this);
    try {
      return body();
    } catch (...) {
      RaiseFramed(method);
    }
  }

  // The exception being handled, without the passwords of the connection string in the words of others.
  // REQUIRES: called inside a catch clause.
  Erro CaughtErro() const;

  // "KodraRpt.<Class>::<member>".
  std::wstring SourceOf(std::wstring_view member) const;

 private:
  // Raises the exception being handled in the frame.
  [[noreturn]] void RaiseFramed(std::wstring_view method) const;

  std::wstring_view className_;
  platform::Surroundings& surroundings_;
  std::wstring stringConexao_;
  std::int32_t tipoBanco_ = 0;
};

}  // namespace kodra::frame
