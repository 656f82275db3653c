// The base of every public object: IDispatch by the type library, and the other interfaces that automation asks for.
//
// Class is the coclass of the type library, Interface its default dual interface. A derived class adds the members.
//
//   class AboutFace final : public DualObject<::About, IAbout> { … };
#pragma once

#include "comkit/boundary.h"
#include "comkit/object.h"

namespace kodra::com {

using comkit::AtBoundary;
using comkit::FillAtBoundary;

// Describes an object from the type library. It is a part of its object and the same code for all classes. Its own
// interfaces are faces of the object: references to them are references to the object.
class Description final : public ISupportErrorInfo, public IProvideClassInfo {
 public:
  // `object` owns this and is of the coclass `classId` with the dual interface `iid`. REQUIRES: both ids are constants.
  Description(IDispatch& object, REFCLSID classId, REFIID iid) noexcept
      : object_(object), classId_(classId), iid_(iid) {}
  Description(const Description&) = delete;
  Description& operator=(const Description&) = delete;

  // The object's entry points of IDispatch.
  HRESULT TypeInfo(UINT index, ITypeInfo** info) const noexcept;
  HRESULT MemberIds(LPOLESTR* names, UINT count, DISPID* ids) const noexcept;
  HRESULT InvokeMember(DISPID member, WORD kind, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                       UINT* badArgument) noexcept;
  // The face for that interface; null when it is not one of those here.
  void* Find(REFIID iid) noexcept;

  STDMETHODIMP QueryInterface(REFIID iid, void** face) noexcept override { return object_.QueryInterface(iid, face); }
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return object_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() noexcept override { return object_.Release(); }
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override { return iid == iid_ ? S_OK : S_FALSE; }
  STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override;

 private:
  IDispatch& object_;
  const CLSID& classId_;
  const IID& iid_;
};

// All of this is compiled once for each class.
template <class Class, class Interface>
class DualObject : public comkit::Object<Interface> {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept override {
    return description_.TypeInfo(index, info);
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override {
    return description_.MemberIds(names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* arguments, VARIANT* result,
                      EXCEPINFO* exception, UINT* badArgument) noexcept override {
    return description_.InvokeMember(member, kind, arguments, result, exception, badArgument);
  }

 protected:
  void* Find(REFIID iid) noexcept override {
    void* const face = comkit::Object<Interface>::Find(iid);
    return face != nullptr ? face : description_.Find(iid);
  }

 private:
  Description description_{*this, __uuidof(Class), __uuidof(Interface)};
};

}  // namespace kodra::com
