#include "odbc/engine/errors.h"

namespace kodra::odbc {
namespace {

std::wstring_view Text(ControlError error) {
  switch (error) {
    case ControlError::kInvalidArgument:
      return L"Arguments are of the wrong type, are out of acceptable range, or are in conflict with one another.";
    case ControlError::kNoCurrentRecord:
      return L"Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a "
             L"current record.";
    case ControlError::kIllegalOperation:
      return L"Operation is not allowed in this context.";
    case ControlError::kInTransaction:
      return L"Connection object cannot be explicitly closed while in a transaction.";
    case ControlError::kFeatureNotAvailable:
      return L"Current Recordset does not support updating. This may be a limitation of the provider, or of the "
             L"selected locktype.";
    case ControlError::kItemNotFound:
      return L"Item cannot be found in the collection corresponding to the requested name or ordinal.";
    case ControlError::kObjectInCollection:
      return L"Object is already in collection. Cannot append.";
    case ControlError::kDataConversion:
      return L"Application uses a value of the wrong type for the current operation.";
    case ControlError::kObjectClosed:
      return L"Operation is not allowed when the object is closed.";
    case ControlError::kObjectOpen:
      return L"Operation is not allowed when the object is open.";
    case ControlError::kBoundToCommand:
      return L"Cannot change the ActiveConnection property of a Recordset object which has a Command object as its "
             L"source.";
    case ControlError::kInvalidParamInfo:
      return L"Parameter object is improperly defined. Inconsistent or incomplete information was provided.";
    case ControlError::kInvalidConnection:
      return L"The connection cannot be used to perform this operation. It is either closed or invalid in this "
             L"context.";
    case ControlError::kOperationCancelled:
      return L"Operation has been cancelled by the user.";
  }
  return L"";
}

struct Fault {
  std::wstring_view source;
  std::wstring_view text;
};

Fault Describe(ProviderFault fault) {
  switch (fault) {
    case ProviderFault::kNoCommandText:
      return {kProviderSource, L"Command text was not set for the command object."};
    case ProviderFault::kParameterMissing:
      return {kProviderSource, L"No value given for one or more required parameters."};
    case ProviderFault::kMultipleStep:
      return {kCursorEngineSource, L"Multiple-step operation generated errors. Check each status value."};
    case ProviderFault::kCannotFetchBackward:
      return {kProviderSource, L"Rowset does not support fetching backward."};
    case ProviderFault::kBadConnectionString:
      return {kServiceComponentsSource,
              L"Format of the initialization string does not conform to the OLE DB specification."};
    case ProviderFault::kNoTransaction:
      return {kProviderSource, L"No transaction is active."};
    case ProviderFault::kTransactionActive:
      return {kProviderSource, L"Only one transaction can be active on this session."};
  }
  return {kProviderSource, L""};
}

}  // namespace

void Raise(ControlError error, std::wstring_view source) {
  throw ForeignErro(static_cast<std::int32_t>(error), std::wstring(source), std::wstring(Text(error)));
}

void Raise(ProviderFault fault) {
  const Fault what = Describe(fault);
  throw ForeignErro(static_cast<std::int32_t>(fault), std::wstring(what.source), std::wstring(what.text));
}

std::int32_t HresultOfSqlState(std::wstring_view sqlState, Stage stage) {
  const auto starts = [&](std::wstring_view prefix) { return sqlState.substr(0, prefix.size()) == prefix; };
  if (starts(L"42S02")) return static_cast<std::int32_t>(0x80040E37U);  // table not found
  if (starts(L"28000")) return static_cast<std::int32_t>(0x80040E4DU);  // authentication failed
  // A login that is refused because of its database also has 42000. Nothing was compiled yet, so it is a plain failure.
  if (starts(L"42") && stage != Stage::kConnect)
    return static_cast<std::int32_t>(0x80040E14U);  // errors in the command
  if (starts(L"HY000") && stage == Stage::kPrepare) return static_cast<std::int32_t>(0x80040E14U);
  return static_cast<std::int32_t>(0x80004005U);
}

}  // namespace kodra::odbc
