// What a client does with rows, the same on both sides of every comparison.
#pragma once

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

// Reads a recordset from its current row to its end, every field of every row.
inline Read ReadToEnd(_Recordset* rows) {
  const auto fields = FieldsOf(rows);
  Read read;
  VARIANT_BOOL end = VARIANT_FALSE;
  for (Must(rows->get_EOF(&end), "EOF"); end == VARIANT_FALSE; Must(rows->get_EOF(&end), "EOF")) {
    for (const auto& field : fields) {
      Var value;
      Must(field->get_Value(value.put()), "Value");
      read.sum = read.sum * 31 + SumOf(value.raw());
    }
    ++read.rows;
    Must(rows->MoveNext(), "MoveNext");
  }
  return read;
}

}  // namespace kodra::bench
