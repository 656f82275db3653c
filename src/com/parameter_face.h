// The COM face of the parameter objects: each member reads or assigns the property of its name.
#pragma once

#include "com/dual_object.h"
#include "frame/parameter_object.h"

namespace kodra::com {

// How a report recognises one of our own parameter objects and reads it without a detour through IDispatch. It is
// answered inside the DLL only and has no proxy: another apartment's object is read through IDispatch.
struct IParameters : IUnknown {
  virtual platform::AutomationObject& Parameters() noexcept = 0;
};

}  // namespace kodra::com

__CRT_UUID_DECL(kodra::com::IParameters, 0x5a0f4c1e, 0x6f0b, 0x4a86, 0x9b, 0x39, 0x0d, 0x3c, 0x9b, 0x9a, 0x3d, 0x52)

namespace kodra::com {

// A property bag with entry points of automation's types: all that a parameter object has beyond its vtable. As a face
// of its object it is IParameters; references to it are references to the object.
class ParameterMembers final : public IParameters {
 public:
  // `object` owns this; `iid` is the interface that the members belong to.
  ParameterMembers(IUnknown& object, std::wstring_view className, REFIID iid)
      : object_(object), parameters_(frame::ParameterClassNamed(className)), iid_(iid) {}
  ParameterMembers(const ParameterMembers&) = delete;
  ParameterMembers& operator=(const ParameterMembers&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** face) noexcept override { return object_.QueryInterface(iid, face); }
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return object_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() noexcept override { return object_.Release(); }
  platform::AutomationObject& Parameters() noexcept override { return parameters_; }

  HRESULT Get(std::wstring_view name, BSTR* value) noexcept;
  HRESULT Get(std::wstring_view name, DATE* value) noexcept;
  HRESULT Get(std::wstring_view name, VARIANT_BOOL* value) noexcept;
  HRESULT Let(std::wstring_view name, BSTR value) noexcept;
  HRESULT Let(std::wstring_view name, DATE value) noexcept;
  HRESULT Let(std::wstring_view name, VARIANT_BOOL value) noexcept;

 private:
  IUnknown& object_;
  frame::ParameterObject parameters_;
  const IID& iid_;
};

template <class Class, class Interface>
class ParameterFace : public DualObject<Class, Interface> {
 protected:
  explicit ParameterFace(std::wstring_view className) : members_(*this, className, __uuidof(Interface)) {
    this->Offer(__uuidof(IParameters), members_);
  }

  ParameterMembers members_;
};

}  // namespace kodra::com
