// A row read by column name, for layouts that know what they print.
#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "console/formats/cell_text.h"
#include "console/formats/row_writer.h"
#include "values/upper.h"

namespace kodra::console {

class RowReader {
 public:
  // REQUIRES: both outlive the reader.
  RowReader(std::span<const Column> columns, std::span<const Value> values) : columns_(columns), values_(values) {}

  bool Has(std::string_view column) const { return IndexOf(column) < columns_.size(); }
  // The value, or Empty for a column that the report does not have. Databases differ in the letter case of names.
  const Value& Get(std::string_view column) const {
    static const Value kNone;
    const std::size_t index = IndexOf(column);
    return index < values_.size() ? values_[index] : kNone;
  }
  // As people read it.
  std::wstring WholeText(std::string_view column) const {
    const std::size_t index = IndexOf(column);
    return index < values_.size() ? BrazilianText(values_[index], columns_[index].kind) : std::wstring();
  }
  // The same without the blanks at its end that fixed-width columns have.
  std::wstring Text(std::string_view column) const {
    std::wstring text = WholeText(column);
    text.erase(text.find_last_not_of(L' ') + 1);
    return text;
  }

 private:
  std::size_t IndexOf(std::string_view column) const {
    const auto same = [](wchar_t a, char b) {
      return values::UpperCaseAscii(a) == values::UpperCaseAscii(static_cast<wchar_t>(b));
    };
    const auto found =
        std::ranges::find_if(columns_, [&](const Column& c) { return std::ranges::equal(c.name, column, same); });
    return static_cast<std::size_t>(found - columns_.begin());
  }

  std::span<const Column> columns_;
  std::span<const Value> values_;
};

}  // namespace kodra::console
