// ADO's objects early-bound: each call of platform/ado.h is one call of the interface of the same name.
#pragma once

#include <memory>

#include "ado/adoint.h"
#include "comkit/com_ptr.h"
#include "platform/ado.h"

namespace kodra::ado {

class AdoConnection final : public platform::Connection {
 public:
  explicit AdoConnection(comkit::com_ptr<_Connection> connection) : connection_(std::move(connection)) {}

  std::wstring ConnectionString() override;
  void SetConnectionString(const std::wstring& text) override;
  void SetCursorLocation(std::int32_t location) override;
  void SetIsolationLevel(std::int32_t level) override;
  void Open(const std::wstring& user, const std::wstring& password, std::int32_t options) override;
  std::int32_t State() override;
  void Execute(const std::wstring& statement, std::int32_t options) override;
  std::int32_t ErrorCount() override;
  std::int32_t NativeError(std::int32_t index) override;

  _Connection* Interface() const noexcept { return connection_.get(); }

 private:
  comkit::com_ptr<_Connection> connection_;
};

class AdoCommand final : public platform::Command {
 public:
  explicit AdoCommand(comkit::com_ptr<_Command> command) : command_(std::move(command)) {}

  void SetActiveConnection(platform::Connection* connection) override;
  bool HasActiveConnection() override;
  void SetCommandText(std::wstring_view text) override;
  void SetCommandType(std::int32_t type) override;
  void AppendParameter(const std::wstring& name, std::int32_t type, std::int32_t direction, std::int32_t size,
                       const Value& value) override;

  _Command* Interface() const noexcept { return command_.get(); }

 private:
  comkit::com_ptr<_Command> command_;
};

class AdoRecordset final : public platform::Recordset {
 public:
  explicit AdoRecordset(comkit::com_ptr<_Recordset> recordset) : recordset_(std::move(recordset)) {}

  void SetCursorLocation(std::int32_t location) override;
  void SetCursorType(std::int32_t type) override;
  void SetCacheSize(std::int32_t rows) override;
  void Open(const platform::RecordsetSource& source, const platform::ActiveConnection& connection,
            std::int32_t cursorType, std::int32_t lockType, std::int32_t options) override;
  void Close() override;
  std::int32_t State() override;
  bool Eof() override;
  void MoveFirst() override;
  void MoveNext() override;
  std::int64_t RecordCount() override;
  std::vector<platform::Column> Columns() override;
  void AppendField(const std::wstring& name, std::int32_t type, std::int32_t definedSize,
                   std::int32_t attributes) override;
  std::unique_ptr<platform::Field> FieldByName(const std::wstring& name) override;
  void AddNew() override;
  void Update() override;

  _Recordset* Interface() const noexcept { return recordset_.get(); }

 private:
  comkit::com_ptr<::Fields> FieldList();

  comkit::com_ptr<_Recordset> recordset_;
};

// The COM object of a recordset of this platform, with a reference that the caller owns.
comkit::com_ptr<IDispatch> DispatchOf(platform::Recordset& recordset);

}  // namespace kodra::ado
