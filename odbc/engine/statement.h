// A statement on a session: prepared, its parameters bound, run, its columns described.
//
// Owns the statement handle and the bound values. REQUIRES: destroyed before its session closes.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "odbc/engine/odbc_api.h"
#include "odbc/engine/session.h"
#include "odbc/engine/types.h"

namespace kodra::odbc {

class BoundParameter;

// A column as the driver describes it.
struct Column {
  FieldInfo info;
  SQLULEN size = 0;  // characters, bytes or digits, as the driver counts for the type; 0 when it does not know
};

struct StatementLimits {
  std::int32_t timeout = 0;  // seconds; 0 keeps the driver's
  std::int64_t rows = 0;     // 0 is unlimited
};

class Statement {
 public:
  // Raises 3421 for a parameter that its type cannot hold, and what the driver raises while preparing.
  Statement(Session& session, const std::wstring& text, const std::vector<Parameter>& parameters,
            const StatementLimits& limits);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  // Runs it, again when it has run before.
  void Execute();
  // Reads the next rows into the bound columns.
  SQLRETURN Fetch();
  // The columns of the statement that was run; empty when it returns no rows.
  const std::vector<Column>& Columns() const { return columns_; }
  // Rows changed; -1 when the driver does not say.
  std::int64_t RowsAffected() const { return rowsAffected_; }

  SQLHSTMT Handle() const { return handle_; }
  Session& Owner() const { return session_; }
  [[noreturn]] void Fail(Stage stage) const;

 private:
  struct ProbeTag {};
  Statement(ProbeTag, const Statement& original);

  void Prepare();
  SQLRETURN Start();
  void BindParameters();
  void Describe();
  void DescribeExpressions();

  Session& session_;
  SQLHSTMT handle_ = nullptr;
  std::wstring text_;
  std::vector<Parameter> parameters_;
  std::vector<std::unique_ptr<BoundParameter>> bound_;
  std::vector<Column> columns_;
  std::int64_t rowsAffected_ = -1;
  bool executed_ = false;
};

}  // namespace kodra::odbc
