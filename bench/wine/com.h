// COM as a client in C++ uses it: early-bound, and through IDispatch for objects that have nothing else. Only the smart
// pointer is the component's own code.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include "ado/adoint.h"
#include "comkit/com_ptr.h"

namespace kodra::bench {

using comkit::com_ptr;

// Ends the benchmark when a call fails.
inline void Must(HRESULT hr, const char* what) {
  if (SUCCEEDED(hr)) return;
  char text[128];
  std::snprintf(text, sizeof text, "%s: %08lX", what, static_cast<unsigned long>(hr));
  throw std::runtime_error(text);
}

class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(const std::wstring& text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  ~Bstr() { SysFreeString(text_); }
  BSTR get() const { return text_; }
  BSTR* put() { return &text_; }
  std::wstring text() const { return text_ == nullptr ? std::wstring() : std::wstring(text_, SysStringLen(text_)); }

 private:
  BSTR text_ = nullptr;
};

class Var {
 public:
  Var() { VariantInit(&v_); }
  explicit Var(const std::wstring& text) : Var() {
    v_.vt = VT_BSTR;
    v_.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  }
  explicit Var(double number) : Var() {
    v_.vt = VT_R8;
    v_.dblVal = number;
  }
  explicit Var(bool flag) : Var() {
    v_.vt = VT_BOOL;
    v_.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
  }
  explicit Var(IDispatch* object) : Var() {
    v_.vt = VT_DISPATCH;
    v_.pdispVal = object;
    if (object != nullptr) object->AddRef();
  }
  static Var Date(double days) {
    Var result(days);
    result.v_.vt = VT_DATE;
    return result;
  }
  // An argument left out.
  static Var Missing() {
    Var result;
    result.v_.vt = VT_ERROR;
    result.v_.scode = DISP_E_PARAMNOTFOUND;
    return result;
  }
  Var(Var&& other) noexcept : v_(std::exchange(other.v_, VARIANT{})) {}
  Var& operator=(const Var&) = delete;
  ~Var() { VariantClear(&v_); }

  const VARIANT& raw() const { return v_; }
  VARIANT* put() {
    VariantClear(&v_);
    return &v_;
  }

 private:
  VARIANT v_;
};

template <class T>
com_ptr<T> Create(const wchar_t* progId) {
  CLSID id;
  Must(CLSIDFromProgID(progId, &id), "CLSIDFromProgID");
  com_ptr<T> object;
  Must(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(T), object.put_void()), "CoCreateInstance");
  return object;
}

// Invokes a member by name.
inline void Invoke(IDispatch* object, const wchar_t* member, WORD kind, VARIANT* arguments, UINT count,
                   VARIANT* result) {
  auto* name = const_cast<wchar_t*>(member);
  DISPID id = DISPID_UNKNOWN;
  Must(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), "GetIDsOfNames");
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut = kind == DISPATCH_PROPERTYPUT;
  DISPPARAMS parameters = {arguments, isPut ? &put : nullptr, count, isPut ? 1U : 0U};
  Must(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result, nullptr, nullptr), "Invoke");
}

inline Var Get(IDispatch* object, const wchar_t* member) {
  Var value;
  Invoke(object, member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, nullptr, 0, value.put());
  return value;
}

inline void Put(IDispatch* object, const wchar_t* member, const Var& value) {
  VARIANT argument = value.raw();
  Invoke(object, member, DISPATCH_PROPERTYPUT, &argument, 1, nullptr);
}

inline Var Call(IDispatch* object, const wchar_t* member, const Var& value) {
  VARIANT argument = value.raw();
  Var result;
  Invoke(object, member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &argument, 1, result.put());
  return result;
}

}  // namespace kodra::bench
