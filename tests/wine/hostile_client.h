// A client that passes what no client should: raw arguments, and unruly parameter objects.
#pragma once

#include <functional>
#include <vector>

#include "tests/wine/client_object.h"
#include "tests/wine/faults_cases.h"
#include "tests/wine/server.h"

namespace kodra::face {

// Invokes a member with unchecked arguments, the named ones first; both are in the order that Invoke takes.
inline Outcome InvokeRaw(IDispatch* object, const std::wstring& member, WORD kind, std::vector<VARIANT> arguments,
                         std::vector<DISPID> names = {}) {
  Outcome outcome;
  DISPPARAMS parameters = {arguments.data(), names.data(), static_cast<UINT>(arguments.size()),
                           static_cast<UINT>(names.size())};
  EXCEPINFO info = {};
  UINT wrong = 0;
  const bool isPut = (kind & DISPATCH_PROPERTYPUT) != 0;
  outcome.hr = object->Invoke(IdOf(object, member), IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                              isPut ? nullptr : outcome.value.put(), &info, &wrong);
  if (FAILED(outcome.hr)) outcome.failure = TakeFailure(outcome.hr, info);
  return outcome;
}

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

// References that lead to no value: to nothing, to a reference to a VARIANT, to themselves and in a circle. The tests
// that pass them on may not copy this.
class Nowhere {
 public:
  Nowhere() {
    nested_ = ByReference(&value_);
    self_ = ByReference(&self_);
    there_ = ByReference(&back_);
    back_ = ByReference(&there_);
  }
  Nowhere(const Nowhere&) = delete;
  Nowhere& operator=(const Nowhere&) = delete;

  std::vector<VARIANT> All() {
    std::vector<VARIANT> all = {ByReference(&nested_), ByReference(&self_), ByReference(&there_), self_};
    for (const VARTYPE type : {VT_VARIANT, VT_DISPATCH, VT_UNKNOWN, VT_BSTR, VT_I4, VT_DATE}) {
      VARIANT v = {};
      v.vt = VT_BYREF | type;
      all.push_back(v);
    }
    return all;
  }

 private:
  VARIANT value_ = {};
  VARIANT nested_ = {};
  VARIANT self_ = {};
  VARIANT there_ = {};
  VARIANT back_ = {};
};

// A parameter object of the client's own: it has every property, and decides what each reading returns.
class WilfulObject final : public ClientObject {
 public:
  // Fills the result or the EXCEPINFO and returns the call's HRESULT.
  using Answer = std::function<HRESULT(const std::wstring& property, VARIANT* result, EXCEPINFO* info)>;

  static Ref<IDispatch> New(Answer answer) { return Ref<IDispatch>::Owning(new WilfulObject(std::move(answer))); }
  static Ref<IDispatch> Giving(const Var& value) {
    return New([value](const std::wstring&, VARIANT* result, EXCEPINFO*) {
      return VariantCopy(result, const_cast<VARIANT*>(&value.raw()));
    });
  }
  // How many exist.
  static int& Alive() {
    static int alive = 0;
    return alive;
  }

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    names_.emplace_back(names[0]);
    *ids = static_cast<DISPID>(names_.size());
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO* info, UINT*) override {
    if (id < 1 || static_cast<std::size_t>(id) > names_.size()) return DISP_E_MEMBERNOTFOUND;
    // The answer may release this object.
    const Answer answer = answer_;
    return answer(names_[static_cast<std::size_t>(id) - 1], result, info);
  }

 private:
  explicit WilfulObject(Answer answer) : answer_(std::move(answer)) { ++Alive(); }
  ~WilfulObject() override { --Alive(); }

  Answer answer_;
  std::vector<std::wstring> names_;
};

// The reports that read a property of their parameter object, each with the property's name.
inline std::vector<ReportCase> ReadingCases() {
  std::vector<ReportCase> cases = ReportCases();
  std::erase_if(cases, [](const ReportCase& tested) { return tested.onConexao || tested.properties.empty(); });
  return cases;
}

// After every test no object of the component, of ADO, of the siblings and of the client is alive.
class Hostile : public testing::Test {
 protected:
  void TearDown() override {
    for (const Server* server : {&component_, &ado_, &siblings_}) EXPECT_EQ(S_OK, server->CanUnloadNow());
    EXPECT_EQ(0, WilfulObject::Alive());
  }

  // Runs a body on each case, with a report that must work afterwards.
  void ForEach(const std::vector<ReportCase>& cases,
               const std::function<void(const ReportCase&, const Subject&)>& body) {
    for (const ReportCase& tested : cases) {
      SCOPED_TRACE(testing::PrintToString(tested.Source()));
      const Subject subject(tested, archive_.Connection());
      body(tested, subject);
      subject.ExpectToWork();
      if (HasFailure()) return;
    }
  }

  const SmallArchive archive_;

 private:
  const Server component_;
  const Server ado_{WindowsPath(Variable(L"KODRA_BIN")) + L"\\kodra_ado.dll"};
  const Server siblings_{WindowsPath(Variable(L"KODRA_BIN")) + L"\\kodra_siblings.dll"};
};

}  // namespace kodra::face
