// The statements that let a database user read what the reports read, and nothing more.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kodra::console::schema {

// One "GRANT SELECT ON DOCUMENTO TO …" per table; none for SQLite, which has no users. The name is put between the
// quotes of the database, exactly as it is written; on MySQL it may end with "@" and a host, which is otherwise "%".
// Raises UsageError for an empty name, and for one with a character that no user name needs, such as a quote.
// REQUIRES: a code of Databases().
std::vector<std::string> Grants(const std::string& user, std::int32_t databaseCode);

}  // namespace kodra::console::schema
