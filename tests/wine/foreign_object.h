// A client's own parameter object with one property.
#pragma once

#include <cwchar>
#include <functional>

#include "tests/wine/automation.h"
#include "tests/wine/client_object.h"

namespace kodra::face {

// An object with one readable property; the test decides what a reading returns.
class ForeignObject final : public ClientObject {
 public:
  // Fills the result or the EXCEPINFO and returns the call's HRESULT.
  using Answer = std::function<HRESULT(VARIANT* result, EXCEPINFO* info)>;

  static Ref<IDispatch> With(std::wstring property, Answer answer) {
    return Ref<IDispatch>::Owning(new ForeignObject(std::move(property), std::move(answer)));
  }
  static Ref<IDispatch> With(std::wstring property, const Var& value) {
    return With(std::move(property), [value](VARIANT* result, EXCEPINFO*) { return value.CopyTo(result); });
  }

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    *ids = _wcsicmp(names[0], property_.c_str()) == 0 ? kProperty : DISPID_UNKNOWN;
    return *ids == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS*, VARIANT* result, EXCEPINFO* info,
                      UINT*) override {
    if (id != kProperty || (kind & DISPATCH_PROPERTYGET) == 0) return DISP_E_MEMBERNOTFOUND;
    return answer_(result, info);
  }

 private:
  static constexpr DISPID kProperty = 7;

  ForeignObject(std::wstring property, Answer answer) : property_(std::move(property)), answer_(std::move(answer)) {}

  std::wstring property_;
  Answer answer_;
};

// An answer that raises an error.
inline ForeignObject::Answer Raising(HRESULT number, const wchar_t* source, const wchar_t* description) {
  return [=](VARIANT*, EXCEPINFO* info) { return Raise(info, number, source, description); };
}

}  // namespace kodra::face
