// The common base of the ADO objects: IDispatch by the type library, and error information.
//
//   class ErrorObject final : public DispatchObject<ADOError> { … };
//   com_ptr<ADOError> error = Make<ErrorObject>(…);
//
// References may be counted on any thread; everything else belongs to the thread that made the object.
#pragma once

#include <type_traits>
#include <utility>

#include "ado/adoint.h"
#include "comkit/com_ptr.h"
#include "comkit/object.h"
#include "odbc/adodb/arguments.h"
#include "odbc/adodb/errors.h"

namespace kodra::adodb {

using comkit::com_ptr;

// Only the objects of this DLL answer it, so that one recognises another behind a client's interface pointer.
inline constexpr IID kOwnObjectId{0x3b6f2f0e, 0x7c1d, 0x4b59, {0x9a, 0x2e, 0x51, 0x7d, 0x0c, 0x84, 0xe6, 0x13}};

class OwnObject {
 public:
  OwnObject() = default;
  OwnObject(const OwnObject&) = delete;
  OwnObject& operator=(const OwnObject&) = delete;
  virtual ~OwnObject() = default;
};

// `Older` are the interfaces that `Interface` extends and that have ids of their own.
template <class Interface, class... Older>
class DispatchObject : public comkit::Object<Interface, ISupportErrorInfo>, public OwnObject {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** out) noexcept override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    if (Type() == nullptr) return TYPE_E_CANTLOADLIBRARY;
    com_ptr<ITypeInfo>(Type()).copy_to(out);
    return S_OK;
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override {
    return Type() == nullptr ? TYPE_E_CANTLOADLIBRARY : Type()->GetIDsOfNames(names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                      EXCEPINFO* exception, UINT* badArgument) noexcept override {
    if (Type() == nullptr) return TYPE_E_CANTLOADLIBRARY;
    const HRESULT item = InvokeItem(member, flags, arguments, result, exception);
    if (item != DISP_E_MEMBERNOTFOUND) return item;
    const HRESULT called =
        Type()->Invoke(static_cast<Interface*>(this), member, flags, arguments, result, exception, badArgument);
    if (FAILED(called) && result != nullptr) VariantInit(result);  // a failing getter may have set its type
    return called;
  }

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) noexcept override { return IsOwnInterface(id) ? S_OK : S_FALSE; }

 protected:
  // object(index) = value, which is how scripts write object(index).Value = value.
  virtual HRESULT PutItem(const VARIANT&, const VARIANT&) noexcept { return DISP_E_MEMBERNOTFOUND; }

  // object(index) where the default property is a collection without arguments: its item. When the type library makes
  // this call, the error of an item that does not exist is lost.
  virtual HRESULT GetItem(const VARIANT&, com_ptr<IDispatch>&) noexcept { return DISP_E_MEMBERNOTFOUND; }

  // Guards an entry point of this interface.
  template <class Body>
  static HRESULT Guard(const Body& body) noexcept {
    return Guarded<Interface>(body);
  }
  // Guards an entry point that returns a result. An interface result is null when the entry point fails.
  template <class T, class Read>
  static HRESULT Get(T* out, const Read& read) noexcept {
    if constexpr (std::is_pointer_v<T>) {
      if (out != nullptr) *out = nullptr;
    }
    return Guard([&] { Store(out, read()); });
  }

  void* Find(REFIID id) noexcept override {
    if (IsOwnInterface(id)) return static_cast<Interface*>(this);
    if (id == kOwnObjectId) return static_cast<OwnObject*>(this);
    return comkit::Object<Interface, ISupportErrorInfo>::Find(id);
  }

 private:
  static bool IsOwnInterface(REFIID id) noexcept {
    return id == __uuidof(Interface) || id == IID_IDispatch || (... || (id == __uuidof(Older)));
  }
  // DISP_E_MEMBERNOTFOUND when the call is neither object(index) nor object(index) = value.
  HRESULT InvokeItem(DISPID member, WORD flags, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception) noexcept {
    if (member != DISPID_VALUE || arguments == nullptr) return DISP_E_MEMBERNOTFOUND;
    const bool assigns = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (assigns && arguments->cArgs == 2)
      return Described(PutItem(arguments->rgvarg[1], arguments->rgvarg[0]), exception);
    if (assigns || arguments->cArgs != 1) return DISP_E_MEMBERNOTFOUND;
    com_ptr<IDispatch> item;
    const HRESULT read = Described(GetItem(arguments->rgvarg[0], item), exception);
    if (SUCCEEDED(read) && result != nullptr) *result = ado::ScopedVariant::Object(item.get()).detach();
    return read;
  }
  // Null when the type library cannot be read. Kept until the process ends: releasing it while the DLL is being
  // unloaded would call into other DLLs.
  static ITypeInfo* Type() noexcept {
    static ITypeInfo* const type = [] {
      ITypeInfo* info = nullptr;
      Guard([&] { comkit::TypeInfoOf(__uuidof(Interface), &info); });
      return info;
    }();
    return type;
  }
};

template <class Object, class... Arguments>
com_ptr<Object> Make(Arguments&&... arguments) {
  return com_ptr<Object>::adopt(new Object(std::forward<Arguments>(arguments)...));
}

// The object of this DLL behind an interface pointer; null when the object is of another class or the pointer is null.
template <class Object>
com_ptr<Object> OwnObjectOf(IUnknown* unknown) noexcept {
  void* own = nullptr;
  if (unknown == nullptr || FAILED(unknown->QueryInterface(kOwnObjectId, &own))) return nullptr;
  const auto queried = com_ptr<IUnknown>::adopt(unknown);
  return com_ptr<Object>(dynamic_cast<Object*>(static_cast<OwnObject*>(own)));
}

}  // namespace kodra::adodb
