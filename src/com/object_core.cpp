#include "com/object_core.h"

#include "ado/variant.h"
#include "com/boundary.h"

namespace kodra::com {

using ado::com_ptr;

namespace {

HRESULT DescribeType(REFGUID id, ITypeInfo** info) noexcept {
  return FillAtBoundary(id, info, [&] { return TypeInfoOf(id).detach(); });
}

// Whether every reference among the arguments can be followed, as automation does without asking. `badArgument` may be
// null; it receives the place of the first that cannot.
bool AllLeadToValues(const DISPPARAMS& arguments, UINT* badArgument) noexcept {
  for (UINT i = 0; i < arguments.cArgs; ++i) {
    if (ado::LeadsToValue(arguments.rgvarg[i])) continue;
    if (badArgument != nullptr) *badArgument = i;
    return false;
  }
  return true;
}

}  // namespace

HRESULT ObjectCore::Query(REFIID iid, void** face) noexcept {
  if (face == nullptr) return E_POINTER;
  *face = Find(iid);
  if (*face == nullptr) return E_NOINTERFACE;
  Reference();
  return S_OK;
}

void* ObjectCore::Find(REFIID iid) noexcept {
  if (iid == IID_IUnknown || iid == IID_IDispatch || iid == iid_) return &object_;
  if (iid == IID_ISupportErrorInfo) return static_cast<ISupportErrorInfo*>(this);
  if (iid == IID_IProvideClassInfo) return static_cast<IProvideClassInfo*>(this);
  if (ownFace_ != nullptr && iid == ownId_) return ownFace_;
  return nullptr;
}

HRESULT ObjectCore::TypeInfoCount(UINT* count) noexcept {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT ObjectCore::TypeInfo(UINT index, ITypeInfo** info) noexcept {
  return index == 0 ? DescribeType(iid_, info) : DISP_E_BADINDEX;
}

HRESULT ObjectCore::MemberIds(LPOLESTR* names, UINT count, DISPID* ids) noexcept {
  com_ptr<ITypeInfo> info;
  const HRESULT hr = DescribeType(iid_, info.put());
  return FAILED(hr) ? hr : DispGetIDsOfNames(info.get(), names, count, ids);
}

HRESULT ObjectCore::InvokeMember(DISPID member, WORD kind, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                 UINT* badArgument) noexcept {
  if (arguments != nullptr && !AllLeadToValues(*arguments, badArgument)) return DISP_E_TYPEMISMATCH;
  com_ptr<ITypeInfo> info;
  const HRESULT hr = DescribeType(iid_, info.put());
  return FAILED(hr) ? hr : DispInvoke(&object_, info.get(), member, kind, arguments, result, exception, badArgument);
}

STDMETHODIMP ObjectCore::InterfaceSupportsErrorInfo(REFIID iid) noexcept { return iid == iid_ ? S_OK : S_FALSE; }

STDMETHODIMP ObjectCore::GetClassInfo(ITypeInfo** info) noexcept { return DescribeType(classId_, info); }

}  // namespace kodra::com
