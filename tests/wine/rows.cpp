#include "tests/wine/rows.h"

namespace kodra::face {

Value ValueOf(const Var& field) {
  const VARIANT& raw = field.raw();
  switch (raw.vt) {
    case VT_EMPTY:
      return Empty{};
    case VT_NULL:
      return Null{};
    case VT_BOOL:
      return raw.boolVal != VARIANT_FALSE;
    case VT_I4:
      return std::int32_t{raw.lVal};
    case VT_R8:
      return raw.dblVal;
    case VT_DATE:
      return Date{raw.date};
    case VT_BSTR:
      return std::wstring(raw.bstrVal, SysStringLen(raw.bstrVal));
    case VT_I8:
      return std::int64_t{raw.llVal};
    case VT_DECIMAL: {
      double number = 0;
      EXPECT_EQ(S_OK, VarR8FromDec(const_cast<DECIMAL*>(&raw.decVal), &number));
      return number;
    }
    default:
      ADD_FAILURE() << "a field of VARTYPE " << raw.vt;
      return Empty{};
  }
}

Table ReadAll(const Ref<IDispatch>& recordset) {
  Table table({});
  std::vector<Ref<IDispatch>> fields;
  const auto collection = Got(Get(recordset, L"Fields")).object();
  for (int i = 0; i < Got(Get(collection, L"Count")).number(); ++i) {
    fields.push_back(Got(Call(collection, L"Item", {i})).object());
    table.columns.push_back(Got(Get(fields.back(), L"Name")).text().value());
  }
  while (Got(Get(recordset, L"EOF")).raw().boolVal == VARIANT_FALSE) {
    Table::Row& row = table.rows.emplace_back();
    for (const auto& field : fields) row.push_back(rows::Cell(ValueOf(Got(Get(field, L"Value")))));
    const HRESULT moved = Call(recordset, L"MoveNext").hr;
    EXPECT_EQ(S_OK, moved);
    if (moved != S_OK) break;
  }
  return table;
}

Table ReadFromFirst(const Ref<IDispatch>& recordset) {
  EXPECT_EQ(S_OK, Call(recordset, L"MoveFirst").hr);
  return ReadAll(recordset);
}

}  // namespace kodra::face
