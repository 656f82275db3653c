#include "data/select_builder.h"

#include <string_view>

namespace kodra::data {
namespace {

void AppendClause(std::wstring& statement, std::wstring_view keyword, std::wstring_view text) {
  if (text.empty()) return;
  statement += keyword;
  statement += text;
}

std::wstring_view Keyword(JoinKind kind) { return kind == JoinKind::kLeftOuter ? L" LEFT JOIN " : L" INNER JOIN "; }

}  // namespace

std::wstring SelectBuilder::SQL() const {
  std::wstring statement = L"SELECT " + columns_;
  AppendClause(statement, L" FROM ", from_);
  for (const auto& [index, join] : joins_) {
    AppendClause(statement, Keyword(join.kind), join.table);
    AppendClause(statement, L" ON ", join.condition);
  }
  AppendClause(statement, L" WHERE ", where_);
  AppendClause(statement, L" GROUP BY ", groupBy_);
  AppendClause(statement, L" ORDER BY ", orderBy_);
  return statement;
}

}  // namespace kodra::data
