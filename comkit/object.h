// The IUnknown of an object: its interfaces, its lifetime and its hold on the DLL.
//
// Interface is the object's own, Others are its further interfaces; as an IDispatch it is its Interface. The object
// starts with one reference, which belongs to its creator, and deletes itself with the last one.
//
//   class Sink final : public Object<IDispatch> { … };
//   com_ptr<IDispatch> sink = com_ptr<IDispatch>::adopt(new Sink);
#pragma once

#include <atomic>
#include <type_traits>

#include "comkit/module.h"

namespace kodra::comkit {

template <class Interface, class... Others>
class Object : public Interface, public Others... {
 public:
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** face) noexcept override {
    if (face == nullptr) return E_POINTER;
    *face = Find(iid);
    if (*face == nullptr) return E_NOINTERFACE;
    ++references_;
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) {
      // An object that the destructor releases may call back, which takes a reference and releases it again. That
      // release must not count down to zero a second time.
      references_ = kReferencesWhileDeleted;
      delete this;
    }
    return left;
  }

 protected:
  Object() = default;
  virtual ~Object() = default;

  // The face for that interface; null when the object has none. An object with further interfaces overrides it.
  virtual void* Find(REFIID iid) noexcept {
    constexpr bool kIsDispatch = std::is_base_of_v<IDispatch, Interface>;
    if (iid == IID_IUnknown || iid == __uuidof(Interface) || (kIsDispatch && iid == IID_IDispatch))
      return static_cast<Interface*>(this);
    void* face = nullptr;
    (void)(... || (iid == __uuidof(Others) && (face = static_cast<Others*>(this)) != nullptr));
    return face;
  }

 private:
  // More than any code takes.
  static constexpr ULONG kReferencesWhileDeleted = 0x40000000;

  ModuleLock lock_;
  std::atomic<ULONG> references_ = 1;
};

}  // namespace kodra::comkit
