// Opening, closing and requerying: how a recordset gets its rows.
#include <algorithm>

#include "odbc/engine/command.h"
#include "odbc/engine/command_text.h"
#include "odbc/engine/memory_rows.h"
#include "odbc/engine/recordset.h"
#include "odbc/engine/stream_rows.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

// Rows read whole are fetched in blocks of at least this many, whatever the cache size.
constexpr std::int32_t kLeastWholeBlock = 100;

void RequireUsable(const std::shared_ptr<Session>& session) {
  if (!session || !session->IsOpen()) Raise(ControlError::kInvalidConnection, kRecordsetSource);
}

// ADO's 30 seconds are taken to mean that nobody set a timeout: a driver that enforced them would stop long reports.
std::int32_t DriverTimeout(std::int32_t seconds) { return seconds == ad::kDefaultTimeout ? 0 : seconds; }

}  // namespace

std::shared_ptr<Session> Recordset::SessionOf(const platform::ActiveConnection& connection) {
  if (const auto* given = std::get_if<platform::Connection*>(&connection)) {
    if (*given == nullptr) return nullptr;
    auto* const ours = dynamic_cast<Connection*>(*given);
    if (ours == nullptr) Raise(ControlError::kInvalidConnection, kRecordsetSource);
    RequireUsable(ours->SharedSession());
    return ours->SharedSession();
  }
  const auto* text = std::get_if<std::wstring>(&connection);
  if (text == nullptr) return nullptr;
  auto session = std::make_shared<Session>();
  session->Properties().connectionString = *text;
  session->Open({}, {});
  return session;
}

Recordset::Query Recordset::QueryOf(const Command& command, std::int32_t options) {
  Query query;
  query.parameters = command.Parameters();
  query.statement = StatementText(command.CommandText(), options, command.CommandType(), query.parameters.size());
  query.timeout = command.CommandTimeout();
  query.isCommand = true;
  return query;
}

Recordset::Query Recordset::QueryOf(const std::wstring& text, std::int32_t options) const {
  Query query;
  query.statement = StatementText(text, options, ad::kCmdUnknown, 0);
  query.timeout = session_->Properties().commandTimeout;
  return query;
}

void Recordset::Open(const platform::RecordsetSource& source, const platform::ActiveConnection& connection,
                     std::int32_t cursorType, std::int32_t lockType, std::int32_t options) {
  RequireClosed();
  const bool isCommand = std::holds_alternative<platform::Command*>(source);
  const bool connectionGiven = !std::holds_alternative<std::monostate>(connection);
  if (isCommand && connectionGiven) Raise(ControlError::kBoundToCommand, kRecordsetSource);
  OpenCursor(cursorType, lockType);

  std::shared_ptr<Session> session = connectionGiven ? SessionOf(connection) : session_;
  const Command* command = nullptr;
  if (isCommand) {
    command = dynamic_cast<Command*>(std::get<platform::Command*>(source));
    if (command == nullptr) Raise(ControlError::kInvalidArgument, kRecordsetSource);
    session = command->SharedSession();
  }
  const bool leftOut = !connectionGiven && std::holds_alternative<std::monostate>(source) && source_.empty();
  if (!session && leftOut && appended_) {
    OpenInMemory();
    return;
  }
  RequireUsable(session);
  session_ = std::move(session);
  if (!cursorLocationSet_) cursorLocation_ = session_->Properties().cursorLocation;
  if (command != nullptr) {
    query_ = QueryOf(*command, options);
    source_ = query_.statement;
  } else {
    const auto* const text = std::get_if<std::wstring_view>(&source);
    std::wstring statement = text != nullptr ? std::wstring(*text) : source_;
    query_ = QueryOf(statement, options);
    source_ = std::move(statement);
  }
  OpenRows();
}

void Recordset::OpenCursor(std::int32_t cursorType, std::int32_t lockType) {
  if (cursorType != ad::kUnspecified) SetCursorType(cursorType);
  if (lockType != ad::kUnspecified) SetLockType(lockType);
}

std::int64_t Recordset::OpenRows() {
  appended_ = false;
  fields_.clear();
  auto statement = std::make_unique<Statement>(*session_, query_.statement, query_.parameters,
                                               StatementLimits{DriverTimeout(query_.timeout), maxRecords_});
  statement->Execute();
  const std::int64_t affected = statement->RowsAffected();
  if (statement->Columns().empty() || query_.withoutRows) return affected;

  std::vector<FieldInfo> fields;
  for (const odbc::Column& column : statement->Columns()) fields.push_back(column.info);
  const bool client = cursorLocation_ == ad::kUseClient;
  if (client) cursorType_ = ad::kOpenStatic;
  if (cursorType_ == ad::kOpenForwardOnly) {
    rows_ = std::make_unique<StreamRows>(std::move(statement), cacheSize_);
  } else {
    cursorType_ = ad::kOpenStatic;
    StreamRows rows(std::move(statement), std::max(cacheSize_, kLeastWholeBlock));
    auto memory = std::make_unique<MemoryRows>(rows.TakeRest());
    memory_ = memory.get();
    rows_ = std::move(memory);
  }
  fields_ = std::move(fields);
  if (!client) session_->Join(this);
  return affected;
}

void Recordset::OpenInMemory() {
  cursorLocation_ = ad::kUseClient;
  cursorType_ = ad::kOpenStatic;
  auto memory = std::make_unique<MemoryRows>(std::vector<MemoryRows::Row>());
  memory_ = memory.get();
  rows_ = std::move(memory);
}

Execution Recordset::Run(const std::shared_ptr<Session>& session, const Query& query) {
  Execution execution;
  execution.recordset = std::make_unique<Recordset>();
  Recordset& recordset = *execution.recordset;
  recordset.session_ = session;
  recordset.cursorLocation_ = session->Properties().cursorLocation;
  recordset.query_ = query;
  recordset.source_ = query.statement;
  execution.recordsAffected = recordset.OpenRows();
  return execution;
}

void Recordset::Requery() {
  RequireOpen(kRecordsetSource);
  if (appended_) Raise(ControlError::kIllegalOperation, kRecordsetSource);
  RequireUsable(session_);
  DropRows();
  OpenRows();
}

void Recordset::Close() {
  RequireOpen(kRecordsetSource);
  DropRows();
}

void Recordset::DropRows() noexcept {
  memory_ = nullptr;
  rows_.reset();
  if (!appended_) fields_.clear();
  if (session_) session_->Leave(this);
}

void Recordset::ConnectionClosed() noexcept {
  memory_ = nullptr;
  rows_.reset();
  fields_.clear();
}

std::unique_ptr<Connection> Recordset::ConnectionInUse() const {
  return session_ ? std::make_unique<Connection>(session_) : nullptr;
}

void Recordset::SetActiveConnection(const platform::ActiveConnection& connection) {
  if (State() == ad::kStateOpen) {
    const auto* given = std::get_if<platform::Connection*>(&connection);
    const bool disconnects = given != nullptr && *given == nullptr && cursorLocation_ == ad::kUseClient;
    if (!disconnects) Raise(ControlError::kObjectOpen, kRecordsetSource);
  } else if (query_.isCommand && session_ && !std::holds_alternative<std::monostate>(connection)) {
    query_ = {};
    source_.clear();
  }
  session_ = SessionOf(connection);
}

}  // namespace kodra::odbc
