#include "console/formats/chosen_columns.h"

#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::ToUtf8;

std::vector<std::size_t> IndicesOf(const std::string& name, std::span<const Column> columns) {
  std::vector<std::size_t> indices;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (Folded(ToUtf8(columns[i].name)) == Folded(name)) indices.push_back(i);
  }
  return indices;
}

[[noreturn]] void RaiseUnknown(const std::string& name, std::span<const Column> columns) {
  std::vector<std::string> known;
  std::string list;
  for (const Column& column : columns) {
    known.push_back(ToUtf8(column.name));
    list += (list.empty() ? "" : ", ") + known.back();
  }
  throw UsageError("não há a coluna \"" + name + "\"" + DidYouMean(name, known) + "; as colunas são " + list);
}

}  // namespace

void ChosenColumns::Begin(const Heading& heading, std::span<const Column> columns) {
  std::vector<Column> shown;
  for (const std::string& name : names_) {
    const std::vector<std::size_t> indices = IndicesOf(name, columns);
    if (indices.empty()) RaiseUnknown(name, columns);
    for (const std::size_t index : indices) {
      chosen_.push_back(index);
      shown.push_back(columns[index]);
    }
  }
  writer_->Begin(heading, shown);
}

void ChosenColumns::Row(std::span<const Value> values) {
  row_.clear();
  for (const std::size_t index : chosen_) row_.push_back(values[index]);
  writer_->Row(row_);
}

}  // namespace kodra::console
