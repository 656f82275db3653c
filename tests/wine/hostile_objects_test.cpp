// Parameter objects that raise, return nonsense, call back into the report that reads them, or are released with it.
#include "tests/wine/hostile_client.h"

namespace kodra::face {
namespace {

class HostileObjects : public Hostile {
 protected:
  static Outcome Run(const ReportCase& tested, const Subject& subject, const Ref<IDispatch>& parameters) {
    return Call(subject.report(), tested.method, {Var(parameters.get())});
  }
  // The error that the client gets for an error of its own parameter object.
  static Failure Framed(const ReportCase& tested, const Failure& cause) {
    if (tested.method == std::wstring(L"DocsNoModuloSubRpt")) return cause;
    const bool namesCause = tested.report == std::wstring(L"CCaixaRpt") && cause.source != L"KodraRpt";
    return {0x80041FAB, namesCause ? cause.source : tested.Source(),
            L"Erro ao gerar dados para o relatório: " + cause.description};
  }
  // Answers as the case's own parameters do.
  static HRESULT AnswerAs(const ReportCase& tested, const std::wstring& property, VARIANT* result) {
    Var value(L"");
    if (property.starts_with(L"Data")) value = Var::Date(40179);
    if (property == L"SomenteExistentes" || property == L"ModoPregresso" || property == L"ListarJaDevolvidos")
      value = Var(false);
    for (const auto& [name, given] : tested.properties)
      if (property == name) value = given;
    return VariantCopy(result, const_cast<VARIANT*>(&value.raw()));
  }
};

TEST_F(HostileObjects, WhatTheyRaiseIsTheCauseThatTheClientGets) {
  const Failure raised = {0x80047777, L"Cliente.Filtro", L"Sem permissão."};
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    const auto raising = WilfulObject::New([](const std::wstring&, VARIANT*, EXCEPINFO* info) {
      info->scode = static_cast<SCODE>(0x80047777);
      info->bstrSource = SysAllocString(L"Cliente.Filtro");
      info->bstrDescription = SysAllocString(L"Sem permissão.");
      return DISP_E_EXCEPTION;
    });
    EXPECT_EQ(Framed(tested, raised), Run(tested, subject, raising).failure);
  });
}

TEST_F(HostileObjects, ABareErrorIsTheCauseToo) {
  const std::vector<std::pair<HRESULT, Failure>> errors = {
      {static_cast<HRESULT>(0x80047777), {0x80047777, L"KodraRpt", L"Erro de automação (80047777)"}},
      {E_OUTOFMEMORY, {0x800A0007, L"KodraRpt", L"Memória insuficiente"}},
      {DISP_E_TYPEMISMATCH, {0x800A000D, L"KodraRpt", L"Tipos incompatíveis"}},
      {DISP_E_OVERFLOW, {0x800A0006, L"KodraRpt", L"Estouro"}},
  };
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    for (const auto& [hr, cause] : errors) {
      const auto raising = WilfulObject::New([hr = hr](const std::wstring&, VARIANT*, EXCEPINFO*) { return hr; });
      EXPECT_EQ(Framed(tested, cause), Run(tested, subject, raising).failure);
    }
  });
}

TEST_F(HostileObjects, ValuesThatNoPropertyHasAreRefused) {
  VARIANT array = {};
  array.vt = VT_ARRAY | VT_VARIANT;
  array.parray = SafeArrayCreateVector(VT_VARIANT, 0, 2);
  const Failure mismatch = {0x800A000D, L"KodraRpt", L"Tipos incompatíveis"};
  const auto live = Create(L"KodraRpt.CDeptoRptObj");
  const std::vector<std::pair<Var, Failure>> values = {
      {Var::Null(), {0x800A005E, L"KodraRpt", L"Uso de 'Null' inválido"}},
      {Var(static_cast<IDispatch*>(nullptr)),
       {0x800A005B, L"KodraRpt", L"A variável do objeto ou a variável do bloco 'With' não foi definida"}},
      {Var(live.get()), {0x800A01B6, L"KodraRpt", L"O objeto não aceita esta propriedade ou método"}},
  };
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    for (const auto& [value, cause] : values)
      EXPECT_EQ(Framed(tested, cause), Run(tested, subject, WilfulObject::Giving(value)).failure);
    const auto arrays = WilfulObject::New(
        [&](const std::wstring&, VARIANT* result, EXCEPINFO*) { return VariantCopy(result, &array); });
    EXPECT_EQ(Framed(tested, mismatch), Run(tested, subject, arrays).failure);
    const auto missing = WilfulObject::New([](const std::wstring&, VARIANT* result, EXCEPINFO*) {
      result->vt = VT_ERROR;
      result->scode = DISP_E_PARAMNOTFOUND;
      return S_OK;
    });
    EXPECT_EQ(Framed(tested, mismatch), Run(tested, subject, missing).failure);
  });
  SafeArrayDestroy(array.parray);
}

TEST_F(HostileObjects, ReferencesThatLeadToNoValueAreMismatches) {
  Nowhere nowhere;
  const Failure mismatch = {0x800A000D, L"KodraRpt", L"Tipos incompatíveis"};
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    for (const VARIANT& reference : nowhere.All()) {
      const auto answering = WilfulObject::New([&](const std::wstring&, VARIANT* result, EXCEPINFO*) {
        *result = reference;
        return S_OK;
      });
      EXPECT_EQ(Framed(tested, mismatch), Run(tested, subject, answering).failure) << reference.vt;
    }
    const auto circular = WilfulObject::New([](const std::wstring&, VARIANT* result, EXCEPINFO*) {
      *result = ByReference(result);
      return S_OK;
    });
    EXPECT_EQ(Framed(tested, mismatch), Run(tested, subject, circular).failure);
  });
}

TEST_F(HostileObjects, TheyMayRunTheSameReportWhileItReadsThem) {
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    int calls = 0;
    const auto reentrant = WilfulObject::New([&](const std::wstring& property, VARIANT* result, EXCEPINFO*) {
      ++calls;
      subject.ExpectToWork();
      return AnswerAs(tested, property, result);
    });
    EXPECT_EQ(tested.Refused(), Run(tested, subject, reentrant).failure);
    EXPECT_LT(0, calls);
  });
}

TEST_F(HostileObjects, TheyMayChangeTheConnectionStringOfTheReportThatReadsThem) {
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    // Longer each time, so that the report's own text moves.
    std::wstring text = archive_.Connection();
    const auto changing = WilfulObject::New([&](const std::wstring& property, VARIANT* result, EXCEPINFO*) {
      text += L";Timeout=1000" + std::wstring(500, L' ');
      EXPECT_EQ(S_OK, Put(subject.report(), L"StringConexao", text).hr);
      return AnswerAs(tested, property, result);
    });
    EXPECT_EQ(tested.Refused(), Run(tested, subject, changing).failure);
    EXPECT_EQ(S_OK, Put(subject.report(), L"StringConexao", archive_.Connection()).hr);
  });
}

TEST_F(HostileObjects, TheyMayEmptyTheConnectionStringAndTheNextCallSaysSo) {
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    const auto taking = WilfulObject::New([&](const std::wstring& property, VARIANT* result, EXCEPINFO*) {
      EXPECT_EQ(S_OK, Put(subject.report(), L"StringConexao", L"").hr);
      return AnswerAs(tested, property, result);
    });
    const Outcome outcome = Run(tested, subject, taking);
    EXPECT_TRUE(FAILED(outcome.hr));
    EXPECT_FALSE(outcome.value.object());
    EXPECT_EQ(S_OK, Put(subject.report(), L"StringConexao", archive_.Connection()).hr);
  });
}

TEST_F(HostileObjects, TheyLiveUntilTheReportHasReadThem) {
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    Ref<IDispatch> parameters;
    parameters = WilfulObject::New([&](const std::wstring& property, VARIANT* result, EXCEPINFO*) {
      parameters = {};
      return AnswerAs(tested, property, result);
    });
    // Called as a script would call it, which passes its variable itself.
    VARIANT argument = {};
    argument.vt = VT_DISPATCH;
    argument.pdispVal = parameters.get();
    EXPECT_EQ(tested.Refused(), InvokeRaw(subject.report().get(), tested.method, DISPATCH_METHOD, {argument}).failure);
    EXPECT_FALSE(parameters);
    EXPECT_EQ(0, WilfulObject::Alive());
  });
}

TEST_F(HostileObjects, TheReportLivesUntilItsCallIsOver) {
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject&) {
    Ref<IDispatch> report = tested.NewReport();
    ASSERT_EQ(S_OK, Put(report, L"StringConexao", archive_.Connection()).hr);
    const auto releasing = WilfulObject::New([&](const std::wstring& property, VARIANT* result, EXCEPINFO*) {
      report = {};
      return AnswerAs(tested, property, result);
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
    Ref<IDispatch> parameters = WilfulObject::New([&](const std::wstring&, VARIANT*, EXCEPINFO*) {
      report = {};
      parameters = {};
      return static_cast<HRESULT>(0x80047777);
    });
    VARIANT argument = {};
    argument.vt = VT_DISPATCH;
    argument.pdispVal = parameters.get();
    EXPECT_EQ(Framed(tested, {0x80047777, L"KodraRpt", L"Erro de automação (80047777)"}),
              InvokeRaw(report.get(), tested.method, DISPATCH_METHOD, {argument}).failure);
    EXPECT_EQ(0, WilfulObject::Alive());
  });
}

}  // namespace
}  // namespace kodra::face
