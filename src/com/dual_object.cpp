#include "com/dual_object.h"

#include "ado/variant.h"
#include "comkit/com_ptr.h"

namespace kodra::com {

using comkit::com_ptr;

namespace {

// The description of an interface or a class.
HRESULT DescribeType(REFGUID id, ITypeInfo** info) noexcept {
  return FillAtBoundary(id, info, [&] {
    com_ptr<ITypeInfo> type;
    const HRESULT hr = comkit::TypeInfoOf(id, type.put());
    if (FAILED(hr)) throw ado::ErrorOf(hr, nullptr, IID_NULL);
    return type.detach();
  });
}

// Whether every reference among the arguments can be followed; automation follows them without asking. `badArgument`
// may be null; it receives the place of the first that cannot.
bool AllLeadToValues(const DISPPARAMS& arguments, UINT* badArgument) noexcept {
  for (UINT i = 0; i < arguments.cArgs; ++i) {
    if (ado::LeadsToValue(arguments.rgvarg[i])) continue;
    if (badArgument != nullptr) *badArgument = i;
    return false;
  }
  return true;
}

}  // namespace

HRESULT Description::TypeInfo(UINT index, ITypeInfo** info) const noexcept {
  return index == 0 ? DescribeType(iid_, info) : DISP_E_BADINDEX;
}

HRESULT Description::MemberIds(LPOLESTR* names, UINT count, DISPID* ids) const noexcept {
  com_ptr<ITypeInfo> info;
  const HRESULT hr = DescribeType(iid_, info.put());
  return FAILED(hr) ? hr : DispGetIDsOfNames(info.get(), names, count, ids);
}

HRESULT Description::InvokeMember(DISPID member, WORD kind, DISPPARAMS* arguments, VARIANT* result,
                                  EXCEPINFO* exception, UINT* badArgument) noexcept {
  if (arguments != nullptr && !AllLeadToValues(*arguments, badArgument)) return DISP_E_TYPEMISMATCH;
  com_ptr<ITypeInfo> info;
  const HRESULT hr = DescribeType(iid_, info.put());
  return FAILED(hr) ? hr : DispInvoke(&object_, info.get(), member, kind, arguments, result, exception, badArgument);
}

void* Description::Find(REFIID iid) noexcept {
  if (iid == IID_ISupportErrorInfo) return static_cast<ISupportErrorInfo*>(this);
  if (iid == IID_IProvideClassInfo) return static_cast<IProvideClassInfo*>(this);
  return nullptr;
}

STDMETHODIMP Description::GetClassInfo(ITypeInfo** info) noexcept { return DescribeType(classId_, info); }

}  // namespace kodra::com
