// The base of every public object: lifetime, IDispatch by the type library, error information and class information.
//
// Class is the coclass of the type library, Interface its default dual interface. A derived class adds the members.
// The object starts with one reference, which belongs to its creator.
//
//   class AboutFace final : public DualObject<::About, IAbout> { … };
#pragma once

#include <atomic>

#include "com/boundary.h"
#include "com/module.h"
#include "platform/windows/automation_headers.h"

namespace kodra::com {

// What the type library gives every object for its IDispatch. `iid` is the object's dual interface.
HRESULT DescribeType(REFGUID id, ITypeInfo** info) noexcept;
HRESULT MemberIds(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids) noexcept;
HRESULT InvokeMember(IDispatch* object, REFIID iid, DISPID member, WORD kind, DISPPARAMS* arguments, VARIANT* result,
                     EXCEPINFO* exception, UINT* badArgument) noexcept;

template <class Class, class Interface>
class DualObject : public Interface, public ISupportErrorInfo, public IProvideClassInfo {
 public:
  DualObject() = default;
  DualObject(const DualObject&) = delete;
  DualObject& operator=(const DualObject&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    *object = Find(iid);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept override {
    return index == 0 ? DescribeType(__uuidof(Interface), info) : DISP_E_BADINDEX;
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override {
    return MemberIds(__uuidof(Interface), names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* arguments, VARIANT* result,
                      EXCEPINFO* exception, UINT* badArgument) noexcept override {
    return InvokeMember(static_cast<Interface*>(this), __uuidof(Interface), member, kind, arguments, result, exception,
                        badArgument);
  }

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
    return iid == __uuidof(Interface) ? S_OK : S_FALSE;
  }
  STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override { return DescribeType(__uuidof(Class), info); }

 protected:
  virtual ~DualObject() = default;

  // The object by an interface of its own, null when it has none such. A derived class may add interfaces.
  virtual void* Find(REFIID iid) noexcept {
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(Interface)) return static_cast<Interface*>(this);
    if (iid == IID_ISupportErrorInfo) return static_cast<ISupportErrorInfo*>(this);
    if (iid == IID_IProvideClassInfo) return static_cast<IProvideClassInfo*>(this);
    return nullptr;
  }

 private:
  ModuleLock lock_;
  std::atomic<ULONG> references_ = 1;
};

}  // namespace kodra::com
