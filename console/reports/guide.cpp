#include "console/reports/guide.h"

#include <algorithm>

#include "console/reports/families.h"
#include "values/upper.h"
#include "values/utf8.h"

namespace kodra::console::guide {

namespace {

struct FamilyEntries {
  std::string_view title;
  std::vector<Report> (*entries)();
};

constexpr FamilyEntries kFamilies[] = {
    {"Cadastros", &Catalogs},
    {"Documentos, solicitações e eventos", &Documents},
    {"Etiquetas de módulos", &ModuleLabels},
    {"Módulos", &ModuleListings},
    {"Contêineres", &Containers},
    {"Estatísticas", &Statistics},
};

struct Guide {
  std::vector<Report> reports;
  std::vector<Family> families;
};

const Guide& WholeGuide() {
  static const Guide guide = [] {
    Guide all;
    std::vector<std::size_t> ends;
    for (const FamilyEntries& family : kFamilies) {
      const std::vector<Report> entries = family.entries();
      all.reports.insert(all.reports.end(), entries.begin(), entries.end());
      ends.push_back(all.reports.size());
    }
    std::size_t begin = 0;
    for (const FamilyEntries& family : kFamilies) {
      const std::size_t end = ends[all.families.size()];
      all.families.push_back({family.title, std::span<const Report>(all.reports).subspan(begin, end - begin)});
      begin = end;
    }
    return all;
  }();
  return guide;
}

}  // namespace

const std::vector<Report>& Reports() { return WholeGuide().reports; }

const std::vector<Family>& Families() { return WholeGuide().families; }

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
