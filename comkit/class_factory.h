// What a DLL's DllGetClassObject returns: a factory that makes objects of one class.
#pragma once

#include <utility>

#include "comkit/boundary.h"
#include "comkit/com_ptr.h"
#include "comkit/object.h"

namespace kodra::comkit {

// `Make` is called without arguments and returns a com_ptr to a new object. No class of these servers can be
// aggregated.
template <class Make>
class ClassFactory final : public Object<IClassFactory> {
 public:
  explicit ClassFactory(Make make) : make_(std::move(make)) {}

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return CreateAtBoundary(IID_IClassFactory, make_, iid, object);
  }
  // An unlock without a lock is E_UNEXPECTED.
  STDMETHODIMP LockServer(BOOL lock) noexcept override {
    if (lock == FALSE) return UnlockModule() ? S_OK : E_UNEXPECTED;
    LockModule();
    return S_OK;
  }

 private:
  const Make make_;
};

// Writes a new factory's interface `iid`.
template <class Make>
HRESULT CreateFactory(Make make, REFIID iid, void** factory) noexcept {
  return CreateAtBoundary(
      IID_IUnknown, [&] { return com_ptr<IClassFactory>::adopt(new ClassFactory<Make>(std::move(make))); }, iid,
      factory);
}

}  // namespace kodra::comkit
