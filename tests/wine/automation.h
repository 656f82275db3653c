// Automation as a client in another language uses it: objects by name, members by name, and whole errors.
//
// The tests of the COM face use these few functions and not comkit/, the code for COM that the component is made of, so
// that nothing is checked with itself. They resemble each other on purpose.
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
  // Takes over the caller's reference.
  static Ref Owning(T* object) {
    Ref result;
    result.p_ = object;
    return result;
  }

  T* get() const { return p_; }
  T* operator->() const { return p_; }
  explicit operator bool() const { return p_ != nullptr; }
  T** put() {
    *this = Ref();
    return &p_;
  }
  void** put_void() { return reinterpret_cast<void**>(put()); }
  // Releases the reference; returns the object's count of those left.
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
  Var(const Var& other) : Var() { VariantCopy(&v_, const_cast<VARIANT*>(&other.v_)); }
  Var(Var&& other) noexcept : v_(other.v_) { VariantInit(&other.v_); }
  Var& operator=(Var other) noexcept {
    std::swap(v_, other.v_);
    return *this;
  }
  ~Var() { VariantClear(&v_); }

  VARTYPE type() const { return v_.vt; }
  const VARIANT& raw() const { return v_; }
  VARIANT* put() {
    VariantClear(&v_);
    return &v_;
  }
  Ref<IDispatch> object() const {
    if (v_.vt != VT_DISPATCH || v_.pdispVal == nullptr) return {};
    v_.pdispVal->AddRef();
    return Ref<IDispatch>::Owning(v_.pdispVal);
  }
  // As text, in no locale's format; nothing for a null.
  std::optional<std::wstring> text() const {
    if (v_.vt == VT_NULL) return std::nullopt;
    Var converted;
    if (FAILED(VariantChangeTypeEx(converted.put(), const_cast<VARIANT*>(&v_), LOCALE_INVARIANT, 0, VT_BSTR)))
      return L"(VARTYPE " + std::to_wstring(v_.vt) + L")";
    return std::wstring(converted.v_.bstrVal, SysStringLen(converted.v_.bstrVal));
  }
  int number() const { return v_.vt == VT_I4 ? v_.lVal : std::stoi(text().value_or(L"0")); }

 private:
  VARIANT v_;
};

// A whole error, from either kind of call.
struct Failure {
  unsigned long number = 0;
  std::wstring source;
  std::wstring description;
  bool operator==(const Failure&) const = default;
};
inline void PrintTo(const Failure& failure, std::ostream* out) {
  *out << std::hex << failure.number << std::dec << " " << testing::PrintToString(failure.source) << " "
       << testing::PrintToString(failure.description);
}

struct Outcome {
  HRESULT hr = E_UNEXPECTED;
  Var value;
  // The content of the EXCEPINFO; the number is `hr` when the call did not get as far as raising.
  Failure failure;
};

inline Failure TakeFailure(HRESULT hr, EXCEPINFO& info) {
  if (hr != DISP_E_EXCEPTION) return {static_cast<unsigned long>(hr), {}, {}};
  if (info.pfnDeferredFillIn != nullptr) info.pfnDeferredFillIn(&info);
  Bstr source;
  Bstr description;
  *source.put() = info.bstrSource;
  *description.put() = info.bstrDescription;
  SysFreeString(info.bstrHelpFile);
  return {static_cast<unsigned long>(info.scode), source.text(), description.text()};
}

// The error that the last vtable call on `object` left: `hr` and the IErrorInfo, if the object supports it.
template <class Interface>
Failure TakeFailure(HRESULT hr, const Ref<Interface>& object) {
  Failure failure{static_cast<unsigned long>(hr), {}, {}};
  const auto support = object.template As<ISupportErrorInfo>();
  if (!support || support->InterfaceSupportsErrorInfo(__uuidof(Interface)) != S_OK) return failure;
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

inline DISPID IdOf(IDispatch* object, const std::wstring& member) {
  std::wstring name = member;
  wchar_t* names[] = {name.data()};
  DISPID id = DISPID_UNKNOWN;
  if (object != nullptr) object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

// Invokes a member by name; the arguments are in the order in which they are written.
inline Outcome Invoke(IDispatch* object, const std::wstring& member, WORD kind, std::vector<Var> arguments) {
  Outcome outcome;
  const DISPID id = IdOf(object, member);
  if (id == DISPID_UNKNOWN) {
    outcome.hr = DISP_E_UNKNOWNNAME;
    outcome.failure.number = static_cast<unsigned long>(DISP_E_UNKNOWNNAME);
    return outcome;
  }
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
inline Outcome Call(const Ref<IDispatch>& object, const std::wstring& member, std::vector<Var> arguments = {}) {
  return Invoke(object.get(), member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(arguments));
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

}  // namespace kodra::face
