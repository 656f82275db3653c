// Reports by COM, and the same rows opened without the component.
#pragma once

#include <string>

#include "bench/wine/com.h"

namespace kodra::bench {

// A report and its parameter object, made once as a client does, and called repeatedly.
template <class Report>
class Caller {
 public:
  using Method = HRESULT (STDMETHODCALLTYPE Report::*)(IDispatch*, IDispatch**);

  // `name` is the report class, "CDeptoRpt".
  Caller(const std::wstring& name, Method method, const std::wstring& connectionString)
      : report_(Create<Report>((L"KodraRpt." + name).c_str())),
        parameters_(Create<IDispatch>((L"KodraRpt." + name + L"Obj").c_str())),
        method_(method) {
    Must(report_->put_StringConexao(Bstr(connectionString).get()), "StringConexao");
  }

  com_ptr<_Recordset> Rows() const {
    com_ptr<IDispatch> rows;
    Must((report_.get()->*method_)(parameters_.get(), rows.put()), "report");
    return rows.as<_Recordset>();
  }

 private:
  com_ptr<Report> report_;
  com_ptr<IDispatch> parameters_;
  Method method_;
};

// A program that does by itself what a report must do: it asks the connection component for the database code and opens
// the statement by ADO as the component does. Its statement comes from rows of the component, so that both sides ask
// the database for the same.
class Bare {
 public:
  // `connectionString` is the client's; the opened connection string and the statement are those of `rows`.
  Bare(std::wstring connectionString, _Recordset* rows);

  com_ptr<_Recordset> Rows() const;
  // The connection string with which the connection is opened.
  const std::wstring& Prepared() const { return prepared_; }

 private:
  std::wstring connectionString_;
  std::wstring prepared_;
  std::wstring statement_;
};

// The connection component's code for a connection string.
long DatabaseCode(const std::wstring& connectionString);

// Opens a statement as the component does: read once from start to end, a hundred rows at a time.
com_ptr<_Recordset> OpenOnce(const std::wstring& prepared, const std::wstring& statement);

}  // namespace kodra::bench
