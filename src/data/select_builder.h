// Assembles one SELECT statement from its parts, for reports whose columns or joins depend on what the client asks for.
//
//   SelectBuilder select;
//   select.SetColumns(L"g.DESCR_CLASSE, sb.DESCR_GRUPO");
//   select.SetFrom(L"GRUPO sb");
//   select.AddJoin(0, JoinKind::kInner, L"CLASSE g", L"g.COD_CLASSE = sb.COD_CLASSE");
//   select.SetWhere(select.Where() + L"sb.COD_GRUPO = '" + code + L"'");
//   select.SQL();  // SELECT g.DESCR_CLASSE, sb.DESCR_GRUPO FROM GRUPO sb INNER JOIN CLASSE g ON …
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace kodra::data {

enum class JoinKind : std::int32_t { kInner = 0, kLeftOuter = 1 };

// The parts are texts in the dialect of the database; the builder does not inspect them. Lists and conditions are
// passed without their keyword; an empty one makes no clause.
class SelectBuilder {
 public:
  const std::wstring& Columns() const { return columns_; }
  void SetColumns(std::wstring list) { columns_ = std::move(list); }
  // The main table with its alias.
  void SetFrom(std::wstring table) { from_ = std::move(table); }
  // A join at its position from 0 on. The statement contains the joins by position, whatever the order of the calls. A
  // second one at a position replaces the first.
  void AddJoin(std::int32_t index, JoinKind kind, const std::wstring& table, const std::wstring& condition);
  const std::wstring& Where() const { return where_; }
  void SetWhere(std::wstring condition) { where_ = std::move(condition); }
  void SetGroupBy(std::wstring list) { groupBy_ = std::move(list); }
  void SetOrderBy(std::wstring list) { orderBy_ = std::move(list); }

  // The statement: SELECT, FROM, joins, WHERE, GROUP BY, ORDER BY, one blank between clauses.
  std::wstring SQL() const;

 private:
  std::wstring columns_;
  std::wstring from_;
  std::map<std::int32_t, std::wstring> joins_;
  std::wstring where_;
  std::wstring groupBy_;
  std::wstring orderBy_;
};

}  // namespace kodra::data
