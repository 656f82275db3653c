// How each listing is laid out on paper: what stands in columns, what below a row, what once above the table.
#pragma once

#include <string_view>
#include <vector>

namespace kodra::console::html {

// A column of the report and what it is called on paper.
struct LayoutColumn {
  // The column's name; one that ends in "*" stands for the columns of that name with 1, 2, 3…, joined.
  std::wstring_view column;
  std::wstring_view caption;
  // A column whose text is the caption instead, where the archive names the thing itself.
  std::wstring_view captionColumn = {};
};

struct ListingLayout {
  std::wstring_view className, method;
  std::wstring_view title;
  // A column whose text is the title instead.
  std::wstring_view titleColumn = {};
  // The same in every row: printed once, above the table.
  std::vector<LayoutColumn> facts = {};
  std::vector<LayoutColumn> columns;
  // Printed below a row, with its caption, where it is not empty.
  std::vector<LayoutColumn> details = {};
  // Columns that only the front end's own layouts use.
  std::vector<std::wstring_view> unprinted = {};
};

// The layout of a listing, or null for a report that is no listing.
const ListingLayout* FindListingLayout(std::wstring_view className, std::wstring_view method);

}  // namespace kodra::console::html
