// What a client does with rows, the same on both sides of every comparison.
#pragma once

#include <limits>
#include <utility>
#include <vector>

#include "bench/wine/com.h"

namespace kodra::bench {

// What was read: how many rows, and a sum over all values that differs when one of them does.
struct Read {
  long rows = 0;
  std::uint32_t sum = 0;
  bool operator==(const Read&) const = default;
};

inline std::vector<com_ptr<::Field>> FieldsOf(_Recordset* rows) {
  com_ptr<::Fields> fields;
  Must(rows->get_Fields(fields.put()), "Fields");
  LONG count = 0;
  Must(fields->get_Count(&count), "Count");
  std::vector<com_ptr<::Field>> list(static_cast<std::size_t>(count));
  for (LONG i = 0; i < count; ++i) {
    VARIANT index = {};
    index.vt = VT_I4;
    index.lVal = i;
    Must(fields->get_Item(index, list[static_cast<std::size_t>(i)].put()), "Item");
  }
  return list;
}

inline std::uint32_t SumOf(const VARIANT& value) {
  if (value.vt == VT_NULL) return 1;
  if (value.vt != VT_BSTR) return value.ulVal + value.vt;
  std::uint32_t sum = SysStringLen(value.bstrVal);
  for (const wchar_t* c = value.bstrVal; *c != 0; ++c) sum = sum * 31 + *c;
  return sum;
}

// Reads a recordset from its current row on, every field of every row.
class RowReader {
 public:
  explicit RowReader(com_ptr<_Recordset> rows) : rows_(std::move(rows)), fields_(FieldsOf(rows_.get())) {}

  // Reads up to `count` rows more; false when it came to their end.
  bool ReadSome(long count) {
    for (; count > 0; --count) {
      VARIANT_BOOL end = VARIANT_FALSE;
      Must(rows_->get_EOF(&end), "EOF");
      if (end != VARIANT_FALSE) return false;
      ReadRow();
      Must(rows_->MoveNext(), "MoveNext");
    }
    return true;
  }
  // What was read so far.
  const Read& SoFar() const { return read_; }

 private:
  void ReadRow() {
    for (const auto& field : fields_) {
      Var value;
      Must(field->get_Value(value.put()), "Value");
      read_.sum = read_.sum * 31 + SumOf(value.raw());
    }
    ++read_.rows;
  }

  com_ptr<_Recordset> rows_;
  std::vector<com_ptr<::Field>> fields_;
  Read read_;
};

// Reads a recordset from its current row to its end.
inline Read ReadToEnd(_Recordset* rows) {
  RowReader reader{com_ptr<_Recordset>(rows)};
  while (reader.ReadSome(std::numeric_limits<long>::max())) {
  }
  return reader.SoFar();
}

}  // namespace kodra::bench
