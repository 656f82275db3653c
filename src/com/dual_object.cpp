#include "com/dual_object.h"

namespace kodra::com {

using platform::windows::com_ptr;

HRESULT DescribeType(REFGUID id, ITypeInfo** info) noexcept {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  return AtBoundary(id, [&] { *info = TypeInfoOf(id).detach(); });
}

HRESULT MemberIds(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids) noexcept {
  com_ptr<ITypeInfo> info;
  const HRESULT hr = DescribeType(iid, info.put());
  return FAILED(hr) ? hr : DispGetIDsOfNames(info.get(), names, count, ids);
}

HRESULT InvokeMember(IDispatch* object, REFIID iid, DISPID member, WORD kind, DISPPARAMS* arguments, VARIANT* result,
                     EXCEPINFO* exception, UINT* badArgument) noexcept {
  com_ptr<ITypeInfo> info;
  const HRESULT hr = DescribeType(iid, info.put());
  return FAILED(hr) ? hr : DispInvoke(object, info.get(), member, kind, arguments, result, exception, badArgument);
}

}  // namespace kodra::com
