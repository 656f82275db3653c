#include "console/check/database_identity.h"

#include <fmt/format.h>
#include <algorithm>
#include <cmath>

#include "console/check/odbc_inspector.h"
#include "console/check/schema_probe.h"
#include "console/command_line/connection_error.h"
#include "console/command_line/databases.h"
#include "console/run/progress.h"
#include "data/abre_cn.h"
#include "sql/tipo_banco.h"
#include "values/convert.h"
#include "values/password.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::ToUtf8;

constexpr double kMillisecondsPerSecond = 1000;

std::string DialectOf(const DatabaseIdentity& identity) {
  if (!identity.code) return "não identificado (" + identity.unknownBecause + ")";
  if (!identity.title.empty()) return identity.title;
  return fmt::format("nenhum: os relatórios que usam datas ou conversões dão erro neste banco (tipo {})",
                     *identity.code);
}

}  // namespace

DatabaseIdentity Identify(platform::Surroundings& surroundings, const std::wstring& connectionString) {
  DatabaseIdentity identity;
  try {
    const ObjectRef sibling = surroundings.CreateObject(kConnectionSibling);
    sibling->Let(L"StrCon", connectionString);
    identity.code = values::ToInt32(sibling->Get(L"TipoBanco"));
  } catch (const Erro& error) {
    identity.unknownBecause =
        ToUtf8(kConnectionSibling) + ": " + ToUtf8(values::HidePassword(error.Description(), connectionString));
    return identity;
  }
  const std::int32_t code = *identity.code == sql::tbOracleAlt ? sql::tbOracle : *identity.code;
  const auto known = std::ranges::find(Databases(), code, &Database::code);
  if (known == Databases().end()) return identity;
  identity.name = known->name;
  identity.title = known->title;
  return identity;
}

std::unique_ptr<platform::Connection> Connect(platform::Surroundings& surroundings,
                                              const std::wstring& connectionString) {
  try {
    return data::AbreCn(connectionString, platform::ad::kUseServer, 0, surroundings);
  } catch (const Erro& error) {
    throw ConnectionError(error);
  }
}

DatabaseAnswer AskDatabase(const std::wstring& connectionString, Machine& machine) {
  platform::Surroundings& surroundings = machine.Around();
  DatabaseAnswer answer;
  const double start = SteadySeconds();
  const std::unique_ptr<platform::Connection> connection = Connect(surroundings, connectionString);
  answer.identity = Identify(surroundings, connectionString);
  // SQLite opens any file, and looks at it for the first statement.
  const TableNeed need = {.table = L"PARAMETRO", .columns = {L"EMPRESA"}};
  SchemaProbe probe(surroundings, *connection, answer.identity.code.value_or(sql::tbOther4));
  probe.Expect(need);
  probe.ProblemsWith(need);
  answer.milliseconds = static_cast<int>(std::lround((SteadySeconds() - start) * kMillisecondsPerSecond));
  try {
    if (const auto inspector = OdbcInspector::Open(connectionString)) {
      answer.product = inspector->Product();
      answer.database = inspector->DatabaseName();
    }
  } catch (const Erro&) {
    // The reports need no second connection.
  }
  return answer;
}

std::string LinesOf(const DatabaseAnswer& answer) {
  std::string lines = fmt::format("O banco respondeu em {} ms\n", answer.milliseconds);
  if (!answer.product.empty()) lines += fmt::format("  produto  {}\n", answer.product);
  if (!answer.database.empty()) lines += fmt::format("  banco    {}\n", answer.database);
  return lines + fmt::format("  dialeto  {}\n", DialectOf(answer.identity));
}

}  // namespace kodra::console
