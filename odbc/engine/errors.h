// The errors that ADO, its cursor engine and its ODBC provider raise, with their numbers, sources and English texts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "values/erro.h"

namespace kodra::odbc {

// The source that an error names.
inline constexpr std::wstring_view kConnectionSource = L"ADODB.Connection";
inline constexpr std::wstring_view kCommandSource = L"ADODB.Command";
inline constexpr std::wstring_view kRecordsetSource = L"ADODB.Recordset";
inline constexpr std::wstring_view kFieldSource = L"ADODB.Field";
inline constexpr std::wstring_view kFieldsSource = L"ADODB.Fields";
inline constexpr std::wstring_view kParametersSource = L"ADODB.Parameters";
inline constexpr std::wstring_view kCursorEngineSource = L"Microsoft Cursor Engine";
inline constexpr std::wstring_view kProviderSource = L"Microsoft OLE DB Provider for ODBC Drivers";
inline constexpr std::wstring_view kServiceComponentsSource = L"Microsoft OLE DB Service Components";

// ADO's own errors, by the number that a client sees.
enum class ControlError : std::int32_t {
  kInvalidArgument = 3001,
  kNoCurrentRecord = 3021,
  kIllegalOperation = 3219,
  kInTransaction = 3246,
  kFeatureNotAvailable = 3251,
  kItemNotFound = 3265,
  kObjectInCollection = 3367,
  kDataConversion = 3421,
  kObjectClosed = 3704,
  kObjectOpen = 3705,
  kBoundToCommand = 3707,
  kInvalidParamInfo = 3708,
  kInvalidConnection = 3709,
  kOperationCancelled = 3712,
};

// Errors of the provider and the cursor engine that have no message from a driver.
enum class ProviderFault : std::uint32_t {
  kNoCommandText = 0x80040E0C,
  kParameterMissing = 0x80040E10,
  kMultipleStep = 0x80040E21,
  kCannotFetchBackward = 0x80040E24,
  kBadConnectionString = 0x80040E73,
  kNoTransaction = 0x8004D00E,
  kTransactionActive = 0x8004D013,
};

// The step that failed. With the SQLSTATE it decides the HRESULT of a diagnostic.
enum class Stage { kConnect, kPrepare, kExecute, kFetch };

[[noreturn]] void Raise(ControlError error, std::wstring_view source);
[[noreturn]] void Raise(ProviderFault fault);

// The HRESULT of an SQLSTATE, as the provider maps it.
std::int32_t HresultOfSqlState(std::wstring_view sqlState, Stage stage);

}  // namespace kodra::odbc
