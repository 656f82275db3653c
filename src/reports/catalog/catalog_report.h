// What the catalog listings share: one SELECT over a register, opened as it is.
#pragma once

#include <string_view>

#include "data/compiled_statement.h"
#include "frame/report_class.h"

namespace kodra::reports {

struct CatalogJoin {
  data::JoinKind kind = data::JoinKind::kInner;
  std::wstring_view table = {};
  std::wstring_view condition = {};
};

// The parts of a listing's statement; a part left out has no clause. Joins stand in their order.
struct CatalogList {
  std::wstring_view columns = {};
  std::wstring_view from;
  CatalogJoin joins[4] = {};
  std::wstring_view where = {};
  std::wstring_view orderBy;
};

// Sets the parts of a list.
template <const CatalogList& kList>
constexpr void SelectList(data::SelectBuilder& builder) {
  builder.SetColumns(kList.columns);
  builder.SetFrom(kList.from);
  for (std::int32_t index = 0; const CatalogJoin& join : kList.joins)
    if (!join.table.empty()) builder.AddJoin(index++, join.kind, join.table, join.condition);
  builder.SetWhere(kList.where);
  builder.SetOrderBy(kList.orderBy);
}

// The statement of a list.
template <const CatalogList& kList>
inline constexpr std::wstring_view kListStatement = data::kCompiledStatement<SelectList<kList>>;

class CatalogReport : public frame::ReportClass {
 protected:
  using ReportClass::ReportClass;

  // A report method that lists a register whole: of the parameter object only its presence is checked.
  frame::ReportRows ListWhole(std::wstring_view method, const AutomationObject* obj, std::wstring_view statement);
};

}  // namespace kodra::reports
