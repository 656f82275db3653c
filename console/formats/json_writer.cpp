#include "console/formats/json_writer.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "console/formats/cell_text.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

// Ends a string of JSON whose text begins at `start`, after its quotation mark.
void EndString(std::size_t start, std::string& out) {
  const std::string_view text = std::string_view(out).substr(start);
  // The library's own way is slow for the texts, nearly all, that need no escape.
  const bool isPlain =
      std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\'; });
  if (isPlain) {
    out += '"';
  } else {
    const std::string escaped = nlohmann::json(text).dump();
    out.replace(start - 1, out.npos, escaped);
  }
}

// The names of the columns, with a number where a name repeats.
std::vector<std::string> DistinctNames(std::span<const Column> columns) {
  std::vector<std::string> names;
  for (const Column& column : columns) {
    const std::string name = values::ToUtf8(column.name);
    std::string distinct = name;
    for (int number = 2; std::ranges::find(names, distinct) != names.end(); ++number)
      distinct = name + "_" + std::to_string(number);
    names.push_back(std::move(distinct));
  }
  return names;
}

}  // namespace

void JsonWriter::Begin(const Heading& /*heading*/, std::span<const Column> columns) {
  for (const Column& column : columns) kinds_.push_back(column.kind);
  for (const std::string& name : DistinctNames(columns)) {
    std::string& key = keys_.emplace_back('"' + name);
    EndString(1, key);
    key += ':';
  }
  if (shape_ == JsonShape::kArray) output_.Write("[");
}

void JsonWriter::Row(std::span<const Value> values) {
  line_.clear();
  if (shape_ == JsonShape::kArray) line_ += first_ ? "\n" : ",\n";
  first_ = false;
  for (std::size_t i = 0; i < values.size(); ++i) {
    line_ += i == 0 ? '{' : ',';
    line_ += keys_[i];
    AppendCell(values[i], kinds_[i]);
  }
  line_ += '}';
  if (shape_ == JsonShape::kLines) line_ += '\n';
  output_.Write(line_);
}

void JsonWriter::AppendCell(const Value& value, ColumnKind kind) {
  const std::optional<double> number = NumberIn(value);
  if (IsNothing(value) || (number && !std::isfinite(*number))) {
    line_ += "null";
  } else if (number || value.Is<bool>()) {
    AppendIsoText(value, kind, line_);
  } else {
    line_ += '"';
    const std::size_t start = line_.size();
    AppendIsoText(value, kind, line_);
    EndString(start, line_);
  }
}

void JsonWriter::End() {
  if (shape_ == JsonShape::kArray) output_.Write(first_ ? "]\n" : "\n]\n");
}

}  // namespace kodra::console
