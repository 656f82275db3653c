// Arguments of the wrong number, kind and type, as late-bound clients pass them.
#include "tests/wine/hostile_client.h"

namespace kodra::face {
namespace {

class HostileArguments : public Hostile {
 protected:
  static Outcome Invoke(const ReportCase& tested, const Subject& subject, const std::vector<VARIANT>& arguments,
                        const std::vector<DISPID>& names = {}) {
    return InvokeRaw(subject.report().get(), tested.method, DISPATCH_METHOD, arguments, names);
  }
};

TEST_F(HostileArguments, AMethodWithoutItsArgumentIsRefused) {
  ForEach(CasesOnStrings(), [](const ReportCase& tested, const Subject& subject) {
    const HRESULT hr = Invoke(tested, subject, {}).hr;
    EXPECT_TRUE(hr == DISP_E_BADPARAMCOUNT || hr == DISP_E_PARAMNOTOPTIONAL) << std::hex << hr;
  });
}

TEST_F(HostileArguments, AMethodWithTooManyArgumentsIsRefused) {
  ForEach(CasesOnStrings(), [](const ReportCase& tested, const Subject& subject) {
    const Var parameters(subject.parameters().get());
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, Invoke(tested, subject, {parameters.raw(), parameters.raw()}).hr);
    EXPECT_EQ(DISP_E_BADPARAMCOUNT,
              Invoke(tested, subject, {parameters.raw(), parameters.raw(), parameters.raw(), parameters.raw()}).hr);
  });
}

TEST_F(HostileArguments, AnObjectByReferenceIsTheObject) {
  ForEach(CasesOnStrings(), [](const ReportCase& tested, const Subject& subject) {
    IDispatch* object = subject.parameters().get();
    EXPECT_EQ(tested.Refused(), Invoke(tested, subject, {ByReference(&object)}).failure);
    VARIANT inside = Var(object).raw();
    EXPECT_EQ(tested.Refused(), Invoke(tested, subject, {ByReference(&inside)}).failure);
    EXPECT_EQ(subject.parameters().get(), object);
  });
}

TEST_F(HostileArguments, AReferenceThatLeadsToNoValueIsRefused) {
  InvalidReferences references;
  ForEach(CasesOnStrings(), [&](const ReportCase& tested, const Subject& subject) {
    for (const VARIANT& reference : references.All())
      EXPECT_EQ(DISP_E_TYPEMISMATCH, Invoke(tested, subject, {reference}).hr) << reference.vt;
  });
}

TEST_F(HostileArguments, AnObjectByNameIsTheObjectAndAnUnknownNameIsRefused) {
  ForEach(CasesOnStrings(), [](const ReportCase& tested, const Subject& subject) {
    const Var parameters(subject.parameters().get());
    EXPECT_EQ(tested.Refused(), Invoke(tested, subject, {parameters.raw()}, {0}).failure);
    const HRESULT hr = Invoke(tested, subject, {parameters.raw()}, {5}).hr;
    EXPECT_TRUE(hr == DISP_E_PARAMNOTFOUND || hr == DISP_E_PARAMNOTOPTIONAL || hr == DISP_E_BADPARAMCOUNT ||
                hr == DISP_E_NONAMEDARGS)
        << std::hex << hr;
  });
}

// Values that are not objects, two of them arrays.
class NonObjects {
 public:
  NonObjects() : array_(SafeArrayCreateVector(VT_VARIANT, 0, 3)), texts_(SafeArrayCreateVector(VT_BSTR, 0, 0)) {
    values_ = {Var(7), Var(2.5), Var(L"Owner"), Var(L""), Var(true), Var::Date(45000), Var::Null(), Var()};
  }
  NonObjects(const NonObjects&) = delete;
  NonObjects& operator=(const NonObjects&) = delete;
  ~NonObjects() {
    SafeArrayDestroy(array_);
    SafeArrayDestroy(texts_);
  }

  std::vector<VARIANT> All() const {
    std::vector<VARIANT> all;
    for (const Var& value : values_) all.push_back(value.raw());
    VARIANT v = {};
    v.vt = VT_ARRAY | VT_VARIANT;
    v.parray = array_;
    all.push_back(v);
    v.vt = VT_ARRAY | VT_BSTR;
    v.parray = texts_;
    all.push_back(v);
    return all;
  }

 private:
  SAFEARRAY* array_;
  SAFEARRAY* texts_;
  std::vector<Var> values_;
};

TEST_F(HostileArguments, AValueThatIsNoObjectIsRefusedAsAParameterObject) {
  const NonObjects values;
  ForEach(CasesOnStrings(), [&](const ReportCase& tested, const Subject& subject) {
    for (VARIANT value : values.All()) {
      EXPECT_EQ(DISP_E_TYPEMISMATCH, Invoke(tested, subject, {value}).hr) << value.vt;
      EXPECT_EQ(DISP_E_TYPEMISMATCH, Invoke(tested, subject, {ByReference(&value)}).hr) << value.vt;
    }
  });
}

TEST_F(HostileArguments, AnObjectWithoutMembersIsRefusedAsAParameterObject) {
  // A class factory is an object without an IDispatch.
  Ref<IClassFactory> factory;
  ASSERT_EQ(S_OK, CoGetClassObject(ClassId(kAboutClsid), CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                                   factory.put_void()));
  VARIANT value = {};
  value.vt = VT_UNKNOWN;
  value.punkVal = factory.get();
  ForEach(CasesOnStrings(), [&](const ReportCase& tested, const Subject& subject) {
    const Outcome outcome = Invoke(tested, subject, {value});
    EXPECT_TRUE(outcome.hr == DISP_E_TYPEMISMATCH || outcome.hr == E_NOINTERFACE) << std::hex << outcome.hr;
  });
}

TEST_F(HostileArguments, AMethodCannotBeAssignedAndAConnectionStringCannotBeAnObject) {
  ForEach(CasesOnStrings(), [](const ReportCase& tested, const Subject& subject) {
    const Var parameters(subject.parameters().get());
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, InvokeRaw(subject.report().get(), tested.method, DISPATCH_PROPERTYPUT,
                                               {parameters.raw()}, {DISPID_PROPERTYPUT})
                                         .hr);
    EXPECT_TRUE(FAILED(Put(subject.report(), L"StringConexao", parameters).hr));
  });
}

TEST_F(HostileArguments, APropertyRefusesAReferenceThatLeadsToNoValueAndKeepsItsValue) {
  InvalidReferences references;
  const auto object = Create(L"KodraRpt.CLogRptObj");
  const Properties properties = {{L"Owner", L"antes"}, {L"DataInicial", Var::Date(40179)}};
  for (const auto& [name, before] : properties) {
    ASSERT_EQ(S_OK, Put(object, name, before).hr);
    for (const VARIANT& reference : references.All())
      EXPECT_EQ(DISP_E_TYPEMISMATCH,
                InvokeRaw(object.get(), name, DISPATCH_PROPERTYPUT, {reference}, {DISPID_PROPERTYPUT}).hr)
          << reference.vt;
    EXPECT_EQ(before.text(), Got(Get(object, name)).text());
  }
}

TEST_F(HostileArguments, ATextPropertyRefusesAValueThatIsNoTextAndKeepsItsValue) {
  const NonObjects values;
  for (const ParameterEntry& entry : ParameterClasses()) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(entry.name)));
    const auto object = Create(std::wstring(L"KodraRpt.") + entry.name);
    ASSERT_EQ(S_OK, Put(object, L"Owner", L"antes").hr);
    for (VARIANT value : values.All()) {
      if ((value.vt & VT_ARRAY) == 0 && value.vt != VT_NULL) continue;
      EXPECT_EQ(DISP_E_TYPEMISMATCH,
                InvokeRaw(object.get(), L"Owner", DISPATCH_PROPERTYPUT, {value}, {DISPID_PROPERTYPUT}).hr)
          << value.vt;
    }
    EXPECT_TRUE(FAILED(Put(object, L"Owner", Var(object.get())).hr));
    EXPECT_TRUE(FAILED(Put(object, L"Owner", Var::Nothing()).hr));
    EXPECT_EQ(L"antes", Got(Get(object, L"Owner")).text());
    // An empty VARIANT becomes the empty text.
    EXPECT_EQ(S_OK, Put(object, L"Owner", Var()).hr);
    EXPECT_EQ(L"", Got(Get(object, L"Owner")).text());
  }
}

}  // namespace
}  // namespace kodra::face
