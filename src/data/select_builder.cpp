#include "data/select_builder.h"

namespace kodra::data {
namespace {

std::wstring Clause(const wchar_t* keyword, const std::wstring& text) {
  return text.empty() ? std::wstring() : keyword + text;
}

}  // namespace

void SelectBuilder::AddJoin(std::int32_t index, JoinKind kind, const std::wstring& table,
                            const std::wstring& condition) {
  const wchar_t* const keyword = kind == JoinKind::kLeftOuter ? L" LEFT JOIN " : L" INNER JOIN ";
  joins_[index] = keyword + table + L" ON " + condition;
}

std::wstring SelectBuilder::SQL() const {
  std::wstring statement = L"SELECT " + columns_ + Clause(L" FROM ", from_);
  for (const auto& [index, join] : joins_) statement += join;
  return statement + Clause(L" WHERE ", where_) + Clause(L" GROUP BY ", groupBy_) + Clause(L" ORDER BY ", orderBy_);
}

}  // namespace kodra::data
