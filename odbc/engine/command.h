// ADO's Command over ODBC: a statement with parameters, bound by position to its "?" marks.
//
//   Command cmd;
//   cmd.SetActiveConnection(&connection);
//   cmd.SetCommandText(L"select NOME from OPERADOR where COD_DEPTO = ?");
//   cmd.AppendParameter(L"COD_DEPTO", ad::kVarChar, ad::kParamInput, 5, L"00001");
//   recordset.Open(&cmd, {}, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
//
// Only input parameters are bound; another direction raises 3251 when the command runs. A value that its parameter's
// type or size cannot hold raises 3421, a variable-length type without a size 3708.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "odbc/engine/connection.h"
#include "odbc/engine/types.h"
#include "platform/ado.h"

namespace kodra::odbc {

class Command : public platform::Command {
 public:
  Command();
  ~Command() override;

  // A closed connection, or one of another platform, raises 3709.
  void SetActiveConnection(platform::Connection* connection) override;
  // Opens a connection of the command's own.
  void SetActiveConnection(const std::wstring& connectionString);
  bool HasActiveConnection() override;
  // A face of the connection in use; null when there is none.
  std::unique_ptr<Connection> ActiveConnection() const;

  std::wstring CommandText() const;
  void SetCommandText(std::wstring_view text) override;
  // ad::kCmdUnknown by default.
  std::int32_t CommandType() const;
  void SetCommandType(std::int32_t type) override;
  // Seconds; 30 by default.
  std::int32_t CommandTimeout() const;
  void SetCommandTimeout(std::int32_t seconds);
  // Stored only for clients that read it; every statement is prepared once per run.
  bool Prepared() const;
  void SetPrepared(bool prepared);
  std::wstring Name() const;
  void SetName(const std::wstring& name);

  void AppendParameter(const std::wstring& name, std::int32_t type, std::int32_t direction, std::int32_t size,
                       const Value& value) override;
  std::int32_t ParameterCount() const;
  // REQUIRES for the four below: 0 <= index < ParameterCount(); another index raises 3265.
  const Parameter& ParameterAt(std::int32_t index) const;
  void SetParameter(std::int32_t index, const Parameter& parameter);
  void SetParameterValue(std::int32_t index, const Value& value);
  void RemoveParameter(std::int32_t index);

  // Runs the command as Connection::Query does. `options` is ad::kUnspecified to use CommandType.
  Execution Execute(std::int32_t options);

  // For the recordset that opens on this command.
  const std::shared_ptr<Session>& SharedSession() const { return session_; }
  const std::vector<Parameter>& Parameters() const { return parameters_; }

 private:
  std::shared_ptr<Session> session_;
  std::wstring text_;
  std::wstring name_;
  std::int32_t type_;
  std::int32_t timeout_ = ad::kDefaultTimeout;
  bool prepared_ = false;
  std::vector<Parameter> parameters_;
};

}  // namespace kodra::odbc
