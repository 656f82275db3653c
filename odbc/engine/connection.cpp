#include "odbc/engine/connection.h"

#include "odbc/engine/command_text.h"
#include "odbc/engine/recordset.h"
#include "odbc/engine/session.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

void RequireOpen(const Session& session) {
  if (!session.IsOpen()) Raise(ControlError::kObjectClosed, kConnectionSource);
}

void RequireClosed(const Session& session) {
  if (session.IsOpen()) Raise(ControlError::kObjectOpen, kConnectionSource);
}

void RequireTimeout(std::int32_t seconds) {
  if (seconds < 0) Raise(ControlError::kInvalidArgument, kConnectionSource);
}

}  // namespace

Connection::Connection() : session_(std::make_shared<Session>()) {}
Connection::Connection(std::shared_ptr<Session> session) : session_(std::move(session)) {}
Connection::~Connection() = default;

std::wstring Connection::ConnectionString() { return session_->Properties().connectionString; }

void Connection::SetConnectionString(const std::wstring& text) {
  RequireClosed(*session_);
  session_->Properties().connectionString = text;
}

std::int32_t Connection::CursorLocation() const { return session_->Properties().cursorLocation; }

void Connection::SetCursorLocation(std::int32_t location) {
  if (location != ad::kUseServer && location != ad::kUseClient) {
    Raise(ControlError::kInvalidArgument, kConnectionSource);
  }
  session_->Properties().cursorLocation = location;
}

std::int32_t Connection::IsolationLevel() const { return session_->Properties().isolationLevel; }

void Connection::SetIsolationLevel(std::int32_t level) {
  session_->Properties().isolationLevel = level;
  session_->ApplyIsolationLevel();
}

std::int32_t Connection::ConnectionTimeout() const { return session_->Properties().connectionTimeout; }

void Connection::SetConnectionTimeout(std::int32_t seconds) {
  RequireClosed(*session_);
  RequireTimeout(seconds);
  session_->Properties().connectionTimeout = seconds;
}

std::int32_t Connection::CommandTimeout() const { return session_->Properties().commandTimeout; }

void Connection::SetCommandTimeout(std::int32_t seconds) {
  RequireTimeout(seconds);
  session_->Properties().commandTimeout = seconds;
}

std::wstring Connection::Provider() const { return session_->Properties().provider; }

void Connection::SetProvider(const std::wstring& name) {
  RequireClosed(*session_);
  session_->Properties().provider = name;
}

std::wstring Connection::DefaultDatabase() {
  return session_->IsOpen() ? session_->CurrentDatabase() : session_->Properties().defaultDatabase;
}

void Connection::SetDefaultDatabase(const std::wstring& name) {
  if (session_->IsOpen()) session_->SetCurrentDatabase(name);
  session_->Properties().defaultDatabase = name;
}

std::int32_t Connection::Mode() const { return session_->Properties().mode; }

void Connection::SetMode(std::int32_t mode) {
  RequireClosed(*session_);
  session_->Properties().mode = mode;
}

void Connection::Open(const std::wstring& user, const std::wstring& password, std::int32_t /*options*/) {
  RequireClosed(*session_);
  session_->Open(user, password);
}

void Connection::Open(const std::wstring& connectionString, const std::wstring& user, const std::wstring& password,
                      std::int32_t options) {
  SetConnectionString(connectionString);
  Open(user, password, options);
}

void Connection::Close() {
  RequireOpen(*session_);
  if (session_->InTransaction()) Raise(ControlError::kInTransaction, kConnectionSource);
  session_->Close();
}

std::int32_t Connection::State() { return session_->IsOpen() ? ad::kStateOpen : ad::kStateClosed; }

void Connection::Execute(const std::wstring& statement, std::int32_t options) {
  Query(statement, (options == ad::kUnspecified ? 0 : options) | ad::kExecuteNoRecords);
}

Execution Connection::Query(const std::wstring& statement, std::int32_t options) {
  RequireOpen(*session_);
  Recordset::Query query;
  query.statement = StatementText(statement, options, ad::kCmdUnknown, 0);
  query.timeout = CommandTimeout();
  query.withoutRows = options != ad::kUnspecified && (options & ad::kExecuteNoRecords) != 0;
  return Recordset::Run(session_, query);
}

std::int32_t Connection::BeginTrans() {
  RequireOpen(*session_);
  session_->BeginTransaction();
  return 1;
}

void Connection::CommitTrans() {
  RequireOpen(*session_);
  session_->EndTransaction(true);
}

void Connection::RollbackTrans() {
  RequireOpen(*session_);
  session_->EndTransaction(false);
}

std::int32_t Connection::ErrorCount() { return static_cast<std::int32_t>(session_->Errors().size()); }

std::int32_t Connection::NativeError(std::int32_t index) {
  return session_->Errors().at(static_cast<std::size_t>(index)).nativeError;
}

const std::vector<ProviderError>& Connection::Errors() const { return session_->Errors(); }

void Connection::ClearErrors() { session_->Errors().clear(); }

}  // namespace kodra::odbc
