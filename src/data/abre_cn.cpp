#include "data/abre_cn.h"

#include <algorithm>
#include <utility>

#include "data/connection_string.h"
#include "data/error_layer.h"
#include "values/password.h"

namespace kodra::data {
namespace {

namespace ad = platform::ad;

// Sets the session of an Oracle client to Brazilian Portuguese; a server that refuses is used unchanged.
void LocaliseOracleSession(platform::Connection& connection) {
  try {
    if (connection.State() != ad::kStateOpen) return;
    connection.Execute(
        L"alter session set "
        L"nls_language='brazilian portuguese' "
        L"nls_territory='brazil'",
        ad::kUnspecified);
  } catch (...) {  // NOLINT(bugprone-empty-catch): see above
  }
}

std::unique_ptr<platform::Connection> Open(std::wstring connectionString, std::int32_t cursorLocation,
                                           std::int32_t isolationLevel, platform::Surroundings& surroundings) {
  const DatabaseSystem system = PreAbreCn(connectionString, surroundings);
  connectionString = ReplaceAll(std::move(connectionString), L";;", L";");
  connectionString = ReplaceAll(std::move(connectionString), L"; ;", L";");

  auto connection = surroundings.NewConnection();
  connection->SetConnectionString(connectionString);
  connection->SetCursorLocation(std::max(cursorLocation, ad::kUseServer));
  connection->SetIsolationLevel(isolationLevel == 0 ? ad::kXactReadCommitted : isolationLevel);
  connection->Open(L"", L"", ad::kUnspecified);
  if (system == DatabaseSystem::kOracle) LocaliseOracleSession(*connection);
  return connection;
}

}  // namespace

std::unique_ptr<platform::Connection> AbreCn(const std::wstring& connectionString, std::int32_t cursorLocation,
                                             std::int32_t isolationLevel, platform::Surroundings& surroundings) {
  if (connectionString.empty()) return nullptr;
  try {
    return Open(connectionString, cursorLocation, isolationLevel, surroundings);
  } catch (...) {
    throw Layered(values::CurrentErro(connectionString), L"modADO.AbreCn");
  }
}

}  // namespace kodra::data
