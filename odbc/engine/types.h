// The plain data of ADO's contract over ODBC, with ADO's constants for it.
#pragma once

#include <cstdint>
#include <string>

#include "platform/ado.h"
#include "values/value.h"

namespace kodra::platform::ad {
// More of ADO's constants, by ADO's names: those that only this folder and the code that wraps it need.
inline constexpr std::int32_t kLockBatchOptimistic = 4;
inline constexpr std::int32_t kCmdTable = 2;
inline constexpr std::int32_t kCmdStoredProc = 4;
inline constexpr std::int32_t kCmdUnknown = 8;
inline constexpr std::int32_t kCmdTableDirect = 512;
inline constexpr std::int32_t kExecuteNoRecords = 128;
inline constexpr std::int32_t kXactReadUncommitted = 256;
inline constexpr std::int32_t kXactRepeatableRead = 65536;
inline constexpr std::int32_t kXactSerializable = 1048576;

// Seconds that a command may take, when nobody sets them.
inline constexpr std::int32_t kDefaultTimeout = 30;

inline constexpr std::int32_t kEditNone = 0;
inline constexpr std::int32_t kEditInProgress = 1;
inline constexpr std::int32_t kEditAdd = 2;
inline constexpr std::int32_t kPosUnknown = -1;
inline constexpr std::int32_t kPosBOF = -2;
inline constexpr std::int32_t kPosEOF = -3;

inline constexpr std::int32_t kEmpty = 0;
inline constexpr std::int32_t kSmallInt = 2;
inline constexpr std::int32_t kInteger = 3;
inline constexpr std::int32_t kSingle = 4;
inline constexpr std::int32_t kDouble = 5;
inline constexpr std::int32_t kCurrency = 6;
inline constexpr std::int32_t kDate = 7;
inline constexpr std::int32_t kBSTR = 8;
inline constexpr std::int32_t kVariant = 12;
inline constexpr std::int32_t kDecimal = 14;
inline constexpr std::int32_t kTinyInt = 16;
inline constexpr std::int32_t kUnsignedTinyInt = 17;
inline constexpr std::int32_t kUnsignedSmallInt = 18;
inline constexpr std::int32_t kUnsignedInt = 19;
inline constexpr std::int32_t kBigInt = 20;
inline constexpr std::int32_t kUnsignedBigInt = 21;
inline constexpr std::int32_t kGUID = 72;
inline constexpr std::int32_t kBinary = 128;
inline constexpr std::int32_t kChar = 129;
inline constexpr std::int32_t kWChar = 130;
inline constexpr std::int32_t kNumeric = 131;
inline constexpr std::int32_t kDBTime = 134;
inline constexpr std::int32_t kLongVarChar = 201;
inline constexpr std::int32_t kVarWChar = 202;
inline constexpr std::int32_t kLongVarWChar = 203;
inline constexpr std::int32_t kVarBinary = 204;
inline constexpr std::int32_t kLongVarBinary = 205;

// FieldAttributeEnum.
inline constexpr std::int32_t kFldUpdatable = 0x4;
inline constexpr std::int32_t kFldUnknownUpdatable = 0x8;
inline constexpr std::int32_t kFldFixed = 0x10;
inline constexpr std::int32_t kFldIsNullable = 0x20;
inline constexpr std::int32_t kFldMayBeNull = 0x40;
inline constexpr std::int32_t kFldLong = 0x80;
}  // namespace kodra::platform::ad

namespace kodra::odbc {

namespace ad = platform::ad;

// One member of a connection's Errors collection, with the driver's text.
struct ProviderError {
  std::int32_t number = 0;  // an HRESULT
  std::wstring source;
  std::wstring description;
  std::wstring sqlState;  // five characters
  std::int32_t nativeError = 0;
};

// The data of a recordset's field besides its value.
struct FieldInfo {
  std::wstring name;
  std::int32_t type = 0;         // DataTypeEnum
  std::int64_t definedSize = 0;  // characters for text, bytes for everything else
  std::int32_t attributes = 0;   // FieldAttributeEnum
  std::int32_t precision = 255;  // 255 where it has no meaning
  std::int32_t numericScale = 255;
};

// A parameter of a command. Parameters are bound by position; the name is only for finding one.
struct Parameter {
  std::wstring name;
  std::int32_t type = ad::kEmpty;
  std::int32_t direction = ad::kParamInput;  // ParameterDirectionEnum; only input is bound
  std::int32_t size = 0;                     // characters
  Value value;
};

}  // namespace kodra::odbc
