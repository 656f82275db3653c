// Which database a connection string leads to.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "console/run/machine.h"
#include "platform/surroundings.h"

namespace kodra::console {

// The sibling component that knows the database of a connection string; every report needs it.
inline constexpr const wchar_t* kConnectionSibling = L"KodraConexao.StrCon";

struct DatabaseIdentity {
  // The code of the database, by which the reports choose a dialect; without one, why it is unknown.
  std::optional<std::int32_t> code;
  std::string unknownBecause;
  // The database's name on the command line and as people write it; empty for a code without dialect.
  std::string name;
  std::string title;
};

// What the sibling component says about the connection string.
DatabaseIdentity Identify(platform::Surroundings& surroundings, const std::wstring& connectionString);

// Opens a connection as a report does. Raises ConnectionError.
std::unique_ptr<platform::Connection> Connect(platform::Surroundings& surroundings,
                                              const std::wstring& connectionString);

// What answered.
struct DatabaseAnswer {
  DatabaseIdentity identity;
  // The name and the version that the database has for itself, and the name of the database in it: "MariaDB 10.11.6",
  // "acervo". Empty where its driver does not say.
  std::string product;
  std::string database;
  int milliseconds = 0;
};

// Connects and reads nothing but whether the database is one. Raises ConnectionError.
DatabaseAnswer AskDatabase(const std::wstring& connectionString, Machine& machine);

// The answer in lines for people.
std::string LinesOf(const DatabaseAnswer& answer);

}  // namespace kodra::console
