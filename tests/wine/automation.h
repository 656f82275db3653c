// Automation as a client in another language uses it: objects by name, members by name, and whole errors.
//
// The tests of the COM face, of ADO and of the siblings use these classes and functions and not comkit/, the code for
// COM that the tested DLLs are made of: nothing is checked with itself. The two resemble each other on purpose.
#pragma once

#include <gtest/gtest.h>
// clang-format off
#include <windows.h>
#include <ocidl.h>
#include <oleauto.h>
// clang-format on

#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/wine/error_numbers.h"

namespace kodra::face {

// One reference to a COM object. put() is for a function that writes a reference.
template <class T>
class Ref {
 public:
  Ref() = default;
  Ref(const Ref& other) : p_(other.p_) {
    if (p_ != nullptr) p_->AddRef();
  }
  Ref(Ref&& other) noexcept : p_(std::exchange(other.p_, nullptr)) {}
  Ref& operator=(Ref other) noexcept {
    std::swap(p_, other.p_);
    return *this;
  }
  ~Ref() {
    if (p_ != nullptr) p_->Release();
  }
  // Takes the caller's reference over.
  static Ref Owning(T* object) {
    Ref result;
    result.p_ = object;
    return result;
  }
  // Adds a reference to the caller's.
  static Ref Sharing(T* object) {
    if (object != nullptr) object->AddRef();
    return Owning(object);
  }

  T* get() const { return p_; }
  T* operator->() const { return p_; }
  explicit operator bool() const { return p_ != nullptr; }
  T** put() {
    *this = Ref();
    return &p_;
  }
  void** put_void() { return reinterpret_cast<void**>(put()); }
  // Releases the reference; returns how many the object has left.
  ULONG Release() { return std::exchange(p_, nullptr)->Release(); }
  // Null when the object has no such interface.
  template <class U>
  Ref<U> As() const {
    Ref<U> other;
    if (p_ != nullptr) p_->QueryInterface(__uuidof(U), other.put_void());
    return other;
  }

 private:
  T* p_ = nullptr;
};

// A BSTR that frees itself.
class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(const std::wstring& text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  ~Bstr() { SysFreeString(text_); }
  operator BSTR() const { return text_; }
  BSTR* put() {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }
  std::wstring text() const { return text_ == nullptr ? std::wstring() : std::wstring(text_, SysStringLen(text_)); }

 private:
  BSTR text_ = nullptr;
};

// A VARIANT that clears itself.
class Var {
 public:
  Var() { VariantInit(&v_); }
  Var(const std::wstring& text) : Var() {
    v_.vt = VT_BSTR;
    v_.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  }
  Var(const wchar_t* text) : Var(std::wstring(text)) {}
  Var(int number) : Var() {
    v_.vt = VT_I4;
    v_.lVal = number;
  }
  Var(double number) : Var() {
    v_.vt = VT_R8;
    v_.dblVal = number;
  }
  Var(bool flag) : Var() {
    v_.vt = VT_BOOL;
    v_.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
  }
  // A null pointer is "Nothing".
  Var(IDispatch* object) : Var() {
    v_.vt = VT_DISPATCH;
    v_.pdispVal = object;
    if (object != nullptr) object->AddRef();
  }
  static Var Date(double days) {
    Var result(days);
    result.v_.vt = VT_DATE;
    return result;
  }
  static Var Null() {
    Var result;
    result.v_.vt = VT_NULL;
    return result;
  }
  static Var Nothing() { return Var(static_cast<IDispatch*>(nullptr)); }
  // An optional argument that the caller leaves out.
  static Var Missing() {
    Var result;
    result.v_.vt = VT_ERROR;
    result.v_.scode = DISP_E_PARAMNOTFOUND;
    return result;
  }
  Var(const Var& other) : Var() { VariantCopy(&v_, const_cast<VARIANT*>(&other.v_)); }
  Var(Var&& other) noexcept : v_(other.v_) { VariantInit(&other.v_); }
  Var& operator=(Var other) noexcept {
    std::swap(v_, other.v_);
    return *this;
  }
  ~Var() { VariantClear(&v_); }

  VARTYPE type() const { return v_.vt; }
  const VARIANT& raw() const { return v_; }
  // For functions that take a VARIANT by value and leave its ownership to the caller, as ADO does.
  operator const VARIANT&() const { return v_; }
  // Makes the target, whose old value is cleared, a copy of this one.
  HRESULT CopyTo(VARIANT* target) const { return VariantCopy(target, const_cast<VARIANT*>(&v_)); }
  VARIANT* put() {
    VariantClear(&v_);
    return &v_;
  }
  Ref<IDispatch> object() const {
    return v_.vt == VT_DISPATCH ? Ref<IDispatch>::Sharing(v_.pdispVal) : Ref<IDispatch>();
  }
  // The value as a text in the invariant locale; nothing for a null.
  std::optional<std::wstring> text() const {
    if (v_.vt == VT_NULL) return std::nullopt;
    Var converted;
    if (FAILED(VariantChangeTypeEx(converted.put(), const_cast<VARIANT*>(&v_), LOCALE_INVARIANT, 0, VT_BSTR)))
      return L"(VARTYPE " + std::to_wstring(v_.vt) + L")";
    return std::wstring(converted.v_.bstrVal, SysStringLen(converted.v_.bstrVal));
  }
  // A value of any other type fails the test.
  int number() const {
    EXPECT_EQ(VT_I4, v_.vt);
    return v_.lVal;
  }

 private:
  VARIANT v_;
};

// A reference to a caller's variable, for an argument that is passed by reference.
inline VARIANT ByReference(IDispatch** object) {
  VARIANT v = {};
  v.vt = VT_BYREF | VT_DISPATCH;
  v.ppdispVal = object;
  return v;
}
inline VARIANT ByReference(VARIANT* variant) {
  VARIANT v = {};
  v.vt = VT_BYREF | VT_VARIANT;
  v.pvarVal = variant;
  return v;
}

// A whole error, from either kind of call.
struct Failure {
  HRESULT number = S_OK;
  std::wstring source;
  std::wstring description;
  bool operator==(const Failure&) const = default;
};
inline void PrintTo(const Failure& failure, std::ostream* out) {
  *out << std::hex << failure.number << std::dec << " " << testing::PrintToString(failure.source) << " "
       << testing::PrintToString(failure.description);
}

// The result of a call.
struct Outcome {
  HRESULT hr = E_UNEXPECTED;
  Var value;
  // The error that the called member raised; `hr` alone when the call failed before it reached the member.
  Failure failure;
};

// The error of a late-bound call. Frees the texts of the EXCEPINFO.
inline Failure TakeFailure(HRESULT hr, EXCEPINFO& info) {
  if (hr != DISP_E_EXCEPTION) return {hr, {}, {}};
  if (info.pfnDeferredFillIn != nullptr) info.pfnDeferredFillIn(&info);
  Bstr source;
  Bstr description;
  *source.put() = info.bstrSource;
  *description.put() = info.bstrDescription;
  SysFreeString(info.bstrHelpFile);
  return {info.scode, source.text(), description.text()};
}

// The error of an early-bound call: `hr` and the thread's IErrorInfo. REQUIRES: called right after the call.
inline Failure TakeFailure(HRESULT hr) {
  Failure failure{hr, {}, {}};
  Ref<IErrorInfo> info;
  if (GetErrorInfo(0, info.put()) != S_OK) return failure;
  Bstr source;
  Bstr description;
  info->GetSource(source.put());
  info->GetDescription(description.put());
  failure.source = source.text();
  failure.description = description.text();
  return failure;
}
// The same, when the object supports error information for the interface; `hr` alone otherwise.
template <class Interface>
Failure TakeFailure(HRESULT hr, const Ref<Interface>& object) {
  const auto support = object.template As<ISupportErrorInfo>();
  if (!support || support->InterfaceSupportsErrorInfo(__uuidof(Interface)) != S_OK) return {hr, {}, {}};
  return TakeFailure(hr);
}

// How an object of the test fails a late-bound call: fills the EXCEPINFO and returns the call's HRESULT.
inline HRESULT Raise(EXCEPINFO* info, HRESULT number, const wchar_t* source, const wchar_t* description) {
  info->scode = number;
  info->bstrSource = SysAllocString(source);
  info->bstrDescription = SysAllocString(description);
  return DISP_E_EXCEPTION;
}

// Leaves error information on the thread, as an early-bound call that fails does. Without a description it has none.
inline void LeaveErrorInfo(const wchar_t* source, const wchar_t* description) {
  Ref<ICreateErrorInfo> info;
  ASSERT_EQ(S_OK, CreateErrorInfo(info.put()));
  info->SetSource(Bstr(source));
  if (description != nullptr) info->SetDescription(Bstr(description));
  SetErrorInfo(0, info.As<IErrorInfo>().get());
}

// The DISPID of a member; DISPID_UNKNOWN when the object does not have it.
inline DISPID IdOf(IDispatch* object, const std::wstring& member) {
  std::wstring name = member;
  wchar_t* names[] = {name.data()};
  DISPID id = DISPID_UNKNOWN;
  if (object != nullptr) object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

// Invokes a member by its DISPID; the arguments are in the order in which a programmer writes them.
inline Outcome Invoke(IDispatch* object, DISPID id, WORD kind, const std::vector<Var>& arguments = {}) {
  Outcome outcome;
  std::vector<VARIANT> reversed;
  for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument)
    reversed.push_back(argument->raw());
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters = {reversed.data(), isPut ? &put : nullptr, static_cast<UINT>(reversed.size()),
                           isPut ? 1U : 0U};
  EXCEPINFO info = {};
  outcome.hr = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                              isPut ? nullptr : outcome.value.put(), &info, nullptr);
  if (FAILED(outcome.hr)) outcome.failure = TakeFailure(outcome.hr, info);
  return outcome;
}
// The same by the member's name.
inline Outcome Invoke(IDispatch* object, const std::wstring& member, WORD kind, const std::vector<Var>& arguments) {
  const DISPID id = IdOf(object, member);
  if (id != DISPID_UNKNOWN) return Invoke(object, id, kind, arguments);
  Outcome outcome;
  outcome.hr = DISP_E_UNKNOWNNAME;
  outcome.failure.number = DISP_E_UNKNOWNNAME;
  return outcome;
}

inline Outcome Get(const Ref<IDispatch>& object, const std::wstring& member) {
  return Invoke(object.get(), member, DISPATCH_PROPERTYGET, {});
}
inline Outcome Put(const Ref<IDispatch>& object, const std::wstring& member, const Var& value) {
  return Invoke(object.get(), member, DISPATCH_PROPERTYPUT, {value});
}
// Assigns an object itself, as a script's Set does.
inline Outcome PutRef(const Ref<IDispatch>& object, const std::wstring& member, const Ref<IDispatch>& value) {
  return Invoke(object.get(), member, DISPATCH_PROPERTYPUTREF, {Var(value.get())});
}
inline Outcome Call(const Ref<IDispatch>& object, const std::wstring& member, const std::vector<Var>& arguments = {}) {
  return Invoke(object.get(), member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
}

// The value of an operation that must succeed.
inline Var Got(Outcome outcome) {
  EXPECT_EQ(S_OK, outcome.hr) << testing::PrintToString(outcome.failure);
  return outcome.value;
}

// An object by ProgID, as CreateObject makes it; null when it cannot be made.
inline Ref<IDispatch> Create(const std::wstring& progId, HRESULT* failed = nullptr) {
  Ref<IDispatch> object;
  CLSID id;
  HRESULT hr = CLSIDFromProgID(progId.c_str(), &id);
  if (SUCCEEDED(hr)) hr = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.put_void());
  if (failed != nullptr) *failed = hr;
  return object;
}

// This thread's single-threaded apartment. REQUIRES: the thread has not entered one.
class Apartment {
 public:
  Apartment() { EXPECT_EQ(S_OK, CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment() { CoUninitialize(); }
};

}  // namespace kodra::face
