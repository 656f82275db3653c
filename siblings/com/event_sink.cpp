#include "siblings/com/event_sink.h"

#include <dispex.h>

#include <vector>

#include "ado/variant.h"

namespace kodra::siblings {
namespace {

using comkit::com_ptr;

// A type's attributes, released at the end.
class TypeAttributes {
 public:
  explicit TypeAttributes(const com_ptr<ITypeInfo>& type) : type_(type) {
    ado::Check(type->GetTypeAttr(&attributes_), type);
  }
  TypeAttributes(const TypeAttributes&) = delete;
  TypeAttributes& operator=(const TypeAttributes&) = delete;
  ~TypeAttributes() { type_->ReleaseTypeAttr(attributes_); }
  const TYPEATTR* operator->() const { return attributes_; }

 private:
  const com_ptr<ITypeInfo>& type_;
  TYPEATTR* attributes_ = nullptr;
};

// The default source among the interfaces of a class; null when it has none.
com_ptr<ITypeInfo> DefaultSource(const com_ptr<ITypeInfo>& coclass) {
  constexpr int kDefaultSource = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
  const TypeAttributes attributes(coclass);
  for (UINT i = 0; i < attributes->cImplTypes; ++i) {
    int flags = 0;
    ado::Check(coclass->GetImplTypeFlags(i, &flags), coclass);
    if ((flags & kDefaultSource) != kDefaultSource) continue;
    HREFTYPE reference = 0;
    com_ptr<ITypeInfo> events;
    ado::Check(coclass->GetRefTypeOfImplType(i, &reference), coclass);
    ado::Check(coclass->GetRefTypeInfo(reference, events.put()), coclass);
    return events;
  }
  return {};
}

// The id and the name of a type's function.
std::pair<DISPID, std::wstring> FunctionAt(const com_ptr<ITypeInfo>& type, UINT index) {
  FUNCDESC* description = nullptr;
  ado::Check(type->GetFuncDesc(index, &description), type);
  const DISPID id = description->memid;
  type->ReleaseFuncDesc(description);
  comkit::ScopedBstr name;
  UINT count = 0;
  ado::Check(type->GetNames(id, name.put(), 1, &count), type);
  return {id, comkit::ToWide(name.get())};
}

// A listener's methods. Script engines support IDispatchEx, some of them nothing else.
class Listener {
 public:
  explicit Listener(const com_ptr<IDispatch>& object) : object_(object), scripted_(object.as<IDispatchEx>()) {}

  // DISPID_UNKNOWN for a name that the listener does not have.
  DISPID IdOf(const std::wstring& name, LCID locale) const {
    DISPID id = DISPID_UNKNOWN;
    if (scripted_) {
      const comkit::ScopedBstr text(name);
      return SUCCEEDED(scripted_->GetDispID(text.get(), fdexNameCaseInsensitive, &id)) ? id : DISPID_UNKNOWN;
    }
    std::wstring copy = name;
    wchar_t* names[] = {copy.data()};
    return SUCCEEDED(object_->GetIDsOfNames(IID_NULL, names, 1, locale, &id)) ? id : DISPID_UNKNOWN;
  }

  HRESULT Call(DISPID id, LCID locale, DISPPARAMS& arguments, VARIANT* result, EXCEPINFO* info) const {
    if (scripted_) return scripted_->InvokeEx(id, locale, DISPATCH_METHOD, &arguments, result, info, nullptr);
    return object_->Invoke(id, IID_NULL, locale, DISPATCH_METHOD, &arguments, result, info, nullptr);
  }

 private:
  com_ptr<IDispatch> object_;
  com_ptr<IDispatchEx> scripted_;
};

}  // namespace

EventSet EventsOf(IUnknown* source) {
  const auto described = com_ptr<IUnknown>(source).as<IProvideClassInfo>();
  com_ptr<ITypeInfo> coclass;
  if (described) ado::Check(described->GetClassInfo(coclass.put()), described);
  const com_ptr<ITypeInfo> events = coclass ? DefaultSource(coclass) : com_ptr<ITypeInfo>();
  if (!events) {
    throw Erro(kErrBase + 1, L"KodraSuporte.Ouvinte::Conecta", L"O objeto não anuncia eventos.");
  }
  const TypeAttributes attributes(events);
  EventSet set{attributes->guid, {}};
  for (UINT i = 0; i < attributes->cFuncs; ++i) set.names.insert(FunctionAt(events, i));
  return set;
}

STDMETHODIMP EventSink::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

STDMETHODIMP EventSink::GetTypeInfo(UINT, LCID, ITypeInfo** out) {
  if (out != nullptr) *out = nullptr;
  return DISP_E_BADINDEX;
}

// Sources call events by id.
STDMETHODIMP EventSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) { return DISP_E_UNKNOWNNAME; }

STDMETHODIMP EventSink::Invoke(DISPID id, REFIID, LCID locale, WORD, DISPPARAMS* parameters, VARIANT* result,
                               EXCEPINFO* info, UINT*) try {
  if (parameters == nullptr) return E_INVALIDARG;
  const auto event = events_.names.find(id);
  if (event == events_.names.end()) return DISP_E_MEMBERNOTFOUND;
  // The source may release the sink during the call.
  const Listener listener(listener_);
  const DISPID method = listener.IdOf(event->second, locale);
  if (method == DISPID_UNKNOWN) return S_OK;

  static_assert(sizeof(ado::ScopedVariant) == sizeof(VARIANT));
  std::vector<ado::ScopedVariant> values(parameters->cArgs);
  for (UINT i = 0; i < parameters->cArgs; ++i) {
    const HRESULT copied = VariantCopyInd(values[i].put(), &parameters->rgvarg[i]);
    if (FAILED(copied)) return copied;
  }
  DISPPARAMS copies = {values.empty() ? nullptr : values.front().get(), nullptr, parameters->cArgs, 0};
  return listener.Call(method, locale, copies, result, info);
} catch (...) {
  return E_OUTOFMEMORY;
}

}  // namespace kodra::siblings
