#include "siblings/com/dispatch_face.h"

#include <oleauto.h>

#include "ado/automation_object.h"
#include "ado/variant.h"
#include "comkit/boundary.h"
#include "siblings/com/enumerator.h"
#include "values/erro.h"
#include "values/upper.h"

namespace kodra::siblings {
namespace {

// Positional arguments are stored from the last to the first, after the named ones.
std::vector<Value> Arguments(const DISPPARAMS& parameters) {
  std::vector<Value> arguments;
  for (UINT i = parameters.cArgs; i-- > parameters.cNamedArgs;) arguments.push_back(ado::ToValue(parameters.rgvarg[i]));
  return arguments;
}

HRESULT Report(const Erro& erro, EXCEPINFO* info) {
  if (erro.Number() == static_cast<std::int32_t>(RuntimeError::kMemberNotFound)) return DISP_E_MEMBERNOTFOUND;
  if (info == nullptr) return ado::HresultOf(erro.Number());
  *info = EXCEPINFO{};
  info->scode = ado::HresultOf(erro.Number());
  info->bstrSource = SysAllocString(erro.Source().c_str());
  info->bstrDescription = SysAllocString(erro.Description().c_str());
  return DISP_E_EXCEPTION;
}

}  // namespace

Value Outward(const Value& value) {
  if (!value.Is<ObjectRef>()) return value;
  const ObjectRef& object = value.As<ObjectRef>();
  if (!object || dynamic_cast<const ado::DispatchObject*>(object.get()) != nullptr) return value;
  return ado::WrapDispatch(DispatchFace::Make(object).get());
}

comkit::com_ptr<IDispatch> DispatchFace::Make(ObjectRef object) {
  if (!object) return {};
  return comkit::com_ptr<IDispatch>::adopt(new DispatchFace(std::move(object)));
}

STDMETHODIMP DispatchFace::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

STDMETHODIMP DispatchFace::GetTypeInfo(UINT, LCID, ITypeInfo** out) {
  if (out != nullptr) *out = nullptr;
  return DISP_E_BADINDEX;
}

DISPID DispatchFace::IdOf(std::wstring_view name) {
  if (values::EqualIgnoringCase(name, L"_NewEnum")) return DISPID_NEWENUM;
  for (std::size_t i = 0; i < names_.size(); ++i) {
    if (values::EqualIgnoringCase(names_[i], name)) return static_cast<DISPID>(i) + 1;
  }
  names_.emplace_back(name);
  return static_cast<DISPID>(names_.size());
}

std::optional<std::wstring> DispatchFace::NameOf(DISPID id) const {
  if (id == DISPID_VALUE) return L"Item";
  if (id < 1 || static_cast<std::size_t>(id) > names_.size()) return {};
  return names_[static_cast<std::size_t>(id) - 1];
}

STDMETHODIMP DispatchFace::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  const HRESULT hr = comkit::AtBoundary(IID_IDispatch, [&] { ids[0] = IdOf(names[0]); });
  if (FAILED(hr) || count == 1) return hr;
  // Arguments have no names here.
  for (UINT i = 1; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  return DISP_E_UNKNOWNNAME;
}

Value DispatchFace::Perform(const std::wstring& member, WORD kind, const DISPPARAMS& parameters) {
  if ((kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
    if (parameters.cArgs != 1) throw MemberNotFound();
    const Value value = ado::ToValue(parameters.rgvarg[0]);
    if ((kind & DISPATCH_PROPERTYPUTREF) != 0 && value.Is<ObjectRef>()) {
      object_->Set(member, value.As<ObjectRef>());
    } else {
      object_->Let(member, value);
    }
    return {};
  }
  const std::vector<Value> arguments = Arguments(parameters);
  const bool readOnly = (kind & DISPATCH_METHOD) == 0 && arguments.empty();
  return Outward(readOnly ? object_->Get(member) : object_->Call(member, arguments));
}

comkit::com_ptr<IUnknown> DispatchFace::Enumerate() {
  std::vector<Value> members;
  object_->ForEach([&](const Value& member) { members.push_back(member); });
  return MakeEnumerator(std::move(members));
}

STDMETHODIMP DispatchFace::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                                  EXCEPINFO* info, UINT*) try {
  if (parameters == nullptr) return E_INVALIDARG;
  // The object may be released, or its list of names may grow, during the call.
  const comkit::com_ptr<IDispatch> keep(this);
  ado::ScopedVariant answer;
  if (id == DISPID_NEWENUM) {
    V_UNKNOWN(answer.get()) = Enumerate().detach();
    V_VT(answer.get()) = VT_UNKNOWN;
  } else {
    const std::optional<std::wstring> member = NameOf(id);
    if (!member) return DISP_E_MEMBERNOTFOUND;
    *answer.put() = ado::ScopedVariant(Perform(*member, kind, *parameters)).detach();
  }
  if (result != nullptr) *result = answer.detach();
  return S_OK;
} catch (...) {
  return Report(CurrentErro(), info);
}

}  // namespace kodra::siblings
