// Assembles one SELECT statement from its parts, which come already in the dialect of the database.
//
//   SelectBuilder select;
//   select.SetTipoBanco(sql::tbOracle);
//   select.SetColumns(L"g.DESCR_CLASSE, sb.DESCR_GRUPO");
//   select.SetFrom(L"GRUPO sb");
//   select.AddJoin(0, JoinKind::kInner, L"CLASSE g", L"g.COD_CLASSE = sb.COD_CLASSE");
//   select.AddToWhere(L"sb.COD_GRUPO = '", code, L"'");
//   select.SQL();  // SELECT g.DESCR_CLASSE, sb.DESCR_GRUPO FROM GRUPO sb INNER JOIN CLASSE g ON …
//
// The statement stands whole in one text from the start. A part that is set or extended when nothing stands behind it
// is written there; any other goes into its place. So a report that names its parts in the order of the statement
// writes it once, from start to end.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "values/piece.h"
#include "values/writer.h"

namespace kodra::data {

enum class JoinKind : std::int32_t { kInner = 0, kLeftOuter = 1 };

class SelectBuilder {
 public:
  // How many joins a statement may have.
  static constexpr std::size_t kMostJoins = 16;

  constexpr SelectBuilder() : statement_(kKeywords[kColumns]) { starts_[kColumns] = 0; }

  // The database code. Every system of the translator accepts the same join words, so no clause depends on it yet.
  void SetTipoBanco(std::int32_t code) { tipoBanco_ = code; }
  std::int32_t TipoBanco() const { return tipoBanco_; }

  // Each part is given in the pieces that a values::Writer takes: literals, texts, fragments. They must not look into
  // this builder; what is read of it holds until the next change.
  std::wstring_view Columns() const { return TextOf(kColumns); }
  constexpr void SetColumns(const auto&... list) { Set(kColumns, list...); }
  constexpr void AddToColumns(const auto&... more) { Add(kColumns, more...); }
  // The main table with its alias; empty means no FROM clause.
  constexpr void SetFrom(const auto&... table) { Set(kFrom, table...); }
  // A join at its 0-based position; joins stand in the statement by position. A second one at a position replaces the
  // first. REQUIRES: at most kMostJoins positions.
  constexpr void AddJoin(std::int32_t index, JoinKind kind, values::Piece table, const auto&... condition) {
    const std::size_t start = statement_.size();
    WriteJoin(kind, table, condition...);
    EndJoin(index, start);
  }
  // The whole condition without its keyword; empty means no WHERE clause.
  std::wstring_view Where() const { return TextOf(kWhere); }
  constexpr void SetWhere(const auto&... condition) { Set(kWhere, condition...); }
  constexpr void AddToWhere(const auto&... more) { Add(kWhere, more...); }
  // The lists without their keywords; empty means no clause.
  constexpr void SetGroupBy(const auto&... list) { Set(kGroupBy, list...); }
  constexpr void SetOrderBy(const auto&... list) { Set(kOrderBy, list...); }

  // Another statement whose rows are united with those of this one; empty means none.
  constexpr void SetUnion(std::wstring_view statement) { Set(kUnion, statement); }

  // The statement: SELECT, FROM, joins, WHERE, GROUP BY, ORDER BY, UNION, one blank between clauses.
  constexpr std::wstring_view SQL() const { return statement_; }

 private:
  // In the order of the statement.
  enum Clause : std::size_t { kColumns, kFrom, kJoins, kWhere, kGroupBy, kOrderBy, kUnion, kClauses };
  static constexpr std::array<values::Piece, kClauses> kKeywords = {L"SELECT ",    L" FROM ",     L"",       L" WHERE ",
                                                                    L" GROUP BY ", L" ORDER BY ", L" UNION "};
  static constexpr values::Piece kInnerJoin = L" INNER JOIN ";
  static constexpr values::Piece kLeftJoin = L" LEFT JOIN ";
  struct Join {
    std::int32_t index;
    std::size_t length;
  };
  // Few statements are longer.
  static constexpr std::size_t kUsualLength = 1000;

  constexpr void Set(Clause clause, const auto&... pieces) {
    if (!TextOf(clause).empty()) Clear(clause);
    Add(clause, pieces...);
  }

  // Each part is written at the end of the statement, and taken from there to its place.
  struct Part {
    std::size_t start;
    std::size_t text;  // behind the keyword, if it needs one
  };

  constexpr void Add(Clause clause, const auto&... pieces) {
    const Part part = Begin(clause);
    statement_.Append(pieces...);
    End(clause, part);
  }

  constexpr Part Begin(Clause clause) {
    const std::size_t start = statement_.size();
    if (!Has(clause)) statement_.Append(kKeywords[clause]);
    return {start, statement_.size()};
  }

  // What says nothing makes no clause.
  constexpr void End(Clause clause, Part part) {
    if (statement_.size() == part.text)
      statement_.Truncate(part.start);
    else if (clause < last_)
      Take(part.start, clause, starts_[clause + 1]);
    else
      Open(clause, part.start);
  }

  constexpr void WriteJoin(JoinKind kind, values::Piece table, const auto&... condition) {
    if (!table.empty()) statement_.Append(kind == JoinKind::kLeftOuter ? kLeftJoin : kInnerJoin, table);
    const std::size_t before = statement_.size();
    statement_.Append(L" ON ");
    const std::size_t start = statement_.size();
    statement_.Append(condition...);
    if (statement_.size() == start) statement_.Truncate(before);
  }

  constexpr void EndJoin(std::int32_t index, std::size_t start) {
    const bool inOrder = last_ <= kJoins && (joinCount_ == 0 || joins_[joinCount_ - 1].index < index);
    Open(kJoins, start);
    if (inOrder)
      joins_[joinCount_++] = {index, statement_.size() - start};
    else
      PlaceJoin(index, start);
  }

  // Makes a clause the last one, unless it or a later one is.
  constexpr void Open(Clause clause, std::size_t start) {
    while (last_ < clause) {
      last_ = static_cast<Clause>(last_ + 1);
      starts_[last_] = start;
    }
  }
  // Empties a clause that has a text; the keyword of the columns always stands.
  void Clear(Clause clause);
  // Puts what was written from `start` on between other joins, or in place of one.
  void PlaceJoin(std::int32_t index, std::size_t start);
  // Takes what was written from `start` on to a position within a clause that others stand behind.
  void Take(std::size_t start, Clause clause, std::size_t position);
  // Takes characters out of a clause.
  void Erase(Clause clause, std::size_t position, std::size_t length);

  // A clause without its keyword.
  constexpr std::wstring_view TextOf(Clause clause) const {
    if (!Has(clause)) return {};
    const std::size_t start = starts_[clause] + kKeywords[clause].size();
    return statement_.View().substr(start, EndOf(clause) - start);
  }
  constexpr bool Has(Clause clause) const { return clause <= last_ && starts_[clause] != EndOf(clause); }
  // REQUIRES: clause <= last_.
  constexpr std::size_t EndOf(Clause clause) const { return clause < last_ ? starts_[clause + 1] : statement_.size(); }

  std::int32_t tipoBanco_ = 0;
  values::LocalText<kUsualLength> statement_;
  // Where each clause starts with its keyword, up to the last one; one that is not there starts where the next does.
  std::array<std::size_t, kClauses> starts_;
  Clause last_ = kColumns;
  // By position, which is their order in the statement.
  std::array<Join, kMostJoins> joins_;
  std::size_t joinCount_ = 0;
};

}  // namespace kodra::data
