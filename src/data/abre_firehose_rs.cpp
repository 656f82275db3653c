#include "data/abre_firehose_rs.h"

#include "data/abre_cn.h"
#include "data/error_layer.h"
#include "values/numbers.h"
#include "values/password.h"

namespace kodra::data {
namespace {

namespace ad = platform::ad;

constexpr std::int32_t kCacheRows = 100;

std::unique_ptr<platform::Recordset> Open(const platform::RecordsetSource& source, const std::wstring& connectionString,
                                          std::int32_t options, std::unique_ptr<platform::Connection>& connection,
                                          platform::Surroundings& surroundings) {
  const bool isText = std::holds_alternative<std::wstring_view>(source);
  if (isText && !connection)
    connection = AbreCn(connectionString, ad::kUseServer, ad::kXactReadCommitted, surroundings);
  auto recordset = surroundings.NewRecordset();
  recordset->SetCursorLocation(ad::kUseServer);
  recordset->SetCacheSize(kCacheRows);
  if (isText)
    recordset->Open(source, connection.get(), ad::kOpenForwardOnly, ad::kLockReadOnly, options);
  else if (std::holds_alternative<platform::Command*>(source))
    recordset->Open(source, std::monostate{}, ad::kOpenForwardOnly, ad::kLockReadOnly, options);
  return recordset;
}

// The native code of the provider's first error; 0 when there is none or it cannot be read.
std::int32_t FirstNativeError(platform::Connection& connection) {
  std::int32_t native = 0;
  try {
    // One attempt for each error, always at the first: when one fails, the next may still read the code.
    for (std::int32_t left = connection.ErrorCount(); left > 0; --left) {
      try {
        native = connection.NativeError(0);
      } catch (...) {  // NOLINT(bugprone-empty-catch): see above
      }
    }
  } catch (...) {  // NOLINT(bugprone-empty-catch): the error being reported matters more
  }
  return native;
}

Erro WithNativeError(const Erro& caught, platform::Connection* connection) {
  const std::int32_t native = connection == nullptr ? 0 : FirstNativeError(*connection);
  if (native <= 0) return caught;
  return {caught.Number(), caught.Source(), caught.Description() + L" [N:" + values::NumberToText(native) + L"]"};
}

}  // namespace

std::unique_ptr<platform::Recordset> AbreFirehoseRs(const platform::RecordsetSource& source,
                                                    const std::wstring& connectionString, std::int32_t options,
                                                    std::unique_ptr<platform::Connection>& connection,
                                                    platform::Surroundings& surroundings) {
  try {
    return Open(source, connectionString, options, connection, surroundings);
  } catch (...) {
    throw Layered(WithNativeError(values::CurrentErro(connectionString), connection.get()), L"modADO.AbreFirehoseRs");
  }
}

}  // namespace kodra::data
