// What `kodrarpt verifica` finds in a database, as data.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "console/check/database_identity.h"
#include "console/check/schema_probe.h"
#include "console/run/machine.h"
#include "console/schema/indexes.h"
#include "console/schema/limits.h"

namespace kodra::console {

struct ReportFinding {
  std::string name;
  // What is missing, forbidden or of the wrong type.
  std::vector<Problem> problems;
  // What the database answered to statements that it refuses although the report has no problems; each answer once.
  std::vector<std::string> refusals;
  // What the report cannot do on this database, although nothing is wrong.
  std::vector<const schema::Limit*> limits;

  bool IsWrong() const { return !problems.empty() || !refusals.empty(); }
  bool AlwaysFails() const;
};

// A column that may contain texts for which a report fails.
struct LongColumn {
  std::string name;  // "OPERADOR.NOME_COMPLETO"
  std::int64_t length;
  std::int64_t longest;
};

struct MissingIndex {
  const schema::Index* index;
  std::int64_t rows;  // of its table
  // Those of its reports that work on this database.
  std::vector<std::string> reports;
};

struct Findings {
  DatabaseIdentity database;
  std::vector<ReportFinding> reports;
  // The database's message about each table or column that it refused.
  std::map<std::string, std::string> answers;
  std::vector<LongColumn> longColumns;
  std::vector<MissingIndex> missingIndexes;
  // What could not be checked, and why, in sentences without a full stop.
  std::vector<std::string> unchecked;

  bool IsWrong() const;
};

// Checks the database of a connection string. Changes nothing in it. Raises ConnectionError if it cannot be reached.
Findings CheckDatabase(const std::wstring& connectionString, Machine& machine);

// The findings for people, and for programs: one JSON object in one line.
void WriteText(const Findings& findings, std::ostream& out);
void WriteJson(const Findings& findings, std::ostream& out);

}  // namespace kodra::console
