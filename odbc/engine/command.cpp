#include "odbc/engine/command.h"

#include "odbc/engine/coercion.h"
#include "odbc/engine/command_text.h"
#include "odbc/engine/recordset.h"
#include "odbc/engine/session.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

void RequireWellDefined(const Parameter& parameter) {
  const bool variable = IsTextType(parameter.type) || IsBinaryType(parameter.type);
  const bool known = variable || FixedSize(parameter.type) > 0 || parameter.type == ad::kVariant;
  const bool unsized = variable && !IsLongType(parameter.type) && parameter.type != ad::kGUID && parameter.size <= 0;
  if (!known || unsized) Raise(ControlError::kInvalidParamInfo, kParametersSource);
}

void RequireFitting(const Parameter& parameter) {
  if (parameter.type != ad::kVariant && !Coerce(parameter.value, parameter.type, parameter.size)) {
    Raise(ControlError::kDataConversion, kCommandSource);
  }
}

}  // namespace

Command::Command() : type_(ad::kCmdUnknown) {}
Command::~Command() = default;

void Command::SetActiveConnection(platform::Connection* connection) {
  if (connection == nullptr) {
    session_.reset();
    return;
  }
  auto* const ours = dynamic_cast<Connection*>(connection);
  if (ours == nullptr || ours->State() != ad::kStateOpen) Raise(ControlError::kInvalidConnection, kCommandSource);
  session_ = ours->SharedSession();
}

void Command::SetActiveConnection(const std::wstring& connectionString) {
  auto session = std::make_shared<Session>();
  session->Properties().connectionString = connectionString;
  session->Open({}, {});
  session_ = std::move(session);
}

bool Command::HasActiveConnection() { return session_ != nullptr; }

std::unique_ptr<Connection> Command::ActiveConnection() const {
  return session_ ? std::make_unique<Connection>(session_) : nullptr;
}

std::wstring Command::CommandText() const { return text_; }
void Command::SetCommandText(std::wstring_view text) { text_ = text; }
std::int32_t Command::CommandType() const { return type_; }
void Command::SetCommandType(std::int32_t type) { type_ = type; }
std::int32_t Command::CommandTimeout() const { return timeout_; }

void Command::SetCommandTimeout(std::int32_t seconds) {
  if (seconds < 0) Raise(ControlError::kInvalidArgument, kCommandSource);
  timeout_ = seconds;
}

bool Command::Prepared() const { return prepared_; }
void Command::SetPrepared(bool prepared) { prepared_ = prepared; }
std::wstring Command::Name() const { return name_; }
void Command::SetName(const std::wstring& name) { name_ = name; }

void Command::AppendParameter(const std::wstring& name, std::int32_t type, std::int32_t direction, std::int32_t size,
                              const Value& value) {
  const Parameter parameter{name, type, direction, size, value};
  RequireWellDefined(parameter);
  RequireFitting(parameter);
  parameters_.push_back(parameter);
}

std::int32_t Command::ParameterCount() const { return static_cast<std::int32_t>(parameters_.size()); }

const Parameter& Command::ParameterAt(std::int32_t index) const {
  if (index < 0 || index >= ParameterCount()) Raise(ControlError::kItemNotFound, kParametersSource);
  return parameters_[static_cast<std::size_t>(index)];
}

void Command::SetParameter(std::int32_t index, const Parameter& parameter) {
  ParameterAt(index);
  RequireWellDefined(parameter);
  RequireFitting(parameter);
  parameters_[static_cast<std::size_t>(index)] = parameter;
}

void Command::SetParameterValue(std::int32_t index, const Value& value) {
  Parameter changed = ParameterAt(index);
  changed.value = value;
  RequireFitting(changed);
  parameters_[static_cast<std::size_t>(index)] = std::move(changed);
}

void Command::RemoveParameter(std::int32_t index) {
  ParameterAt(index);
  parameters_.erase(parameters_.begin() + index);
}

Execution Command::Execute(std::int32_t options) {
  if (!session_ || !session_->IsOpen()) Raise(ControlError::kInvalidConnection, kCommandSource);
  Recordset::Query query;
  query.statement = StatementText(text_, options, type_, parameters_.size());
  query.parameters = parameters_;
  query.isCommand = true;
  query.timeout = timeout_;
  query.withoutRows = options != ad::kUnspecified && (options & ad::kExecuteNoRecords) != 0;
  return Recordset::Run(session_, query);
}

}  // namespace kodra::odbc
