#include "console/formats/json_writer.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "console/formats/cell_text.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

std::string Quoted(std::string text) { return nlohmann::json(std::move(text)).dump(); }

std::string Cell(const Value& value, ColumnKind kind) {
  if (IsNothing(value)) return "null";
  const std::optional<double> number = NumberIn(value);
  if (number && !std::isfinite(*number)) return "null";
  std::string text = IsoText(value, kind);
  return number || value.Is<bool>() ? text : Quoted(std::move(text));
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
  for (std::string& name : DistinctNames(columns)) keys_.push_back(Quoted(std::move(name)) + ":");
  if (shape_ == JsonShape::kArray) output_.Write("[");
}

void JsonWriter::Row(std::span<const Value> values) {
  line_.clear();
  if (shape_ == JsonShape::kArray) line_ += first_ ? "\n" : ",\n";
  first_ = false;
  for (std::size_t i = 0; i < values.size(); ++i) {
    line_ += i == 0 ? '{' : ',';
    line_ += keys_[i];
    line_ += Cell(values[i], kinds_[i]);
  }
  line_ += '}';
  if (shape_ == JsonShape::kLines) line_ += '\n';
  output_.Write(line_);
}

void JsonWriter::End() {
  if (shape_ == JsonShape::kArray) output_.Write(first_ ? "]\n" : "\n]\n");
}

}  // namespace kodra::console
