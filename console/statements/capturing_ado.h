// ADO without a database, which records the statements that are opened.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "console/statements/capture.h"
#include "platform/ado.h"

namespace kodra::console {

// A connection that is always open.
class CapturingConnection final : public platform::Connection {
 public:
  std::wstring ConnectionString() override { return {}; }
  void SetConnectionString(const std::wstring&) override {}
  void SetCursorLocation(std::int32_t) override {}
  void SetIsolationLevel(std::int32_t) override {}
  void Open(const std::wstring&, const std::wstring&, std::int32_t) override {}
  std::int32_t State() override { return platform::ad::kStateOpen; }
  void Execute(const std::wstring&, std::int32_t) override {}
  std::int32_t ErrorCount() override { return 0; }
  std::int32_t NativeError(std::int32_t) override { return 0; }
};

class CapturingCommand final : public platform::Command {
 public:
  const Statement& Text() const { return statement_; }

  void SetActiveConnection(platform::Connection*) override {}
  bool HasActiveConnection() override { return false; }
  void SetCommandText(std::wstring_view text) override { statement_.text = text; }
  void SetCommandType(std::int32_t) override {}
  void AppendParameter(const std::wstring& name, std::int32_t type, std::int32_t direction, std::int32_t size,
                       const Value& value) override;

 private:
  Statement statement_;
};

// If it is opened on a statement, it records the statement and has `rows` rows of nulls. If it is opened without one,
// it accepts added rows and discards them.
class CapturingRecordset final : public platform::Recordset {
 public:
  // `statements` must outlive it.
  CapturingRecordset(std::vector<Statement>& statements, int rows) : statements_(statements), rows_(rows) {}

  void SetCursorLocation(std::int32_t) override {}
  void SetCursorType(std::int32_t) override {}
  void SetCacheSize(std::int32_t) override {}
  void Open(const platform::RecordsetSource& source, const platform::ActiveConnection& connection,
            std::int32_t cursorType, std::int32_t lockType, std::int32_t options) override;
  void Close() override { isOpen_ = false; }
  std::int32_t State() override { return isOpen_ ? platform::ad::kStateOpen : platform::ad::kStateClosed; }

  bool Eof() override { return current_ >= rows_; }
  void MoveFirst() override { current_ = 0; }
  void MoveNext() override { ++current_; }

  std::int64_t RecordCount() override { return -1; }
  std::vector<platform::Column> Columns() override { return {}; }
  void AppendField(const std::wstring&, std::int32_t, std::int32_t, std::int32_t) override {}
  std::unique_ptr<platform::Field> FieldByName(const std::wstring& name) override;
  void AddNew() override {}
  void Update() override {}

 private:
  std::vector<Statement>& statements_;
  int rows_;
  int current_ = 0;
  bool isOpen_ = false;
};

}  // namespace kodra::console
