#include "console/reports/guide.h"

#include <algorithm>

#include "console/reports/families.h"
#include "values/upper.h"
#include "values/utf8.h"

namespace kodra::console::guide {

const std::vector<Report>& Reports() {
  static const std::vector<Report> reports = [] {
    std::vector<Report> all;
    for (const auto& family : {Catalogs(), Documents(), ModuleLabels(), ModuleListings(), Containers(), Statistics()})
      all.insert(all.end(), family.begin(), family.end());
    return all;
  }();
  return reports;
}

const Report* Find(std::wstring_view className, std::wstring_view method) {
  static const std::vector<Report> own = OwnListings();
  for (const std::vector<Report>* all : {&Reports(), &own}) {
    const auto found = std::ranges::find_if(*all, [&](const Report& report) {
      return std::ranges::equal(report.className, className) && std::ranges::equal(report.method, method);
    });
    if (found != all->end()) return &*found;
  }
  return nullptr;
}

const Report& About(const reports::ReportMethod& method) { return *Find(method.className, method.method); }

const Column* FindColumn(const Report& report, std::wstring_view name) {
  const auto found = std::ranges::find_if(report.columns, [&](const Column& column) {
    return values::EqualIgnoringCase(values::FromUtf8(column.name), name);
  });
  return found == report.columns.end() ? nullptr : &*found;
}

bool IsOddOnSqlite(const Report& report) {
  return std::ranges::any_of(report.oddities,
                             [](const Oddity& oddity) { return oddity.entry.starts_with("On SQLite "); });
}

std::vector<const Column*> ColumnsIn(Place place, const Report& report) {
  std::vector<const Column*> columns;
  for (const Column& column : report.columns)
    if (column.place == place) columns.push_back(&column);
  const auto& first = report.page.first;
  std::ranges::stable_sort(columns, {}, [&](const Column* column) { return std::ranges::find(first, column->name); });
  return columns;
}

}  // namespace kodra::console::guide
