// A client that passes what no client should pass: raw arguments, and parameter objects that the test controls.
#pragma once

#include <functional>
#include <vector>

#include "tests/wine/client_object.h"
#include "tests/wine/faults_cases.h"
#include "tests/wine/server.h"

namespace kodra::face {

// Invokes a member with unchecked arguments in the order of DISPPARAMS: the named ones first, then from right to left.
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

// References that lead to no value: to null, to a reference to a VARIANT, to itself and in a circle.
class InvalidReferences {
 public:
  InvalidReferences() {
    nested_ = ByReference(&value_);
    self_ = ByReference(&self_);
    one_ = ByReference(&other_);
    other_ = ByReference(&one_);
  }
  InvalidReferences(const InvalidReferences&) = delete;
  InvalidReferences& operator=(const InvalidReferences&) = delete;

  std::vector<VARIANT> All() {
    std::vector<VARIANT> all = {ByReference(&nested_), ByReference(&self_), ByReference(&one_), self_};
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
  VARIANT one_ = {};
  VARIANT other_ = {};
};

// A client's own parameter object that has every property; the test decides what each reading returns.
class ScriptedParameters final : public ClientObject {
 public:
  // Fills the result or the EXCEPINFO and returns the call's HRESULT.
  using Answer = std::function<HRESULT(const std::wstring& property, VARIANT* result, EXCEPINFO* info)>;

  static Ref<IDispatch> New(Answer answer) { return Ref<IDispatch>::Owning(new ScriptedParameters(std::move(answer))); }
  // One whose properties all have this value.
  static Ref<IDispatch> Returning(const Var& value) {
    return New([value](const std::wstring&, VARIANT* result, EXCEPINFO*) { return value.CopyTo(result); });
  }
  // One whose properties all raise this error.
  static Ref<IDispatch> Failing(HRESULT hr) {
    return New([hr](const std::wstring&, VARIANT*, EXCEPINFO*) { return hr; });
  }
  // The number of these objects that exist.
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
  explicit ScriptedParameters(Answer answer) : answer_(std::move(answer)) { ++Alive(); }
  ~ScriptedParameters() override { --Alive(); }

  Answer answer_;
  std::vector<std::wstring> names_;
};

// The cases on a connection string, whose report creates its own connection.
inline std::vector<ReportCase> CasesOnStrings() {
  std::vector<ReportCase> cases = ReportCases();
  std::erase_if(cases, [](const ReportCase& tested) { return tested.onConexao; });
  return cases;
}
// Those of them that read properties of their parameter object.
inline std::vector<ReportCase> ReadingCases() {
  std::vector<ReportCase> cases = CasesOnStrings();
  std::erase_if(cases, [](const ReportCase& tested) { return tested.properties.empty(); });
  return cases;
}

// Expects after every test that no object of the component, of ADO, of the siblings and of the client is alive.
class Hostile : public testing::Test {
 protected:
  void TearDown() override {
    servers_.ExpectUnused();
    EXPECT_EQ(0, ScriptedParameters::Alive());
  }

  // Runs `body` with a report of each case and expects that the report works afterwards.
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
  const LoadedServers servers_;
};

}  // namespace kodra::face
