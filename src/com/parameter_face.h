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

// A property bag with entry points of automation's types. `iid` is the interface that the members belong to.
class ParameterMembers {
 public:
  ParameterMembers(std::wstring_view className, REFIID iid)
      : parameters_(frame::ParameterClassNamed(className)), iid_(iid) {}

  frame::ParameterObject& Parameters() noexcept { return parameters_; }

  HRESULT Get(std::wstring_view name, BSTR* value) noexcept;
  HRESULT Get(std::wstring_view name, DATE* value) noexcept;
  HRESULT Get(std::wstring_view name, VARIANT_BOOL* value) noexcept;
  HRESULT Let(std::wstring_view name, BSTR value) noexcept;
  HRESULT Let(std::wstring_view name, DATE value) noexcept;
  HRESULT Let(std::wstring_view name, VARIANT_BOOL value) noexcept;

 private:
  frame::ParameterObject parameters_;
  const IID iid_;
};

template <class Class, class Interface>
class ParameterFace : public DualObject<Class, Interface>, public IParameters {
 public:
  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
    return DualObject<Class, Interface>::QueryInterface(iid, object);
  }
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return DualObject<Class, Interface>::AddRef(); }
  STDMETHODIMP_(ULONG) Release() noexcept override { return DualObject<Class, Interface>::Release(); }

  platform::AutomationObject& Parameters() noexcept override { return members_.Parameters(); }

 protected:
  explicit ParameterFace(std::wstring_view className) : members_(className, __uuidof(Interface)) {}

  void* Find(REFIID iid) noexcept override {
    if (iid == __uuidof(IParameters)) return static_cast<IParameters*>(this);
    return DualObject<Class, Interface>::Find(iid);
  }

  ParameterMembers members_;
};

}  // namespace kodra::com
