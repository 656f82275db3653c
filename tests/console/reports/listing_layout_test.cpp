// The layouts of listings against the guide's columns: no column of a report is forgotten, none is made up.
#include <gtest/gtest.h>

#include <set>

#include "console/reports/guide.h"
#include "console/reports/listing_layout.h"
#include "values/utf8.h"

namespace kodra::console::html {
namespace {

using Names = std::set<std::wstring>;

// The columns that a layout names; those of a joined text by their numbers.
Names NamedBy(const ListingLayout& layout, const Names& known) {
  Names named;
  const auto add = [&](std::wstring_view column) {
    if (column.empty()) return;
    if (!column.ends_with(L'*')) {
      named.emplace(column);
      return;
    }
    column.remove_suffix(1);
    for (int i = 1; known.contains(std::wstring(column) + std::to_wstring(i)); ++i)
      named.insert(std::wstring(column) + std::to_wstring(i));
  };
  add(layout.titleColumn);
  for (const auto* columns : {&layout.facts, &layout.columns, &layout.details}) {
    for (const LayoutColumn& column : *columns) {
      add(column.column);
      add(column.captionColumn);
    }
  }
  for (const std::wstring_view column : layout.unprinted) add(column);
  return named;
}

TEST(ListingLayouts, NameEveryColumnOfTheirReportAndNoOther) {
  int listings = 0;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    const ListingLayout* layout = FindListingLayout(method.className, method.method);
    if (layout == nullptr) continue;
    ++listings;
    Names columns;
    for (const guide::Column& column : guide::About(method).columns)
      columns.insert(values::FromUtf8(std::string(column.name)));
    EXPECT_EQ(NamedBy(*layout, columns), columns) << values::ToUtf8(method.method);
  }
  EXPECT_EQ(listings, 28);
}

}  // namespace
}  // namespace kodra::console::html
