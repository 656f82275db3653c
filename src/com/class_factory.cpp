#include "com/class_factory.h"

#include "com/boundary.h"

namespace kodra::com {

using ado::com_ptr;

STDMETHODIMP ClassFactory::QueryInterface(REFIID iid, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
  *object = static_cast<IClassFactory*>(this);
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) ClassFactory::AddRef() noexcept { return ++references_; }

STDMETHODIMP_(ULONG) ClassFactory::Release() noexcept {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  HRESULT result = E_FAIL;
  const HRESULT hr = AtBoundary(IID_IClassFactory, [&] {
    const auto instance = com_ptr<IUnknown>::adopt(class_.create());
    result = instance->QueryInterface(iid, object);
  });
  return FAILED(hr) ? hr : result;
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) noexcept {
  if (lock == FALSE) return UnlockModule() ? S_OK : E_UNEXPECTED;
  LockModule();
  return S_OK;
}

}  // namespace kodra::com
