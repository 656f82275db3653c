// What the component does to a client's connection string before a connection is opened.
//
// A connection string is never parsed into a table: every test is a search in the whole text, regardless of letter
// case, and every addition goes to the end. So a word in a data-source name counts as much as a provider's name does.
#pragma once

#include <string>
#include <string_view>

#include "platform/surroundings.h"

namespace kodra::data {

// The systems for which a connection string is prepared in a particular way. The first that one of its words names:
// - Oracle: "ORACLE", "MSDAORA";
// - DB2 and iSeries: "IBMDADB2", "ISERIES", "IBM I", "IBM DB2";
// - SQLite: "SQLITE".
enum class DatabaseSystem { kOther, kOracle, kDB2, kSQLite };

// Rewrites a connection string in place for its database system:
// - all: a final ";" and "Persist Security Info";
// - Oracle: connection-pool sizes, and the environment variable NLS_LANG of the process for the client libraries;
// - DB2 and iSeries: the provider's warning list and patch;
// - SQLite: the database file must exist and contain at least one byte, then text encoding and foreign keys.
// Raises kErrBase + 1 (file not found) and kErrBase + 2 (file damaged), source "modADO::PreAbreCn".
// Returns the system that it prepared the string for.
DatabaseSystem PreAbreCn(std::wstring& connectionString, platform::Surroundings& surroundings);

// The value of the first pair whose text contains the key, untrimmed; empty when there is none. A key is found inside
// a longer one too. A match beyond position 32767 raises RuntimeError::kOverflow.
// REQUIRES: the key is not empty and has no ";".
std::wstring ReadKey(std::wstring_view connectionString, std::wstring_view key);

// Replaces every match of `find`, once from left to right: a match that a replacement creates stays.
// REQUIRES: `find` is not empty.
std::wstring ReplaceAll(std::wstring text, std::wstring_view find, std::wstring_view replacement);

}  // namespace kodra::data
