#include "bench/wine/reports.h"

namespace kodra::bench {

Bare::Bare(std::wstring connectionString, _Recordset* rows) : connectionString_(std::move(connectionString)) {
  Var source;
  Must(rows->get_Source(source.put()), "Source");
  statement_ = source.raw().bstrVal;
  Var active;
  Must(rows->get_ActiveConnection(active.put()), "ActiveConnection");
  Bstr prepared;
  Must(com_ptr<IDispatch>(active.raw().pdispVal).as<_Connection>()->get_ConnectionString(prepared.put()),
       "ConnectionString");
  prepared_ = prepared.text();
}

com_ptr<_Recordset> Bare::Rows() const {
  DatabaseCode(connectionString_);
  return OpenOnce(prepared_, statement_);
}

long DatabaseCode(const std::wstring& connectionString) {
  const auto helper = Create<IDispatch>(L"KodraConexao.StrCon");
  Put(helper.get(), L"StrCon", Var(connectionString));
  return Get(helper.get(), L"TipoBanco").raw().lVal;
}

com_ptr<_Recordset> OpenOnce(const std::wstring& prepared, const std::wstring& statement) {
  const auto connection = Create<_Connection>(L"ADODB.Connection");
  Must(connection->put_ConnectionString(Bstr(prepared).get()), "ConnectionString");
  Must(connection->put_CursorLocation(adUseServer), "CursorLocation");
  Must(connection->put_IsolationLevel(adXactReadCommitted), "IsolationLevel");
  const Bstr none(L"");
  Must(connection->Open(none.get(), none.get(), none.get(), adConnectUnspecified), "Connection.Open");
  const auto rows = Create<_Recordset>(L"ADODB.Recordset");
  Must(rows->put_CursorLocation(adUseServer), "CursorLocation");
  Must(rows->put_CacheSize(100), "CacheSize");
  Must(rows->Open(Var(statement).raw(), Var(connection.get()).raw(), adOpenForwardOnly, adLockReadOnly, adCmdText),
       "Recordset.Open");
  return rows;
}

}  // namespace kodra::bench
