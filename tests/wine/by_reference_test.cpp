// The arguments that siblings take by reference: what the component passes, and what it makes of a changed argument.
#include "tests/wine/event_sink.h"
#include "tests/wine/report_rows.h"
#include "tests/wine/stand_in.h"

namespace kodra::face {
namespace {

// A sibling that records how it receives its arguments, and may write to them.
class ArgumentRecorder final : public ClientObject {
 public:
  // Called with the arguments of a method, from the last to the first.
  using Method = std::function<HRESULT(const std::wstring& member, VARIANT* arguments, VARIANT* result)>;

  static Ref<IDispatch> New(std::shared_ptr<Texts> calls, Method method) {
    return Ref<IDispatch>::Owning(new ArgumentRecorder(std::move(calls), std::move(method)));
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
  ArgumentRecorder(std::shared_ptr<Texts> calls, Method method)
      : calls_(std::move(calls)), method_(std::move(method)) {}

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

  std::shared_ptr<Texts> calls_;
  Method method_;
  Texts members_;
};

class ArgumentsByReference : public testing::Test {
 protected:
  StandIn Replace(const std::wstring& progId, ArgumentRecorder::Method method) const {
    return StandIn(progId, [calls = calls_, method] { return ArgumentRecorder::New(calls, method); });
  }
  static Outcome RunOnArchive(const std::wstring& report, const std::wstring& method, const Properties& properties) {
    return RunReport(report, method, Var(ParametersOf(report, properties).get()), ArchiveConnection());
  }

  // The methods that were called, with their arguments.
  const std::shared_ptr<Texts> calls_ = std::make_shared<Texts>();
};

const std::wstring kLineWithoutParameters =
    L"KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro -2147211505 em KodraRpt.CCaixaRpt::InicializaPS: "
    L"Objeto não definido.";

// What the log does with the text of its argument, and the line that the event then contains.
struct LogLine {
  const char* name;
  void (*write)(BSTR* text);
  std::wstring announced;

  friend void PrintTo(const LogLine& line, std::ostream* out) { *out << line.name; }
};

class LogLineByReference : public ArgumentsByReference, public testing::WithParamInterface<LogLine> {};

TEST_P(LogLineByReference, IsAnnouncedAsTheLogLeavesIt) {
  const StandIn log = Replace(L"VantLog.FnLog", [](const std::wstring&, VARIANT* arguments, VARIANT*) {
    if (arguments[0].vt == (VT_BYREF | VT_BSTR)) GetParam().write(arguments[0].pbstrVal);
    return S_OK;
  });
  const auto report = Create(L"KodraRpt.CCaixaRpt");
  const auto sink = EventSink::New();
  const auto events = EventsOf(report);
  DWORD cookie = 0;
  EXPECT_EQ(S_OK, events->Advise(sink.get(), &cookie));
  EXPECT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
  EXPECT_EQ((Failure{kReportError, L"KodraRpt.CCaixaRpt::InicializaPS",
                     L"Erro ao gerar dados para o relatório: Objeto não definido."}),
            Call(report, L"EtiquetaDivisoria", {Var::Nothing()}).failure);
  EXPECT_EQ(S_OK, events->Unadvise(cookie));
  EXPECT_EQ(Texts{GetParam().announced}, sink->lines);
  EXPECT_EQ(Texts{L"DebugLog ByRef " + kLineWithoutParameters}, *calls_);
}

const LogLine kLogLines[] = {
    {"Changed", [](BSTR* text) { SysReAllocString(text, L"mudada pelo log"); }, L"mudada pelo log"},
    {"SetToNull",
     [](BSTR* text) {
       SysFreeString(*text);
       *text = nullptr;
     },
     L""},
    {"Unchanged", [](BSTR*) {}, kLineWithoutParameters},
};
INSTANTIATE_TEST_SUITE_P(, LogLineByReference, testing::ValuesIn(kLogLines),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(ArgumentsByReference, IncludeTheDatabaseCodeButNotTheAlias) {
  const StandIn modules =
      Replace(L"KodraBsnV3.ModulosBsn", [](const std::wstring&, VARIANT* arguments, VARIANT* result) {
        if (arguments[1].vt == (VT_BYREF | VT_I4)) *arguments[1].plVal = 99;
        return Var(L"s.NUM_CAIXA").CopyTo(result);
      });
  const Outcome outcome = RunOnArchive(L"CCaixaRpt", L"EtiquetaAbertura", {{L"Tipo", L"S"}});
  EXPECT_EQ(S_OK, outcome.hr) << testing::PrintToString(outcome.failure);
  EXPECT_EQ(Texts{L"NumCxSubordinadaSQL ByRef 7 s"}, *calls_);
}

// Sets the argument to Nothing, and returns nothing.
HRESULT SetFilterToNothing(const std::wstring&, VARIANT* arguments, VARIANT*) {
  if (arguments[0].vt != (VT_BYREF | VT_DISPATCH)) return DISP_E_TYPEMISMATCH;
  (*arguments[0].ppdispVal)->Release();
  *arguments[0].ppdispVal = nullptr;
  return S_OK;
}

TEST_F(ArgumentsByReference, IncludeTheFilterOfSubordinateModules) {
  const StandIn reader = Replace(L"KodraBsnV3.ObtedorDeModulos", SetFilterToNothing);
  EXPECT_EQ(Framed(L"CCaixaRpt::EtiquetaFechamentoSubordinada",
                   L"Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo AB001"),
            RunOnArchive(L"CCaixaRpt", L"EtiquetaFechamentoSubordinada", {{L"Modulo1", L"AB001"}}).failure);
  EXPECT_EQ(Texts{L"ObtemSubordinados ByRef (object)"}, *calls_);
}

TEST_F(ArgumentsByReference, IncludeTheFilterOfEvents) {
  const StandIn reader = Replace(L"KodraRegEvt.RegEvtDAO", SetFilterToNothing);
  const Outcome outcome = RunOnArchive(L"CLogRpt", L"RelatorioLog", {{L"Acao", L"x"}});
  EXPECT_EQ(S_OK, outcome.hr) << testing::PrintToString(outcome.failure);
  EXPECT_FALSE(outcome.value.object());
  EXPECT_EQ(Texts{L"Localiza ByRef (object)"}, *calls_);
}

}  // namespace
}  // namespace kodra::face
