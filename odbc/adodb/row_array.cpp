#include "odbc/adodb/row_array.h"

#include <memory>
#include <new>

namespace kodra::adodb {
namespace {

struct DestroyArray {
  void operator()(SAFEARRAY* array) const noexcept { SafeArrayDestroy(array); }
};

void Fill(SAFEARRAY* array, const std::vector<std::vector<Value>>& rows, const std::vector<std::int32_t>& columns) {
  // The first dimension varies fastest: the columns of a row are adjacent.
  VARIANT* next = static_cast<VARIANT*>(array->pvData);
  for (const std::vector<Value>& row : rows)
    for (const std::int32_t column : columns) *next++ = ToVariant(row[static_cast<std::size_t>(column)]);
}

}  // namespace

VARIANT RowArray(const std::vector<std::vector<Value>>& rows, const std::vector<std::int32_t>& columns) {
  SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(columns.size()), 0}, {static_cast<ULONG>(rows.size()), 0}};
  std::unique_ptr<SAFEARRAY, DestroyArray> array(SafeArrayCreate(VT_VARIANT, 2, bounds));
  if (!array) throw std::bad_alloc();
  Fill(array.get(), rows, columns);
  VARIANT result;
  VariantInit(&result);
  V_VT(&result) = VT_ARRAY | VT_VARIANT;
  V_ARRAY(&result) = array.release();
  return result;
}

}  // namespace kodra::adodb
