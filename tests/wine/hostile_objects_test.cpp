// Parameter objects that raise errors, return wrong values, call the report that reads them, or release it and
// themselves.
#include "tests/wine/hostile_client.h"

namespace kodra::face {
namespace {

const Failure kMismatch = {kTypeMismatch, L"KodraRpt", L"Tipos incompatíveis"};
const Failure kBareError = {kNumberWithoutText, L"KodraRpt", L"Erro de automação (80047777)"};

// An array of two VARIANTs.
Var ArrayOfTwo() {
  Var result;
  VARIANT* const raw = result.put();
  raw->parray = SafeArrayCreateVector(VT_VARIANT, 0, 2);
  raw->vt = VT_ARRAY | VT_VARIANT;
  return result;
}

class HostileObjects : public Hostile {
 protected:
  static Outcome Run(const ReportCase& tested, const Subject& subject, const Ref<IDispatch>& parameters) {
    return Call(subject.report(), tested.method, {Var(parameters.get())});
  }
  // The error that the client gets for an error of its own parameter object.
  static Failure Framed(const ReportCase& tested, const Failure& cause) {
    if (tested.HasNoFrame()) return cause;
    const bool namesCause = tested.IsOf(L"CCaixaRpt") && cause.source != L"KodraRpt";
    return {kReportError, namesCause ? cause.source : tested.Source(),
            L"Erro ao gerar dados para o relatório: " + cause.description};
  }
  // Returns the value that the property has in the case's own parameter object.
  static HRESULT ReturnProperty(const ReportCase& tested, const std::wstring& property, VARIANT* result) {
    Var value(L"");
    if (property.starts_with(L"Data")) value = Var::Date(40179);
    if (property == L"SomenteExistentes" || property == L"ModoPregresso" || property == L"ListarJaDevolvidos")
      value = Var(false);
    for (const auto& [name, given] : tested.properties)
      if (property == name) value = given;
    return value.CopyTo(result);
  }
};

TEST_F(HostileObjects, WhatTheyRaiseIsTheCauseThatTheClientGets) {
  const Failure raised = {kNumberWithoutText, L"Cliente.Filtro", L"Sem permissão."};
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    const auto raising = ScriptedParameters::New([](const std::wstring&, VARIANT*, EXCEPINFO* info) {
      return Raise(info, kNumberWithoutText, L"Cliente.Filtro", L"Sem permissão.");
    });
    EXPECT_EQ(Framed(tested, raised), Run(tested, subject, raising).failure);
  });
}

TEST_F(HostileObjects, ABareErrorIsTheCauseToo) {
  const std::vector<std::pair<HRESULT, Failure>> errors = {
      {kNumberWithoutText, kBareError},
      {E_OUTOFMEMORY, {kOutOfMemory, L"KodraRpt", L"Memória insuficiente"}},
      {DISP_E_TYPEMISMATCH, kMismatch},
      {DISP_E_OVERFLOW, {kOverflow, L"KodraRpt", L"Estouro"}},
  };
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    for (const auto& [hr, cause] : errors)
      EXPECT_EQ(Framed(tested, cause), Run(tested, subject, ScriptedParameters::Failing(hr)).failure);
  });
}

TEST_F(HostileObjects, ValuesThatNoPropertyHasAreRefused) {
  const auto object = Create(L"KodraRpt.CDeptoRptObj");
  const std::vector<std::pair<Var, Failure>> values = {
      {Var::Null(), {kInvalidUseOfNull, L"KodraRpt", L"Uso de 'Null' inválido"}},
      {Var::Nothing(),
       {kObjectNotSet, L"KodraRpt", L"A variável do objeto ou a variável do bloco 'With' não foi definida"}},
      {Var(object.get()), {kNoSuchMember, L"KodraRpt", L"O objeto não aceita esta propriedade ou método"}},
      {ArrayOfTwo(), kMismatch},
      {Var::Missing(), kMismatch},
  };
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    for (const auto& [value, cause] : values)
      EXPECT_EQ(Framed(tested, cause), Run(tested, subject, ScriptedParameters::Returning(value)).failure);
  });
}

TEST_F(HostileObjects, ReferencesThatLeadToNoValueAreMismatches) {
  InvalidReferences references;
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    for (const VARIANT& reference : references.All()) {
      const auto answering = ScriptedParameters::New([&](const std::wstring&, VARIANT* result, EXCEPINFO*) {
        *result = reference;
        return S_OK;
      });
      EXPECT_EQ(Framed(tested, kMismatch), Run(tested, subject, answering).failure) << reference.vt;
    }
    const auto circular = ScriptedParameters::New([](const std::wstring&, VARIANT* result, EXCEPINFO*) {
      *result = ByReference(result);
      return S_OK;
    });
    EXPECT_EQ(Framed(tested, kMismatch), Run(tested, subject, circular).failure);
  });
}

TEST_F(HostileObjects, TheyMayRunTheSameReportWhileItReadsThem) {
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    int calls = 0;
    const auto reentrant = ScriptedParameters::New([&](const std::wstring& property, VARIANT* result, EXCEPINFO*) {
      ++calls;
      subject.ExpectToWork();
      return ReturnProperty(tested, property, result);
    });
    EXPECT_EQ(tested.Refused(), Run(tested, subject, reentrant).failure);
    EXPECT_LT(0, calls);
  });
}

TEST_F(HostileObjects, TheyMayChangeTheConnectionStringOfTheReportThatReadsThem) {
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    // Each text is longer than the one before, so that the report has to allocate it anew.
    std::wstring text = archive_.Connection();
    const auto changing = ScriptedParameters::New([&](const std::wstring& property, VARIANT* result, EXCEPINFO*) {
      text += L";Timeout=1000" + std::wstring(500, L' ');
      EXPECT_EQ(S_OK, Put(subject.report(), L"StringConexao", text).hr);
      return ReturnProperty(tested, property, result);
    });
    EXPECT_EQ(tested.Refused(), Run(tested, subject, changing).failure);
    EXPECT_EQ(S_OK, Put(subject.report(), L"StringConexao", archive_.Connection()).hr);
  });
}

TEST_F(HostileObjects, TheyMayEmptyTheConnectionStringWhichFailsTheCall) {
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    const auto emptying = ScriptedParameters::New([&](const std::wstring& property, VARIANT* result, EXCEPINFO*) {
      EXPECT_EQ(S_OK, Put(subject.report(), L"StringConexao", L"").hr);
      return ReturnProperty(tested, property, result);
    });
    const Outcome outcome = Run(tested, subject, emptying);
    EXPECT_TRUE(FAILED(outcome.hr));
    EXPECT_FALSE(outcome.value.object());
    EXPECT_EQ(S_OK, Put(subject.report(), L"StringConexao", archive_.Connection()).hr);
  });
}

TEST_F(HostileObjects, TheyLiveUntilTheReportHasReadThem) {
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    Ref<IDispatch> parameters;
    parameters = ScriptedParameters::New([&](const std::wstring& property, VARIANT* result, EXCEPINFO*) {
      parameters = {};
      return ReturnProperty(tested, property, result);
    });
    // The argument has no reference of its own, as when a script passes its variable.
    VARIANT argument = {};
    argument.vt = VT_DISPATCH;
    argument.pdispVal = parameters.get();
    EXPECT_EQ(tested.Refused(), InvokeRaw(subject.report().get(), tested.method, DISPATCH_METHOD, {argument}).failure);
    EXPECT_FALSE(parameters);
    EXPECT_EQ(0, ScriptedParameters::Alive());
  });
}

TEST_F(HostileObjects, TheReportLivesUntilItsCallIsOver) {
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject&) {
    Ref<IDispatch> report = tested.NewReport();
    ASSERT_EQ(S_OK, Put(report, L"StringConexao", archive_.Connection()).hr);
    const auto releasing = ScriptedParameters::New([&](const std::wstring& property, VARIANT* result, EXCEPINFO*) {
      report = {};
      return ReturnProperty(tested, property, result);
    });
    const Var argument(releasing.get());
    EXPECT_EQ(tested.Refused(), InvokeRaw(report.get(), tested.method, DISPATCH_METHOD, {argument.raw()}).failure);
    EXPECT_FALSE(report);
  });
}

TEST_F(HostileObjects, BothMayBeReleasedDuringACallThatFails) {
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject&) {
    Ref<IDispatch> report = tested.NewReport();
    ASSERT_EQ(S_OK, Put(report, L"StringConexao", archive_.Connection()).hr);
    Ref<IDispatch> parameters = ScriptedParameters::New([&](const std::wstring&, VARIANT*, EXCEPINFO*) {
      report = {};
      parameters = {};
      return kNumberWithoutText;
    });
    VARIANT argument = {};
    argument.vt = VT_DISPATCH;
    argument.pdispVal = parameters.get();
    EXPECT_EQ(Framed(tested, kBareError), InvokeRaw(report.get(), tested.method, DISPATCH_METHOD, {argument}).failure);
    EXPECT_EQ(0, ScriptedParameters::Alive());
  });
}

}  // namespace
}  // namespace kodra::face
