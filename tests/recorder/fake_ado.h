// Fake ADO objects. Connections and commands only record their calls; a recordset also contains rows, which a test
// prepared or the component added. Like ADO, it refuses a text longer than its field, a value without a current row,
// and MoveFirst without rows.
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/ado.h"
#include "tests/recorder/journal.h"

namespace kodra::recorder {

struct Rows {
  std::vector<std::wstring> fields;
  std::vector<std::vector<Value>> rows;
};

// The answers of the fakes; a test sets them before or between calls.
struct AdoScript {
  std::int32_t connectionState = platform::ad::kStateOpen;
  // The provider's errors, by their native codes.
  std::vector<std::int32_t> nativeErrors;
  // The rows of the recordsets that are opened next, in order; later recordsets are empty.
  std::deque<Rows> results;
};

class FakeConnection final : public platform::Connection, public Fake {
 public:
  FakeConnection(Journal& journal, std::wstring name, const AdoScript& script)
      : Fake(journal, std::move(name)), script_(script) {}

  std::wstring ConnectionString() override;
  void SetConnectionString(const std::wstring& text) override;
  void SetCursorLocation(std::int32_t location) override;
  void SetIsolationLevel(std::int32_t level) override;
  void Open(const std::wstring& user, const std::wstring& password, std::int32_t options) override;
  std::int32_t State() override;
  void Execute(const std::wstring& statement, std::int32_t options) override;
  std::int32_t ErrorCount() override;
  std::int32_t NativeError(std::int32_t index) override;

 private:
  const AdoScript& script_;
  std::wstring connectionString_;
};

class FakeCommand final : public platform::Command, public Fake {
 public:
  FakeCommand(Journal& journal, std::wstring name) : Fake(journal, std::move(name)) {}

  void SetActiveConnection(platform::Connection* connection) override;
  bool HasActiveConnection() override;
  void SetCommandText(std::wstring_view text) override;
  void SetCommandType(std::int32_t type) override;
  void AppendParameter(const std::wstring& name, std::int32_t type, std::int32_t direction, std::int32_t size,
                       const Value& value) override;

 private:
  bool attached_ = false;
};

class FakeRecordset final : public platform::Recordset, public Fake {
 public:
  FakeRecordset(Journal& journal, std::wstring name, AdoScript& script)
      : Fake(journal, std::move(name)), script_(script) {}

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

 private:
  friend class FakeField;
  // The value of a field on the current row; null when no row is current.
  Value* Current(std::size_t field);
  // Whether a text is longer than the defined size of the field.
  bool IsTooLong(std::size_t field, const Value& value) const;

  AdoScript& script_;
  Rows held_;
  // The defined sizes of appended text fields, by position.
  std::map<std::size_t, std::size_t> textSizes_;
  std::size_t row_ = 0;
  bool open_ = false;
};

// Its destruction leaves no line in the journal, but it counts as a living object.
class FakeField final : public platform::Field {
 public:
  FakeField(Journal& journal, FakeRecordset& recordset, std::size_t index)
      : journal_(journal), recordset_(recordset), index_(index) {
    journal_.Enter();
  }
  FakeField(const FakeField&) = delete;
  FakeField& operator=(const FakeField&) = delete;
  ~FakeField() override { journal_.Leave(); }

  Value Get() override;
  void Let(const Value& value) override;

 private:
  // "Recordset1.Field(NOME).<member>(<argument>)".
  std::wstring Line(std::wstring_view member, std::wstring_view argument = {}) const;

  Journal& journal_;
  FakeRecordset& recordset_;
  std::size_t index_;
};

}  // namespace kodra::recorder
