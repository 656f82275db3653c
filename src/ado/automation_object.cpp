#include "ado/automation_object.h"

#include "ado/variant.h"

namespace kodra::ado {

using comkit::com_ptr;

namespace {

// A member's name as GetIDsOfNames takes it: terminated, writable. Only an unusually long one allocates memory.
class MemberName {
 public:
  explicit MemberName(std::wstring_view name) {
    if (name.size() >= std::size(short_)) {
      long_ = name;
      text_ = long_.data();
      return;
    }
    short_[name.copy(short_, name.size())] = L'\0';
    text_ = short_;
  }
  MemberName(const MemberName&) = delete;
  MemberName& operator=(const MemberName&) = delete;

  wchar_t** get() noexcept { return &text_; }

 private:
  wchar_t short_[64];
  std::wstring long_;
  wchar_t* text_;
};

// Automation takes positional arguments from the last to the first, as one array of VARIANTs.
std::vector<ScopedVariant> Reversed(std::span<const Value> arguments) {
  std::vector<ScopedVariant> reversed;
  reversed.reserve(arguments.size() + 1);
  for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) reversed.emplace_back(*argument);
  return reversed;
}

[[noreturn]] void Raise(HRESULT hr, EXCEPINFO& info) {
  if (hr == DISP_E_UNKNOWNNAME || hr == DISP_E_MEMBERNOTFOUND) throw MemberNotFound();
  throw ErrorOf(hr, info);
}

}  // namespace

ScopedVariant DispatchObject::Invoke(std::wstring_view member, WORD kind, VARIANT* arguments, UINT count) {
  MemberName name(member);
  DISPID id = DISPID_UNKNOWN;
  EXCEPINFO info = {};
  const HRESULT hr = object_->GetIDsOfNames(IID_NULL, name.get(), 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(hr)) Raise(hr, info);
  return Invoke(id, kind, arguments, count);
}

ScopedVariant DispatchObject::Invoke(DISPID id, WORD kind, VARIANT* arguments, UINT count) {
  EXCEPINFO info = {};
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters = {arguments, isPut ? &put : nullptr, count, isPut ? 1U : 0U};
  ScopedVariant result;
  const HRESULT hr = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                     isPut ? nullptr : result.get(), &info, nullptr);
  if (FAILED(hr)) Raise(hr, info);
  return result;
}

ScopedVariant DispatchObject::InvokeMethod(std::wstring_view member, std::vector<ScopedVariant>& reversed) {
  static_assert(sizeof(ScopedVariant) == sizeof(VARIANT));
  VARIANT* first = reversed.empty() ? nullptr : reversed.front().get();
  return Invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, first, static_cast<UINT>(reversed.size()));
}

Value DispatchObject::Get(std::wstring_view member) {
  return ToValue(*Invoke(member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, nullptr, 0));
}

Value DispatchObject::GetDefault() {
  return ToValue(*Invoke(DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, nullptr, 0));
}

void DispatchObject::Let(std::wstring_view member, const Value& value) {
  ScopedVariant argument(value);
  Invoke(member, DISPATCH_PROPERTYPUT, argument.get(), 1);
}

void DispatchObject::Set(std::wstring_view member, const ObjectRef& object) {
  ScopedVariant argument{Value(object)};
  Invoke(member, DISPATCH_PROPERTYPUTREF, argument.get(), 1);
}

Value DispatchObject::Call(std::wstring_view member, std::span<const Value> arguments) {
  std::vector<ScopedVariant> reversed = Reversed(arguments);
  return ToValue(*InvokeMethod(member, reversed));
}

Value DispatchObject::CallByReference(std::wstring_view member, Value& first, std::span<const Value> others) {
  ScopedVariant referred(first);
  std::vector<ScopedVariant> reversed = Reversed(others);
  reversed.push_back(ScopedVariant::ReferenceTo(referred));
  const ScopedVariant result = InvokeMethod(member, reversed);
  first = ToValue(*referred);
  return ToValue(*result);
}

void DispatchObject::ForEach(const std::function<void(const Value&)>& visit) {
  DISPPARAMS none = {};
  ScopedVariant enumeration;
  EXCEPINFO info = {};
  const HRESULT hr = object_->Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT,
                                     DISPATCH_PROPERTYGET | DISPATCH_METHOD, &none, enumeration.put(), &info, nullptr);
  if (hr == DISP_E_MEMBERNOTFOUND) return AutomationObject::ForEach(visit);
  if (FAILED(hr)) Raise(hr, info);
  const VARTYPE type = V_VT(enumeration.get());
  com_ptr<IEnumVARIANT> members;
  if (type == VT_UNKNOWN || type == VT_DISPATCH)
    members = com_ptr<IUnknown>(V_UNKNOWN(enumeration.get())).as<IEnumVARIANT>();
  if (!members) throw MakeRuntimeError(RuntimeError::kTypeMismatch);
  ScopedVariant member;
  HRESULT next = S_OK;
  while ((next = members->Next(1, member.put(), nullptr)) == S_OK) visit(ToValue(*member));
  Check(next, members);
}

ObjectRef WrapDispatch(IDispatch* object) {
  return object == nullptr ? ObjectRef() : std::make_shared<DispatchObject>(object);
}

com_ptr<IDispatch> DispatchOf(const ObjectRef& object) {
  if (!object) return {};
  const auto* wrapped = dynamic_cast<const DispatchObject*>(object.get());
  if (wrapped == nullptr) throw MakeRuntimeError(RuntimeError::kTypeMismatch);
  return com_ptr<IDispatch>(wrapped->Dispatch());
}

}  // namespace kodra::ado
