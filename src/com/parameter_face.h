// The COM face of the parameter objects: each member reads or assigns the property of its name.
#pragma once

#include "com/dual_object.h"
#include "frame/parameter_object.h"

namespace kodra::com {

// How a report recognises one of our own parameter objects and reads it without a detour through IDispatch. Only
// objects of this copy of the DLL answer it, and it has no proxy: the objects of another copy or another apartment are
// read through IDispatch.
struct IParameters : IUnknown {
  virtual AutomationObject& Parameters() noexcept = 0;
};

// The id of IParameters. It is different in every copy of the DLL that a process has loaded: exceptions do not cross
// from one copy to another, and another version may have another layout.
IID ParametersId() noexcept;

// A property bag with entry points of automation's types: everything that a parameter object has beyond its vtable. As
// a face of its object it is IParameters; references to it are references to the object.
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
  AutomationObject& Parameters() noexcept override { return parameters_; }

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
  explicit ParameterFace(std::wstring_view className)
      : members_(*static_cast<Interface*>(this), className, __uuidof(Interface)) {}

  void* Find(REFIID iid) noexcept override {
    if (iid == ParametersId()) return static_cast<IParameters*>(&members_);
    return DualObject<Class, Interface>::Find(iid);
  }

  ParameterMembers members_;
};

}  // namespace kodra::com
