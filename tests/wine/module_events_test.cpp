// What the module reports have beyond the other classes: the DebugLog event and the client's connection.
// clang-format off
#include <windows.h>
#include <ocidl.h>
#include <olectl.h>
#include <kodrarpt.h>
// clang-format on

#include <functional>

#include "tests/wine/foreign_object.h"
#include "tests/wine/report_rows.h"
#include "tests/wine/stand_in.h"

namespace kodra::face {
namespace {

// Receives the event: keeps each line, then runs the test's action.
class Listener final : public IDispatch {
 public:
  static Ref<Listener> New() { return Ref<Listener>::Owning(new Listener); }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    *object = nullptr;
    if (succeedsWithNothing) return S_OK;
    *object = iid == IID_IUnknown || (iid == IID_IDispatch && isDispatch) ? this : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD kind, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    EXPECT_EQ(1, event);
    EXPECT_EQ(DISPATCH_METHOD, kind);
    EXPECT_EQ(1U, arguments->cArgs);
    EXPECT_EQ(VT_BYREF | VT_BSTR, arguments->rgvarg[0].vt);
    lines.emplace_back(*arguments->rgvarg[0].pbstrVal);
    // A sink may write to its argument; nobody else sees it.
    SysReAllocString(arguments->rgvarg[0].pbstrVal, L"mudada");
    return then();
  }

  ULONG references = 1;
  bool isDispatch = true;
  bool succeedsWithNothing = false;
  Names lines;
  std::function<HRESULT()> then = [] { return S_OK; };

 private:
  Listener() = default;
  ~Listener() = default;
};

class ModuleEvents : public testing::Test {
 protected:
  ModuleEvents() {
    EXPECT_EQ(S_OK, CoCreateInstance(__uuidof(::CCaixaRpt), nullptr, CLSCTX_INPROC_SERVER, __uuidof(ICCaixaRpt),
                                     report_.put_void()));
    container_ = report_.As<IConnectionPointContainer>();
    EXPECT_EQ(S_OK, container_->FindConnectionPoint(__uuidof(DCCaixaRptEvents), point_.put()));
  }

  DWORD Advise(const Ref<Listener>& listener) {
    DWORD cookie = 0;
    EXPECT_EQ(S_OK, point_->Advise(listener.get(), &cookie));
    EXPECT_NE(0U, cookie);
    return cookie;
  }
  // Makes the report write one line to its log.
  void Fail() {
    Ref<IDispatch> rows;
    EXPECT_EQ(static_cast<HRESULT>(0x80041FAB), report_->EtiquetaDivisoria(nullptr, rows.put()));
  }

  Ref<ICCaixaRpt> report_;
  Ref<IConnectionPointContainer> container_;
  Ref<IConnectionPoint> point_;
};

const std::wstring kLine =
    L"KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro -2147211506 em KodraRpt.CCaixaRpt::InicializaPS: "
    L"Uma das propriedades \"Conexao\" ou \"StringConexao\" precisam ser informadas.";

TEST_F(ModuleEvents, ReachEverySinkAsTheyWereSent) {
  const auto one = Listener::New();
  const auto other = Listener::New();
  Advise(one);
  Advise(other);
  Fail();
  EXPECT_EQ(Names{kLine}, one->lines);
  EXPECT_EQ(Names{kLine}, other->lines);
}

TEST_F(ModuleEvents, ReachTheNextSinkWhenOneFails) {
  const auto failing = Listener::New();
  failing->then = [] { return E_FAIL; };
  const auto next = Listener::New();
  Advise(failing);
  Advise(next);
  Fail();
  EXPECT_EQ(Names{kLine}, failing->lines);
  EXPECT_EQ(Names{kLine}, next->lines);
}

TEST_F(ModuleEvents, LetASinkUnadviseItselfWhileItIsCalled) {
  const auto leaving = Listener::New();
  const auto staying = Listener::New();
  const DWORD cookie = Advise(leaving);
  leaving->then = [&] { return point_->Unadvise(cookie); };
  Advise(staying);
  Fail();
  Fail();
  EXPECT_EQ(Names{kLine}, leaving->lines);
  EXPECT_EQ((Names{kLine, kLine}), staying->lines);
  EXPECT_EQ(1U, leaving->references);
}

TEST_F(ModuleEvents, LeaveTheReportOnItsDatabaseWhenASinkRunsItOnAnother) {
  const auto report = report_.As<IDispatch>();
  const auto parameters = ParametersOf(L"CCaixaRpt", {{L"Modulo1", L"AA004"}});
  const auto run = [&](const wchar_t* method) {
    return ReadAll(Got(Call(report, method, {Var(parameters.get())})).object());
  };
  const auto listener = Listener::New();
  Advise(listener);
  for (const Engine engine : {Engine::kSqlite, Engine::kMariaDb}) {
    const Engine other = engine == Engine::kSqlite ? Engine::kMariaDb : Engine::kSqlite;
    ASSERT_EQ(S_OK, Put(report, L"StringConexao", ConnectionOn(engine)).hr);
    listener->then = [] { return S_OK; };
    const Table undisturbed = run(L"EtiquetaFechamentoSubordinada");
    EXPECT_EQ(3U, undisturbed.rows.size());
    std::size_t inner = 0;
    listener->then = [&] {
      Put(report, L"StringConexao", ConnectionOn(other));
      inner += run(L"EtiquetaDivisoria").rows.size();
      return Put(report, L"StringConexao", ConnectionOn(engine)).hr;
    };
    rows::ExpectRows(run(L"EtiquetaFechamentoSubordinada"), undisturbed, {L"NUM_CAIXA"});
    EXPECT_LT(0U, inner);
  }
}

TEST_F(ModuleEvents, EndWithUnadviseWhichKnowsEachCookieOnce) {
  const auto listener = Listener::New();
  const DWORD cookie = Advise(listener);
  EXPECT_EQ(2U, listener->references);
  EXPECT_EQ(S_OK, point_->Unadvise(cookie));
  EXPECT_EQ(1U, listener->references);
  EXPECT_EQ(CONNECT_E_NOCONNECTION, point_->Unadvise(cookie));
  EXPECT_EQ(CONNECT_E_NOCONNECTION, point_->Unadvise(0));
  Fail();
  EXPECT_EQ(Names{}, listener->lines);
}

TEST_F(ModuleEvents, RefuseASinkThatCannotBeCalled) {
  const auto listener = Listener::New();
  listener->isDispatch = false;
  DWORD cookie = 7;
  EXPECT_EQ(CONNECT_E_CANNOTCONNECT, point_->Advise(listener.get(), &cookie));
  EXPECT_EQ(0U, cookie);
  EXPECT_EQ(1U, listener->references);
  EXPECT_EQ(E_POINTER, point_->Advise(nullptr, &cookie));
  EXPECT_EQ(E_POINTER, point_->Advise(listener.get(), nullptr));
}

TEST_F(ModuleEvents, RefuseASinkThatSucceedsWithoutReturningAnInterface) {
  const auto listener = Listener::New();
  listener->succeedsWithNothing = true;
  DWORD cookie = 7;
  EXPECT_EQ(CONNECT_E_CANNOTCONNECT, point_->Advise(listener.get(), &cookie));
  EXPECT_EQ(0U, cookie);
  EXPECT_EQ(1U, listener->references);
  Fail();
  EXPECT_EQ(Names{}, listener->lines);
}

TEST_F(ModuleEvents, ReleaseTheirSinksWithTheReport) {
  const auto listener = Listener::New();
  Advise(listener);
  EXPECT_EQ(2U, container_.Release());
  EXPECT_EQ(1U, point_.Release());
  EXPECT_EQ(0U, report_.Release());
  EXPECT_EQ(1U, listener->references);
}

TEST_F(ModuleEvents, HaveOneConnectionPointThatReturnsItsContainer) {
  IID events = {};
  EXPECT_EQ(S_OK, point_->GetConnectionInterface(&events));
  EXPECT_TRUE(events == __uuidof(DCCaixaRptEvents));
  Ref<IConnectionPointContainer> container;
  EXPECT_EQ(S_OK, point_->GetConnectionPointContainer(container.put()));
  EXPECT_EQ(container_.As<IUnknown>().get(), container.As<IUnknown>().get());
  EXPECT_EQ(report_.As<IUnknown>().get(), container.As<IUnknown>().get());
  Ref<IEnumConnectionPoints> points;
  ASSERT_EQ(S_OK, container_->EnumConnectionPoints(points.put()));
  IConnectionPoint* found[2] = {};
  ULONG count = 9;
  EXPECT_EQ(S_FALSE, points->Next(2, found, &count));
  EXPECT_EQ(1U, count);
  EXPECT_EQ(point_.get(), found[0]);
  found[0]->Release();
  EXPECT_EQ(S_OK, points->Reset());
  EXPECT_EQ(S_OK, points->Skip(1));
  EXPECT_EQ(S_FALSE, points->Skip(1));
}

TEST_F(ModuleEvents, AreListedToTheEndAndNotBeyondHoweverManyAreSkipped) {
  const auto listener = Listener::New();
  const DWORD cookie = Advise(listener);
  Ref<IEnumConnections> connections;
  ASSERT_EQ(S_OK, point_->EnumConnections(connections.put()));
  EXPECT_EQ(S_FALSE, connections->Skip(5));
  ASSERT_EQ(S_FALSE, connections->Skip(1));
  CONNECTDATA data = {nullptr, 7};
  ULONG count = 9;
  EXPECT_EQ(S_FALSE, connections->Next(1, &data, &count));
  EXPECT_EQ(0U, count);
  EXPECT_EQ(nullptr, data.pUnk);
  EXPECT_EQ(7U, data.dwCookie);
  EXPECT_EQ(S_OK, connections->Reset());
  EXPECT_EQ(S_OK, connections->Next(1, &data, &count));
  EXPECT_EQ(cookie, data.dwCookie);
  data.pUnk->Release();
}

TEST_F(ModuleEvents, HaveNoPointForAnotherInterface) {
  auto* const before = point_.get();
  IConnectionPoint* point = before;
  EXPECT_EQ(CONNECT_E_NOCONNECTION, container_->FindConnectionPoint(IID_IDispatch, &point));
  EXPECT_EQ(nullptr, point);
  EXPECT_EQ(E_POINTER, container_->FindConnectionPoint(__uuidof(DCCaixaRptEvents), nullptr));
}

TEST_F(ModuleEvents, ListTheirSinksInTheOrderOfAdvise) {
  const auto one = Listener::New();
  const auto other = Listener::New();
  const DWORD first = Advise(one);
  const DWORD second = Advise(other);
  EXPECT_NE(first, second);
  Ref<IEnumConnections> connections;
  ASSERT_EQ(S_OK, point_->EnumConnections(connections.put()));
  CONNECTDATA data[2] = {};
  ULONG count = 0;
  EXPECT_EQ(S_OK, connections->Next(2, data, &count));
  EXPECT_EQ(2U, count);
  EXPECT_EQ(first, data[0].dwCookie);
  EXPECT_EQ(static_cast<IUnknown*>(one.get()), data[0].pUnk);
  EXPECT_EQ(second, data[1].dwCookie);
  EXPECT_EQ(static_cast<IUnknown*>(other.get()), data[1].pUnk);
  for (const CONNECTDATA& each : data) each.pUnk->Release();
  // A clone continues at its original's position, and keeps its list.
  Ref<IEnumConnections> clone;
  ASSERT_EQ(S_OK, connections->Clone(clone.put()));
  EXPECT_EQ(S_FALSE, clone->Next(1, data, &count));
  EXPECT_EQ(0U, count);
  EXPECT_EQ(0U, clone.Release());
  EXPECT_EQ(0U, connections.Release());
  EXPECT_EQ(2U, one->references);
  point_->Unadvise(first);
  point_->Unadvise(second);
}

TEST_F(ModuleEvents, EndWithTheWholeError) {
  const Outcome outcome = Call(report_.As<IDispatch>(), L"EtiquetaDivisoria", {Var(static_cast<IDispatch*>(nullptr))});
  EXPECT_EQ((Failure{0x80041FAB, L"KodraRpt.CCaixaRpt::InicializaPS",
                     L"Erro ao gerar dados para o relatório: Uma das propriedades \"Conexao\" ou \"StringConexao\" "
                     L"precisam ser informadas."}),
            outcome.failure);
}

TEST_F(ModuleEvents, ComeOnceWhenTheLogFails) {
  const auto listener = Listener::New();
  Advise(listener);
  {
    const StandIn missing(L"VantLog.FnLog", REGDB_E_CLASSNOTREG);
    Fail();
    EXPECT_EQ(Names{kLine}, listener->lines);
  }
  const auto calls = std::make_shared<Names>();
  const StandIn refusing(L"VantLog.FnLog",
                         [&] { return RecordingObject::New(L"Log", calls, [](auto&&...) { return E_FAIL; }); });
  Fail();
  EXPECT_EQ((Names{kLine, kLine}), listener->lines);
  EXPECT_EQ((Names{L"Log.LogFile := ''", L"Log.Ativar := False", L"Log.DebugLog '" + kLine + L"'"}), *calls);
}

TEST_F(ModuleEvents, AClientsConnectionStaysTheSameObject) {
  const auto connection = Create(L"ADODB.Connection");
  EXPECT_EQ(S_OK, report_->putref_Conexao(connection.get()));
  Ref<IDispatch> kept;
  EXPECT_EQ(S_OK, report_->get_Conexao(kept.put()));
  EXPECT_EQ(connection.As<IUnknown>().get(), kept.As<IUnknown>().get());
  EXPECT_EQ(S_OK, report_->putref_Conexao(nullptr));
  EXPECT_EQ(S_OK, report_->get_Conexao(kept.put()));
  EXPECT_FALSE(kept);
}

TEST_F(ModuleEvents, AnObjectThatIsNoConnectionIsRefused) {
  const auto connection = Create(L"ADODB.Connection");
  EXPECT_EQ(S_OK, report_->putref_Conexao(connection.get()));
  const auto foreign = ForeignObject::With(L"Nome", L"x");
  const HRESULT hr = report_->putref_Conexao(foreign.get());
  EXPECT_EQ((Failure{0x800A000D, L"KodraRpt", L"Tipos incompatíveis"}), TakeFailure(hr, report_));
  Ref<IDispatch> kept;
  EXPECT_EQ(S_OK, report_->get_Conexao(kept.put()));
  EXPECT_TRUE(kept);
}

TEST_F(ModuleEvents, TheLogFileIsStoredUnchanged) {
  const auto report = report_.As<IDispatch>();
  EXPECT_EQ(L"", Got(Get(report, L"LogFile")).text());
  EXPECT_EQ(S_OK, Put(report, L"LogFile", L" C:\\log\\relatório.txt ").hr);
  EXPECT_EQ(L" C:\\log\\relatório.txt ", Got(Get(report, L"LogFile")).text());
}

}  // namespace
}  // namespace kodra::face
