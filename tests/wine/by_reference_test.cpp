// The arguments that siblings take by reference, as they are passed and as they are returned.
#include "tests/wine/foreign_object.h"
#include "tests/wine/stand_in.h"

namespace kodra::face {
namespace {

// A sibling that records the types of the arguments that it receives, and may write to them.
class TypedObject final : public ClientObject {
 public:
  // Gets the arguments of a method, from the last to the first.
  using Method = std::function<HRESULT(const std::wstring& member, VARIANT* arguments, VARIANT* result)>;

  static Ref<IDispatch> New(std::shared_ptr<Names> calls, Method method) {
    return Ref<IDispatch>::Owning(new TypedObject(std::move(calls), std::move(method)));
  }

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    members_.emplace_back(names[0]);
    *ids = static_cast<DISPID>(members_.size());
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*,
                      UINT*) override {
    const std::wstring member = members_[static_cast<std::size_t>(id) - 1];
    if ((kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) return S_OK;
    std::wstring call = member;
    for (UINT i = parameters->cArgs; i-- > 0;) call += L" " + Shown(parameters->rgvarg[i]);
    calls_->push_back(call);
    return method_(member, parameters->rgvarg, result);
  }

 private:
  TypedObject(std::shared_ptr<Names> calls, Method method) : calls_(std::move(calls)), method_(std::move(method)) {}

  static std::wstring Shown(const VARIANT& argument) {
    const std::wstring mark = (argument.vt & VT_BYREF) != 0 ? L"ByRef " : L"";
    switch (argument.vt) {
      case VT_BSTR:
        return mark + argument.bstrVal;
      case VT_BYREF | VT_BSTR:
        return mark + *argument.pbstrVal;
      case VT_I4:
        return mark + std::to_wstring(argument.lVal);
      case VT_BYREF | VT_I4:
        return mark + std::to_wstring(*argument.plVal);
      case VT_DISPATCH:
      case VT_BYREF | VT_DISPATCH:
        return mark + L"(object)";
      default:
        return mark + L"(VARTYPE " + std::to_wstring(argument.vt) + L")";
    }
  }

  std::shared_ptr<Names> calls_;
  Method method_;
  Names members_;
};

// Receives each line of the DebugLog event.
class Ear final : public ClientObject {
 public:
  static Ref<IDispatch> New(std::shared_ptr<Names> heard) { return Ref<IDispatch>::Owning(new Ear(std::move(heard))); }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*, UINT*) override {
    heard_->emplace_back(*parameters->rgvarg[0].pbstrVal);
    return S_OK;
  }

 private:
  explicit Ear(std::shared_ptr<Names> heard) : heard_(std::move(heard)) {}
  std::shared_ptr<Names> heard_;
};

class ArgumentsByReference : public testing::Test {
 protected:
  std::unique_ptr<StandIn> Instead(const std::wstring& progId, TypedObject::Method method) {
    return std::make_unique<StandIn>(progId, [this, method] { return TypedObject::New(calls_, method); });
  }
  static Ref<IDispatch> ParametersOf(const std::wstring& report, const std::wstring& property, const wchar_t* value) {
    auto parameters = Create(L"KodraRpt." + report + L"Obj");
    EXPECT_EQ(S_OK, Put(parameters, property, value).hr);
    return parameters;
  }

  // The methods that were called, with their arguments.
  std::shared_ptr<Names> calls_ = std::make_shared<Names>();
};

const std::wstring kLine =
    L"KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro -2147211505 em KodraRpt.CCaixaRpt::InicializaPS: "
    L"Objeto não definido.";

// The lines that the event sends when the log does this with the text of its argument.
Names HeardWhenTheLog(const std::function<void(BSTR* text)>& writes, const std::shared_ptr<Names>& calls) {
  const StandIn log(L"VantLog.FnLog", [&] {
    return TypedObject::New(calls, [&](const std::wstring&, VARIANT* arguments, VARIANT*) {
      if (arguments[0].vt == (VT_BYREF | VT_BSTR)) writes(arguments[0].pbstrVal);
      return S_OK;
    });
  });
  const auto report = Create(L"KodraRpt.CCaixaRpt");
  const auto heard = std::make_shared<Names>();
  const auto points = report.As<IConnectionPointContainer>();
  Ref<IEnumConnectionPoints> all;
  EXPECT_EQ(S_OK, points->EnumConnectionPoints(all.put()));
  Ref<IConnectionPoint> point;
  EXPECT_EQ(S_OK, all->Next(1, point.put(), nullptr));
  DWORD cookie = 0;
  EXPECT_EQ(S_OK, point->Advise(Ear::New(heard).get(), &cookie));
  EXPECT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
  EXPECT_EQ((Failure{0x80041FAB, L"KodraRpt.CCaixaRpt::InicializaPS",
                     L"Erro ao gerar dados para o relatório: Objeto não definido."}),
            Call(report, L"EtiquetaDivisoria", {Var(static_cast<IDispatch*>(nullptr))}).failure);
  EXPECT_EQ(S_OK, point->Unadvise(cookie));
  return *heard;
}

TEST_F(ArgumentsByReference, IncludeTheLogLineWhichIsAnnouncedAsTheLogLeavesIt) {
  EXPECT_EQ(Names{L"mudada pelo log"},
            HeardWhenTheLog([](BSTR* text) { SysReAllocString(text, L"mudada pelo log"); }, calls_));
  EXPECT_EQ(Names{L"DebugLog ByRef " + kLine}, *calls_);
}

TEST_F(ArgumentsByReference, ALogLineThatTheLogSetsToNullIsAnnouncedEmpty) {
  EXPECT_EQ(Names{L""}, HeardWhenTheLog(
                            [](BSTR* text) {
                              SysFreeString(*text);
                              *text = nullptr;
                            },
                            calls_));
}

TEST_F(ArgumentsByReference, ALogLineThatTheLogOnlyReadsIsAnnouncedUnchanged) {
  EXPECT_EQ(Names{kLine}, HeardWhenTheLog([](BSTR*) {}, calls_));
}

TEST_F(ArgumentsByReference, IncludeTheDatabaseCodeButNotTheAlias) {
  const auto modules = Instead(L"KodraBsnV3.ModulosBsn", [](const std::wstring&, VARIANT* arguments, VARIANT* result) {
    if (arguments[1].vt == (VT_BYREF | VT_I4)) *arguments[1].plVal = 99;
    result->vt = VT_BSTR;
    result->bstrVal = SysAllocString(L"s.NUM_CAIXA");
    return S_OK;
  });
  const auto parameters = ParametersOf(L"CCaixaRpt", L"Tipo", L"S");
  const Outcome outcome = RunReport(L"CCaixaRpt", L"EtiquetaAbertura", Var(parameters.get()), ArchiveConnection());
  EXPECT_EQ(S_OK, outcome.hr) << testing::PrintToString(outcome.failure);
  EXPECT_EQ(Names{L"NumCxSubordinadaSQL ByRef 7 s"}, *calls_);
}

// Replaces the argument by Nothing, and returns nothing.
HRESULT LetGoOfTheFilter(const std::wstring&, VARIANT* arguments, VARIANT*) {
  if (arguments[0].vt != (VT_BYREF | VT_DISPATCH)) return DISP_E_TYPEMISMATCH;
  (*arguments[0].ppdispVal)->Release();
  *arguments[0].ppdispVal = nullptr;
  return S_OK;
}

TEST_F(ArgumentsByReference, IncludeTheFilterOfSubordinateModules) {
  const auto reader = Instead(L"KodraBsnV3.ObtedorDeModulos", LetGoOfTheFilter);
  const auto parameters = ParametersOf(L"CCaixaRpt", L"Modulo1", L"AB001");
  EXPECT_EQ(
      (Failure{0x80041FAB, L"KodraRpt.CCaixaRpt::EtiquetaFechamentoSubordinada",
               L"Erro ao gerar dados para o relatório: Não foi possível obter uma lista dos módulos "
               L"subordinados fechados associados ao módulo AB001"}),
      RunReport(L"CCaixaRpt", L"EtiquetaFechamentoSubordinada", Var(parameters.get()), ArchiveConnection()).failure);
  EXPECT_EQ(Names{L"ObtemSubordinados ByRef (object)"}, *calls_);
}

TEST_F(ArgumentsByReference, IncludeTheFilterOfEvents) {
  const auto reader = Instead(L"KodraRegEvt.RegEvtDAO", LetGoOfTheFilter);
  const auto parameters = ParametersOf(L"CLogRpt", L"Acao", L"x");
  const Outcome outcome = RunReport(L"CLogRpt", L"RelatorioLog", Var(parameters.get()), ArchiveConnection());
  EXPECT_EQ(S_OK, outcome.hr) << testing::PrintToString(outcome.failure);
  EXPECT_FALSE(outcome.value.object());
  EXPECT_EQ(Names{L"Localiza ByRef (object)"}, *calls_);
}

}  // namespace
}  // namespace kodra::face
