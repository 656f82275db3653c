// Objects of the test in place of sibling components. The report creates them by ProgID.
//
//   const auto calls = std::make_shared<Texts>();
//   const StandIn reader(L"KodraRegEvt.RegEvtDAO", [&] { return RecordingObject::New(L"DAO", calls, answer); });
//   ... the report creates it by ProgID, and `*calls` contains the report's calls ...
#pragma once

#include <algorithm>
#include <cwchar>
#include <functional>
#include <memory>

#include "tests/wine/client_object.h"
#include "tests/wine/rows.h"

namespace kodra::face {

// A value as text, a date as "2024-05-31 08:30:00".
inline std::wstring TextOf(const Var& value) {
  SYSTEMTIME time;
  if (value.type() != VT_DATE || !VariantTimeToSystemTime(value.raw().date, &time))
    return value.text().value_or(L"(null)");
  wchar_t text[32];
  swprintf(text, 32, L"%04u-%02u-%02u %02u:%02u:%02u", time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute,
           time.wSecond);
  return text;
}

// An object that has every member and records each use: "DAO.Caller := 'texto'", "DAO.Localiza (object)". Its end is
// recorded as "DAO gone".
class RecordingObject final : public ClientObject {
 public:
  // Called when a member is read or called, not when it is assigned: fills the result or the EXCEPINFO.
  using Answer = std::function<HRESULT(const std::wstring& member, const std::vector<Var>& arguments, VARIANT* result,
                                       EXCEPINFO* info)>;

  static Ref<IDispatch> New(std::wstring name, std::shared_ptr<Texts> calls, Answer answer = {}) {
    return Ref<IDispatch>::Owning(new RecordingObject(std::move(name), std::move(calls), std::move(answer)));
  }

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    const auto found = std::find(members_.begin(), members_.end(), names[0]);
    *ids = static_cast<DISPID>(found - members_.begin()) + 1;
    if (found == members_.end()) members_.emplace_back(names[0]);
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                      UINT*) override {
    if (id < 1 || static_cast<std::size_t>(id) > members_.size()) return DISP_E_MEMBERNOTFOUND;
    const std::wstring& member = members_[static_cast<std::size_t>(id) - 1];
    std::vector<Var> arguments(parameters->cArgs);
    for (UINT i = 0; i < parameters->cArgs; ++i)
      VariantCopyInd(arguments[parameters->cArgs - 1 - i].put(), &parameters->rgvarg[i]);
    // Both kinds of assignment must name their value: a class with a type library accepts no other call.
    const bool isPut = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    EXPECT_EQ(isPut ? 1U : 0U, parameters->cNamedArgs) << testing::PrintToString(member);
    if (isPut && parameters->cNamedArgs == 1) {
      EXPECT_EQ(DISPID_PROPERTYPUT, parameters->rgdispidNamedArgs[0]);
    }
    std::wstring call = name_ + L"." + member;
    if ((kind & DISPATCH_PROPERTYPUTREF) != 0)
      call += L" Set " + Shown(arguments.at(0));
    else if ((kind & DISPATCH_PROPERTYPUT) != 0)
      call += L" := " + Shown(arguments.at(0));
    else
      for (const Var& argument : arguments) call += L" " + Shown(argument);
    calls_->push_back(call);
    if (isPut || !answer_) return S_OK;
    return answer_(member, arguments, result, info);
  }

 private:
  RecordingObject(std::wstring name, std::shared_ptr<Texts> calls, Answer answer)
      : name_(std::move(name)), calls_(std::move(calls)), answer_(std::move(answer)) {}
  ~RecordingObject() override { calls_->push_back(name_ + L" gone"); }

  static std::wstring Shown(const Var& value) {
    if (value.type() == VT_DISPATCH) return value.object() ? L"(object)" : L"(nothing)";
    if (value.type() == VT_BOOL) return value.raw().boolVal == VARIANT_FALSE ? L"False" : L"True";
    if (value.type() == VT_BSTR) return L"'" + value.text().value() + L"'";
    return TextOf(value);
  }

  std::wstring name_;
  std::shared_ptr<Texts> calls_;
  Answer answer_;
  Texts members_;
};

// While it exists, this process gets the objects of a ProgID from `create`.
class StandIn {
 public:
  using Creator = std::function<Ref<IDispatch>()>;

  StandIn(const std::wstring& progId, Creator create) : StandIn(progId, std::move(create), S_OK) {}
  // Every creation fails with this code. With S_OK, it succeeds without an object.
  StandIn(const std::wstring& progId, HRESULT failure) : StandIn(progId, {}, failure) {}
  StandIn(const StandIn&) = delete;
  StandIn& operator=(const StandIn&) = delete;
  ~StandIn() { EXPECT_EQ(S_OK, CoRevokeClassObject(cookie_)); }

 private:
  StandIn(const std::wstring& progId, Creator create, HRESULT failure) {
    CLSID id = {};
    EXPECT_EQ(S_OK, CLSIDFromProgID(progId.c_str(), &id));
    const auto factory = Ref<Factory>::Owning(new Factory(std::move(create), failure));
    EXPECT_EQ(S_OK, CoRegisterClassObject(id, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_));
  }

  class Factory final : public CountedObject<IClassFactory> {
   public:
    Factory(Creator create, HRESULT failure) : create_(std::move(create)), failure_(failure) {}

    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** object) override {
      *object = nullptr;
      if (!create_) return failure_;
      return create_()->QueryInterface(iid, object);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

   private:
    Creator create_;
    HRESULT failure_;
  };

  DWORD cookie_ = 0;
};

}  // namespace kodra::face
