// A client's open connection as an automation object, for machines without ADO: the members of ADO's Connection and
// Recordset that a late-bound reader uses, over the platform's own.
#pragma once

#include <memory>
#include <vector>

#include "platform/surroundings.h"
#include "siblings/sibling.h"

namespace kodra::siblings {

class RowsObject final : public Sibling<RowsObject> {
 public:
  explicit RowsObject(std::unique_ptr<platform::Recordset> rows) : rows_(std::move(rows)) {}

  static std::span<const Member<RowsObject>> Members() {
    static const Member<RowsObject> kMembers[] = {
        ReadOnly<&RowsObject::Eof>(L"EOF"),      ReadOnly<&RowsObject::Fields>(L"Fields"),
        Method<&RowsObject::Item, 1>(L"Item"),   Method<&RowsObject::MoveNext, 0>(L"MoveNext"),
        Method<&RowsObject::Close, 0>(L"Close"),
    };
    return kMembers;
  }

 private:
  bool Eof() { return rows_->Eof(); }
  // The recordset is its own list of fields.
  ObjectRef Fields() { return {std::shared_ptr<void>(), this}; }
  Value Item(std::span<const Value> arguments) {
    fields_.push_back(rows_->FieldByName(values::ToText(arguments[0])));
    return fields_.back()->AsObject();
  }
  Value MoveNext(std::span<const Value>) {
    rows_->MoveNext();
    return {};
  }
  Value Close(std::span<const Value>) {
    fields_.clear();
    rows_->Close();
    return {};
  }

  std::unique_ptr<platform::Recordset> rows_;
  std::vector<std::unique_ptr<platform::Field>> fields_;
};

class ConnectionObject final : public Sibling<ConnectionObject> {
 public:
  // Opens the connection. REQUIRES: `surroundings` outlives the object.
  ConnectionObject(platform::Surroundings& surroundings, const std::wstring& connectionString)
      : surroundings_(surroundings), connection_(surroundings.NewConnection()) {
    connection_->SetConnectionString(connectionString);
    connection_->Open(L"", L"", platform::ad::kUnspecified);
  }

  static std::span<const Member<ConnectionObject>> Members() {
    static const Member<ConnectionObject> kMembers[] = {
        ReadOnly<&ConnectionObject::ConnectionString>(L"ConnectionString"),
        Method<&ConnectionObject::Execute, 1>(L"Execute"),
    };
    return kMembers;
  }
  int Executed() const { return executed_; }
  // The connection itself, for early-bound callers.
  const std::shared_ptr<platform::Connection>& Connection() const { return connection_; }

 private:
  std::wstring ConnectionString() { return connection_->ConnectionString(); }
  Value Execute(std::span<const Value> arguments) {
    ++executed_;
    auto rows = surroundings_.NewRecordset();
    rows->Open(values::ToText(arguments[0]), connection_.get(), platform::ad::kUnspecified, platform::ad::kUnspecified,
               platform::ad::kCmdText);
    return ObjectRef(std::make_shared<RowsObject>(std::move(rows)));
  }

  platform::Surroundings& surroundings_;
  std::shared_ptr<platform::Connection> connection_;
  int executed_ = 0;
};

}  // namespace kodra::siblings
