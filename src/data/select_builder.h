// Assembles one SELECT statement from its parts, which come already in the dialect of the database.
//
//   SelectBuilder select;
//   select.SetTipoBanco(sql::tbOracle);
//   select.SetColumns(L"g.DESCR_CLASSE, sb.DESCR_GRUPO");
//   select.SetFrom(L"GRUPO sb");
//   select.AddJoin(0, JoinKind::kInner, L"CLASSE g", L"g.COD_CLASSE = sb.COD_CLASSE");
//   select.AddToWhere({L"sb.COD_GRUPO = '", code, L"'"});
//   std::move(select).SQL();  // SELECT g.DESCR_CLASSE, sb.DESCR_GRUPO FROM GRUPO sb INNER JOIN CLASSE g ON …
//
// The statement stands whole in one text from the start. A part that is set or extended when nothing stands behind it
// is appended there; any other goes into its place. So a report that names its parts in the order of the statement
// writes it once, from start to end.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "text/join.h"

namespace kodra::data {

enum class JoinKind : std::int32_t { kInner = 0, kLeftOuter = 1 };

class SelectBuilder {
 public:
  SelectBuilder();

  // The database code. Every system of the translator accepts the same join words, so no clause depends on it yet.
  void SetTipoBanco(std::int32_t code) { tipoBanco_ = code; }
  std::int32_t TipoBanco() const { return tipoBanco_; }

  // Pieces and texts that are given must not look into this builder; what is read holds until the next change.
  std::wstring_view Columns() const { return TextOf(kColumns); }
  void SetColumns(text::Pieces list) { Set(kColumns, list); }
  void SetColumns(text::Piece list) { Set(kColumns, {list}); }
  void AddToColumns(text::Pieces more) { Add(kColumns, more); }
  void AddToColumns(text::Piece more) { Add(kColumns, {more}); }
  // The main table with its alias; empty means no FROM clause.
  void SetFrom(text::Piece table) { Set(kFrom, {table}); }
  // A join at its 0-based position; joins stand in the statement by position. A second one at a position replaces the
  // first.
  void AddJoin(std::int32_t index, JoinKind kind, text::Piece table, text::Piece condition) {
    AddJoin(index, kind, table, {condition});
  }
  void AddJoin(std::int32_t index, JoinKind kind, text::Piece table, text::Pieces condition);
  // The whole condition without its keyword; empty means no WHERE clause.
  std::wstring_view Where() const { return TextOf(kWhere); }
  void SetWhere(text::Pieces condition) { Set(kWhere, condition); }
  void SetWhere(text::Piece condition) { Set(kWhere, {condition}); }
  void AddToWhere(text::Pieces more) { Add(kWhere, more); }
  void AddToWhere(text::Piece more) { Add(kWhere, {more}); }
  // The lists without their keywords; empty means no clause.
  void SetGroupBy(text::Piece list) { Set(kGroupBy, {list}); }
  void SetOrderBy(text::Piece list) { Set(kOrderBy, {list}); }

  // The statement: SELECT, FROM, joins, WHERE, GROUP BY, ORDER BY, one blank between clauses.
  const std::wstring& SQL() const& { return statement_; }
  std::wstring SQL() && { return std::move(statement_); }

 private:
  // In the order of the statement.
  enum Clause : std::size_t { kColumns, kFrom, kJoins, kWhere, kGroupBy, kOrderBy, kClauses };
  struct Join {
    std::int32_t index;
    std::size_t length;
  };

  void Set(Clause clause, text::Pieces pieces);
  void Add(Clause clause, text::Pieces pieces);
  // Puts pieces in place of `length` characters at a position, within a clause.
  void Replace(Clause clause, std::size_t position, std::size_t length, text::Pieces pieces);
  // A clause without its keyword.
  std::wstring_view TextOf(Clause clause) const;
  // Where a clause ends.
  std::size_t EndOf(Clause clause) const;

  std::int32_t tipoBanco_ = 0;
  std::wstring statement_;
  // The lengths of the clauses with their keywords.
  std::array<std::size_t, kClauses> lengths_{};
  // By position, which is their order in the statement.
  std::vector<Join> joins_;
};

}  // namespace kodra::data
