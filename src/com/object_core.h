// What every public object has whatever its class: lifetime, its standard interfaces and IDispatch by the type library.
//
// It is a part of its object and stands once in the DLL for all classes. Its own interfaces are faces of the object:
// references to them are references to the object, and asked for any other interface they ask the object.
#pragma once

#include <atomic>

#include "ado/automation_headers.h"
#include "com/module.h"

namespace kodra::com {

class ObjectCore final : public ISupportErrorInfo, public IProvideClassInfo {
 public:
  // `object` owns this and is of the coclass `classId` with the dual interface `iid`. Starts with one reference.
  // REQUIRES: both ids are constants.
  ObjectCore(IDispatch& object, REFCLSID classId, REFIID iid) noexcept
      : object_(object), classId_(classId), iid_(iid) {}
  ObjectCore(const ObjectCore&) = delete;
  ObjectCore& operator=(const ObjectCore&) = delete;

  // Adds one interface of the object's own. REQUIRES: `face`, a part of the object, implements that interface and no
  // other.
  void Offer(REFIID id, IUnknown& face) noexcept {
    ownId_ = id;
    ownFace_ = &face;
  }

  // What the object's entry points of the same names do. The object goes when Unreference() gives zero.
  HRESULT Query(REFIID iid, void** face) noexcept;
  ULONG Reference() noexcept { return ++references_; }
  ULONG Unreference() noexcept { return --references_; }
  HRESULT TypeInfoCount(UINT* count) noexcept;
  HRESULT TypeInfo(UINT index, ITypeInfo** info) noexcept;
  HRESULT MemberIds(LPOLESTR* names, UINT count, DISPID* ids) noexcept;
  HRESULT InvokeMember(DISPID member, WORD kind, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                       UINT* badArgument) noexcept;

  STDMETHODIMP QueryInterface(REFIID iid, void** face) noexcept override { return object_.QueryInterface(iid, face); }
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return object_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() noexcept override { return object_.Release(); }
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override;
  STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override;

 private:
  // The face of that interface, null when the object has none such.
  void* Find(REFIID iid) noexcept;

  ModuleLock lock_;
  std::atomic<ULONG> references_ = 1;
  IDispatch& object_;
  const CLSID& classId_;
  const IID& iid_;
  IID ownId_ = IID_NULL;
  IUnknown* ownFace_ = nullptr;
};

}  // namespace kodra::com
