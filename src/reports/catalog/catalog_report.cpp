#include "reports/catalog/catalog_report.h"

namespace kodra::reports {

std::wstring CatalogReport::Statement(const CatalogList& list) const {
  data::SelectBuilder builder = NewBuilder();
  builder.SetColumns(list.columns);
  builder.SetFrom(list.from);
  for (std::int32_t index = 0; const CatalogJoin& join : list.joins)
    if (!join.table.empty()) builder.AddJoin(index++, join.kind, join.table, join.condition);
  builder.SetWhere(list.where);
  builder.SetOrderBy(list.orderBy);
  return std::move(builder).SQL();
}

frame::ReportRows CatalogReport::ListWhole(std::wstring_view method, const platform::AutomationObject* obj,
                                           const CatalogList& list) {
  return Report(method, [&] {
    InicializaPS(obj);
    return Open(Statement(list));
  });
}

}  // namespace kodra::reports
