// The base of every public object: the IUnknown and IDispatch of its dual interface, by its ObjectCore.
//
// Class is the coclass of the type library, Interface its default dual interface. A derived class adds the members.
// The object starts with one reference, which belongs to its creator.
//
//   class AboutFace final : public DualObject<::About, IAbout> { … };
#pragma once

#include "com/boundary.h"
#include "com/object_core.h"

namespace kodra::com {

// All of this is compiled for each class anew: only what the vtable of Interface asks for stands here.
template <class Class, class Interface>
class DualObject : public Interface {
 public:
  DualObject(const DualObject&) = delete;
  DualObject& operator=(const DualObject&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** face) noexcept override { return core_.Query(iid, face); }
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return core_.Reference(); }
  STDMETHODIMP_(ULONG) Release() noexcept override {
    const ULONG left = core_.Unreference();
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override { return core_.TypeInfoCount(count); }
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept override { return core_.TypeInfo(index, info); }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override {
    return core_.MemberIds(names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* arguments, VARIANT* result,
                      EXCEPINFO* exception, UINT* badArgument) noexcept override {
    return core_.InvokeMember(member, kind, arguments, result, exception, badArgument);
  }

 protected:
  DualObject() noexcept : core_(*this, __uuidof(Class), __uuidof(Interface)) {}
  virtual ~DualObject() = default;

  // Adds one interface beyond the standard ones, as ObjectCore::Offer does.
  void Offer(REFIID id, IUnknown& face) noexcept { core_.Offer(id, face); }

 private:
  ObjectCore core_;
};

}  // namespace kodra::com
