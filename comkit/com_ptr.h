// An owned reference to a COM interface: the only place that calls AddRef and Release.
//
//   com_ptr<IDispatch> object;
//   Check(source->QueryInterface(IID_IDispatch, object.put_void()));
//   com_ptr<_Recordset> rows = object.as<_Recordset>();   // null when it has no such interface
#pragma once

#include <utility>

#include "comkit/automation_headers.h"

namespace kodra::comkit {

template <class T>
class com_ptr {
 public:
  com_ptr() noexcept = default;
  com_ptr(std::nullptr_t) noexcept {}
  // Shares the interface: adds a reference of its own.
  explicit com_ptr(T* shared) noexcept : p_(shared) { add_ref(); }
  com_ptr(const com_ptr& other) noexcept : p_(other.p_) { add_ref(); }
  com_ptr(com_ptr&& other) noexcept : p_(std::exchange(other.p_, nullptr)) {}
  ~com_ptr() { release(); }

  com_ptr& operator=(com_ptr other) noexcept {
    std::swap(p_, other.p_);
    return *this;
  }

  // Takes over a reference that the caller owns.
  static com_ptr adopt(T* owned) noexcept {
    com_ptr result;
    result.p_ = owned;
    return result;
  }

  T* get() const noexcept { return p_; }
  T* operator->() const noexcept { return p_; }
  explicit operator bool() const noexcept { return p_ != nullptr; }

  // For a function that writes an interface with a reference for the caller; the old one is released first.
  T** put() noexcept {
    release();
    p_ = nullptr;
    return &p_;
  }
  void** put_void() noexcept { return reinterpret_cast<void**>(put()); }

  // Passes the reference on to the caller.
  T* detach() noexcept { return std::exchange(p_, nullptr); }
  // Writes a further reference where a caller expects one.
  void copy_to(T** out) const noexcept {
    add_ref();
    *out = p_;
  }

  // The same object by another interface; null when it has none. `iid` is for a U that declares no id.
  template <class U>
  com_ptr<U> as(REFIID iid = __uuidof(U)) const noexcept {
    com_ptr<U> other;
    // A pointer that a refusal leaves there is not a reference.
    if (p_ != nullptr && FAILED(p_->QueryInterface(iid, other.put_void()))) other.detach();
    return other;
  }

 private:
  void add_ref() const noexcept {
    if (p_ != nullptr) p_->AddRef();
  }
  void release() noexcept {
    if (T* old = std::exchange(p_, nullptr)) old->Release();
  }

  T* p_ = nullptr;
};

}  // namespace kodra::comkit
