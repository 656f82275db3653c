// Assembles one SELECT statement from its parts, which come already in the dialect of the database.
//
//   SelectBuilder select;
//   select.SetTipoBanco(sql::tbOracle);
//   select.SetColumns(L"g.DESCR_CLASSE, sb.DESCR_GRUPO");
//   select.SetFrom(L"GRUPO sb");
//   select.AddJoin(0, JoinKind::kInner, L"CLASSE g", L"g.COD_CLASSE = sb.COD_CLASSE");
//   select.SQL();  // SELECT g.DESCR_CLASSE, sb.DESCR_GRUPO FROM GRUPO sb INNER JOIN CLASSE g ON g.COD_CLASSE = …
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace kodra::data {

enum class JoinKind : std::int32_t { kInner = 0, kLeftOuter = 1 };

class SelectBuilder {
 public:
  // The database code. Every system of the translator accepts the same join words, so no clause depends on it yet.
  void SetTipoBanco(std::int32_t code) { tipoBanco_ = code; }
  std::int32_t TipoBanco() const { return tipoBanco_; }

  const std::wstring& Columns() const { return columns_; }
  void SetColumns(std::wstring list) { columns_ = std::move(list); }
  // The main table with its alias; empty means no FROM clause.
  void SetFrom(std::wstring table) { from_ = std::move(table); }
  // The whole condition without its keyword; empty means no WHERE clause.
  const std::wstring& Where() const { return where_; }
  void SetWhere(std::wstring condition) { where_ = std::move(condition); }
  // A join at its 0-based position; joins stand in the statement by position. A second one at a position replaces the
  // first.
  void AddJoin(std::int32_t index, JoinKind kind, std::wstring table, std::wstring condition) {
    joins_[index] = {kind, std::move(table), std::move(condition)};
  }
  // The lists without their keywords; empty means no clause.
  void SetGroupBy(std::wstring list) { groupBy_ = std::move(list); }
  void SetOrderBy(std::wstring list) { orderBy_ = std::move(list); }

  // The statement: SELECT, FROM, joins, WHERE, GROUP BY, ORDER BY, one blank between clauses.
  std::wstring SQL() const;

 private:
  struct Join {
    JoinKind kind;
    std::wstring table;
    std::wstring condition;
  };

  std::int32_t tipoBanco_ = 0;
  std::wstring columns_;
  std::wstring from_;
  std::wstring where_;
  std::map<std::int32_t, Join> joins_;
  std::wstring groupBy_;
  std::wstring orderBy_;
};

}  // namespace kodra::data
