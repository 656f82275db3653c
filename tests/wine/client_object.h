// The common part of the test's own COM objects: a count of references and one interface.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace kodra::face {

// An object of one interface that counts its references. A new object has one reference, its creator's; the last
// Release deletes it.
template <class Interface>
class CountedObject : public Interface {
 public:
  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    *object = iid == IID_IUnknown || iid == __uuidof(Interface) ? static_cast<Interface*>(this) : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  ULONG References() const { return references_; }

 protected:
  CountedObject() = default;
  virtual ~CountedObject() = default;

 private:
  ULONG references_ = 1;
};

// An automation object without type information.
class ClientObject : public CountedObject<IDispatch> {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
};

}  // namespace kodra::face
