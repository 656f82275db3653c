// The databases that a report may be called with, and the calls that reach them, as lines of the journal.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "sql/tipo_banco.h"
#include "tests/recorder/fake_surroundings.h"

namespace kodra::reports {

using sql::tbDB2;
using sql::tbMySQL;
using sql::tbOracle;
using sql::tbOracleAlt;
using sql::tbOther4;
using sql::tbSQLite;
using sql::tbSQLServer;

inline constexpr std::int32_t kEveryCode[] = {tbOracle, tbSQLServer, tbMySQL, tbOther4, tbOracleAlt, tbDB2, tbSQLite};
inline constexpr std::int32_t kCodesWithDialect[] = {tbOracle, tbSQLServer, tbMySQL, tbOracleAlt, tbDB2, tbSQLite};

using CallLines = std::vector<std::string>;
// The lines as Journal::Calls returns them.
std::string All(std::initializer_list<CallLines> parts);
// Appends lines to others.
void Append(CallLines& lines, const CallLines& more);

std::string Quoted(std::string_view text);
// A text with every occurrence of a word replaced by another.
std::string Replaced(std::string text, std::string_view word, std::string_view replacement);
bool StartsWithAny(std::string_view text, std::initializer_list<std::string_view> starts);

// A database as a client connects to it.
struct Database {
  std::int32_t code;
  std::string connectionString;
  // The string that the connection is opened with.
  std::string prepared;
  // The calls before the connection is made and after it is open.
  CallLines before = {};
  CallLines after = {};
};

// One for each code, in order.
const std::vector<Database>& Databases();
const Database& DatabaseOf(std::int32_t code);
// Makes the connection component answer with that code, and the file of the SQLite database exist.
void Install(const Database& database, recorder::FakeSurroundings& around);

// The calls up to the release of the connection component, and those that open a connection.
CallLines InitialisationLines(const Database& database);
CallLines OpeningLines(const Database& database);
// The calls of AbreFirehoseRs that open a statement, without the ends of its objects: the connection and the recordset
// have those numbers.
CallLines OpeningRows(const Database& database, std::string_view statement, int connection, int recordset);
// All calls of a report that makes those calls before it connects, and opens that statement by AbreFirehoseRs.
std::string ListingCalls(const Database& database, std::string_view statement, const CallLines& before = {});

}  // namespace kodra::reports
