// Writes the sample archive for an engine, row by row: memory does not grow with its size.
#pragma once

#include <ostream>
#include <string>

#include "testbed/archive/generator.h"

namespace kodra::testbed {

// Writes an SQLite database file at a path (UTF-8), in one transaction. An existing file is replaced only
// when the new one is complete. Raises std::runtime_error with the engine's message.
void WriteSqlite(const std::string& path, Size size);

// Writes an SQL script in UTF-8 that drops, creates and fills the tables in the client's current database: the input of
// the mariadb and mysql client programs. Raises std::runtime_error when the stream fails.
void WriteMySql(std::ostream& script, Size size);

}  // namespace kodra::testbed
