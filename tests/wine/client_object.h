// What the test's own automation objects share: a count of references, IDispatch and nothing else, no type information.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace kodra::face {

// A new object has the one reference of its maker; the last Release deletes it.
class ClientObject : public IDispatch {
 public:
  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    *object = iid == IID_IUnknown || iid == IID_IDispatch ? static_cast<IDispatch*>(this) : nullptr;
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
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }

  ULONG References() const { return references_; }

 protected:
  ClientObject() = default;
  virtual ~ClientObject() = default;

 private:
  ULONG references_ = 1;
};

}  // namespace kodra::face
