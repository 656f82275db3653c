// The DebugLog event of the module reports, and their connection object.
#include "tests/wine/event_sink.h"
#include "tests/wine/foreign_object.h"
#include "tests/wine/report_rows.h"
#include "tests/wine/stand_in.h"

namespace kodra::face {
namespace {

class ModuleEvents : public testing::Test {
 protected:
  ModuleEvents() {
    EXPECT_EQ(S_OK, CoCreateInstance(__uuidof(::CCaixaRpt), nullptr, CLSCTX_INPROC_SERVER, __uuidof(ICCaixaRpt),
                                     report_.put_void()));
    container_ = report_.As<IConnectionPointContainer>();
    point_ = EventsOf(report_);
  }

  DWORD Advise(const Ref<EventSink>& sink) {
    DWORD cookie = 0;
    EXPECT_EQ(S_OK, point_->Advise(sink.get(), &cookie));
    EXPECT_NE(0U, cookie);
    return cookie;
  }
  // Runs a report that fails; its error is the one line that it announces.
  void Fail() {
    Ref<IDispatch> rows;
    EXPECT_EQ(kReportError, report_->EtiquetaDivisoria(nullptr, rows.put()));
  }

  Ref<ICCaixaRpt> report_;
  Ref<IConnectionPointContainer> container_;
  Ref<IConnectionPoint> point_;
};

TEST_F(ModuleEvents, ReachEverySinkAsTheyWereSent) {
  const auto one = EventSink::New();
  const auto other = EventSink::New();
  Advise(one);
  Advise(other);
  Fail();
  EXPECT_EQ(Texts{kLineWithoutConnection}, one->lines);
  EXPECT_EQ(Texts{kLineWithoutConnection}, other->lines);
}

TEST_F(ModuleEvents, ReachTheNextSinkWhenOneFails) {
  const auto failing = EventSink::New();
  failing->afterLine = [] { return E_FAIL; };
  const auto next = EventSink::New();
  Advise(failing);
  Advise(next);
  Fail();
  EXPECT_EQ(Texts{kLineWithoutConnection}, failing->lines);
  EXPECT_EQ(Texts{kLineWithoutConnection}, next->lines);
}

TEST_F(ModuleEvents, LetASinkUnadviseItselfWhileItIsCalled) {
  const auto leaving = EventSink::New();
  const auto staying = EventSink::New();
  const DWORD cookie = Advise(leaving);
  leaving->afterLine = [&] { return point_->Unadvise(cookie); };
  Advise(staying);
  Fail();
  Fail();
  EXPECT_EQ(Texts{kLineWithoutConnection}, leaving->lines);
  EXPECT_EQ((Texts{kLineWithoutConnection, kLineWithoutConnection}), staying->lines);
  EXPECT_EQ(1U, leaving->References());
}

TEST_F(ModuleEvents, LeaveTheReportOnItsDatabaseWhenASinkRunsItOnAnother) {
  const auto report = report_.As<IDispatch>();
  const auto parameters = ParametersOf(L"CCaixaRpt", {{L"Modulo1", L"AA004"}});
  const auto run = [&](const wchar_t* method) {
    return ReadAll(Got(Call(report, method, {Var(parameters.get())})).object());
  };
  const auto sink = EventSink::New();
  Advise(sink);
  for (const Engine engine : {Engine::kSqlite, Engine::kMariaDb}) {
    const Engine other = engine == Engine::kSqlite ? Engine::kMariaDb : Engine::kSqlite;
    ASSERT_EQ(S_OK, Put(report, L"StringConexao", ConnectionOn(engine)).hr);
    sink->afterLine = [] { return S_OK; };
    const Table undisturbed = run(L"EtiquetaFechamentoSubordinada");
    EXPECT_EQ(3U, undisturbed.rows.size());
    std::size_t inner = 0;
    sink->afterLine = [&] {
      Put(report, L"StringConexao", ConnectionOn(other));
      inner += run(L"EtiquetaDivisoria").rows.size();
      return Put(report, L"StringConexao", ConnectionOn(engine)).hr;
    };
    rows::ExpectRows(run(L"EtiquetaFechamentoSubordinada"), undisturbed, {L"NUM_CAIXA"});
    EXPECT_LT(0U, inner);
  }
}

TEST_F(ModuleEvents, EndWithUnadviseWhichKnowsEachCookieOnce) {
  const auto sink = EventSink::New();
  const DWORD cookie = Advise(sink);
  EXPECT_EQ(2U, sink->References());
  EXPECT_EQ(S_OK, point_->Unadvise(cookie));
  EXPECT_EQ(1U, sink->References());
  EXPECT_EQ(CONNECT_E_NOCONNECTION, point_->Unadvise(cookie));
  EXPECT_EQ(CONNECT_E_NOCONNECTION, point_->Unadvise(0));
  Fail();
  EXPECT_EQ(Texts{}, sink->lines);
}

// A sink whose IDispatch cannot be had: QueryInterface returns this code for it, and no interface.
class SinkWithoutDispatch final : public EventSink {
 public:
  static Ref<EventSink> New(HRESULT hr) { return Ref<EventSink>::Owning(new SinkWithoutDispatch(hr)); }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (iid != IID_IDispatch) return EventSink::QueryInterface(iid, object);
    *object = nullptr;
    return hr_;
  }

 private:
  explicit SinkWithoutDispatch(HRESULT hr) : hr_(hr) {}

  HRESULT hr_;
};

TEST_F(ModuleEvents, RefuseASinkThatCannotBeCalled) {
  for (const HRESULT hr : {E_NOINTERFACE, S_OK}) {
    const auto sink = SinkWithoutDispatch::New(hr);
    DWORD cookie = 7;
    EXPECT_EQ(CONNECT_E_CANNOTCONNECT, point_->Advise(sink.get(), &cookie));
    EXPECT_EQ(0U, cookie);
    EXPECT_EQ(1U, sink->References());
    Fail();
    EXPECT_EQ(Texts{}, sink->lines);
  }
}

TEST_F(ModuleEvents, RefuseNoSinkAndNoPlaceForTheCookie) {
  const auto sink = EventSink::New();
  DWORD cookie = 7;
  EXPECT_EQ(E_POINTER, point_->Advise(nullptr, &cookie));
  EXPECT_EQ(E_POINTER, point_->Advise(sink.get(), nullptr));
  EXPECT_EQ(1U, sink->References());
}

TEST_F(ModuleEvents, ReleaseTheirSinksWithTheReport) {
  const auto sink = EventSink::New();
  Advise(sink);
  EXPECT_EQ(2U, container_.Release());
  EXPECT_EQ(1U, point_.Release());
  EXPECT_EQ(0U, report_.Release());
  EXPECT_EQ(1U, sink->References());
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

TEST_F(ModuleEvents, HaveAConnectionPointThatIsAnObjectOfItsOwn) {
  EXPECT_EQ(point_.get(), point_.As<IConnectionPoint>().get());
  EXPECT_NE(report_.As<IUnknown>().get(), point_.As<IUnknown>().get());
  void* face = &face;
  EXPECT_EQ(E_NOINTERFACE, point_->QueryInterface(IID_IDispatch, &face));
  EXPECT_EQ(nullptr, face);
  EXPECT_EQ(E_POINTER, point_->QueryInterface(IID_IUnknown, nullptr));
}

TEST_F(ModuleEvents, AreListedToTheEndAndNotBeyondHoweverManyAreSkipped) {
  const auto sink = EventSink::New();
  const DWORD cookie = Advise(sink);
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
  const auto one = EventSink::New();
  const auto other = EventSink::New();
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
  // A clone begins at the position of its original, here the end, and keeps the list alive.
  Ref<IEnumConnections> clone;
  ASSERT_EQ(S_OK, connections->Clone(clone.put()));
  EXPECT_EQ(S_FALSE, clone->Next(1, data, &count));
  EXPECT_EQ(0U, count);
  EXPECT_EQ(0U, clone.Release());
  EXPECT_EQ(0U, connections.Release());
  EXPECT_EQ(2U, one->References());
  point_->Unadvise(first);
  point_->Unadvise(second);
}

// Sinks that change the list of sinks while the report calls or releases them.
class EventSinks : public ModuleEvents {};

TEST_F(EventSinks, OneThatAnotherUnadvisesStillReceivesTheCurrentLine) {
  const auto remover = EventSink::New();
  const auto removed = EventSink::New();
  Advise(remover);
  const DWORD cookie = Advise(removed);
  remover->afterLine = [&] { return point_->Unadvise(cookie); };
  Fail();
  EXPECT_EQ(1U, remover->lines.size());
  EXPECT_EQ(1U, removed->lines.size());
  EXPECT_EQ(1U, removed->References());
  Fail();
  EXPECT_EQ(2U, remover->lines.size());
  EXPECT_EQ(1U, removed->lines.size());
}

TEST_F(EventSinks, OneThatAnotherAdvisesReceivesTheLinesAfterTheCurrentOne) {
  const auto adviser = EventSink::New();
  const auto advised = EventSink::New();
  Advise(adviser);
  adviser->afterLine = [&] {
    if (adviser->lines.size() == 1) Advise(advised);
    return S_OK;
  };
  Fail();
  EXPECT_EQ(0U, advised->lines.size());
  Fail();
  EXPECT_EQ(2U, adviser->lines.size());
  EXPECT_EQ(1U, advised->lines.size());
}

TEST_F(EventSinks, OneThatUnadvisesItselfIsReleasedAfterItsCall) {
  auto sink = EventSink::New();
  const auto staying = EventSink::New();
  const DWORD cookie = Advise(sink);
  Advise(staying);
  bool gone = false;
  bool goneInItsCall = true;
  sink->afterLine = [&] {
    // The action itself ends with the sink, so it may not use its captures after Unadvise.
    bool& result = goneInItsCall;
    const bool& now = gone;
    const HRESULT hr = point_->Unadvise(cookie);
    result = now;
    return hr;
  };
  sink->atEnd = [&] { gone = true; };
  sink.Release();
  Fail();
  EXPECT_FALSE(goneInItsCall);
  EXPECT_TRUE(gone);
  EXPECT_EQ(1U, staying->lines.size());
}

TEST_F(EventSinks, OneThatUnadvisesInItsLastReleaseIsNotListedThen) {
  auto sink = EventSink::New();
  const auto other = EventSink::New();
  const auto staying = EventSink::New();
  const DWORD cookie = Advise(sink);
  const DWORD otherCookie = Advise(other);
  Advise(staying);
  HRESULT itself = E_UNEXPECTED;
  HRESULT another = E_UNEXPECTED;
  sink->atEnd = [&] {
    itself = point_->Unadvise(cookie);
    another = point_->Unadvise(otherCookie);
  };
  sink.Release();
  EXPECT_EQ(S_OK, point_->Unadvise(cookie));
  EXPECT_EQ(CONNECT_E_NOCONNECTION, itself);
  EXPECT_EQ(S_OK, another);
  EXPECT_EQ(1U, other->References());
  Fail();
  EXPECT_EQ(0U, other->lines.size());
  EXPECT_EQ(1U, staying->lines.size());
}

// The sinks use the connection point without a reference to it, so that they do not keep the report alive. A sink that
// was still listed would be released twice.
TEST_F(EventSinks, ThoseThatUnadviseWhenTheReportIsReleasedAreNotListedThen) {
  IConnectionPoint* const point = point_.get();
  HRESULT results[3] = {};
  for (HRESULT& result : results) {
    auto sink = EventSink::New();
    const DWORD cookie = Advise(sink);
    sink->atEnd = [&result, point, cookie] { result = point->Unadvise(cookie); };
    sink.Release();
  }
  EXPECT_EQ(2U, container_.Release());
  EXPECT_EQ(1U, point_.Release());
  EXPECT_EQ(0U, report_.Release());
  for (const HRESULT result : results) EXPECT_EQ(CONNECT_E_NOCONNECTION, result);
}

// The sink uses the container without a reference to it, so that it does not keep the report alive. A report that
// counted its references down to none once more would be deleted twice.
TEST_F(EventSinks, OneThatAsksForTheConnectionPointWhenTheReportIsReleasedDoesNotReleaseItAgain) {
  IConnectionPointContainer* const container = container_.get();
  auto sink = EventSink::New();
  Advise(sink);
  HRESULT found = E_UNEXPECTED;
  ULONG left = 0;
  sink->atEnd = [&] {
    Ref<IConnectionPoint> point;
    found = container->FindConnectionPoint(__uuidof(DCCaixaRptEvents), point.put());
    left = point.Release();
  };
  sink.Release();
  EXPECT_EQ(2U, container_.Release());
  EXPECT_EQ(1U, point_.Release());
  EXPECT_EQ(0U, report_.Release());
  EXPECT_EQ(S_OK, found);
  EXPECT_NE(0U, left);
}

TEST_F(ModuleEvents, EndWithTheWholeError) {
  const Outcome outcome = Call(report_.As<IDispatch>(), L"EtiquetaDivisoria", {Var::Nothing()});
  EXPECT_EQ((Failure{kReportError, L"KodraRpt.CCaixaRpt::InicializaPS",
                     L"Erro ao gerar dados para o relatório: Uma das propriedades \"Conexao\" ou \"StringConexao\" "
                     L"precisam ser informadas."}),
            outcome.failure);
}

TEST_F(ModuleEvents, ComeOnceWhenTheLogFails) {
  const auto sink = EventSink::New();
  Advise(sink);
  {
    const StandIn missing(L"VantLog.FnLog", REGDB_E_CLASSNOTREG);
    Fail();
    EXPECT_EQ(Texts{kLineWithoutConnection}, sink->lines);
  }
  const auto calls = std::make_shared<Texts>();
  const StandIn refusing(L"VantLog.FnLog",
                         [&] { return RecordingObject::New(L"Log", calls, [](auto&&...) { return E_FAIL; }); });
  Fail();
  EXPECT_EQ((Texts{kLineWithoutConnection, kLineWithoutConnection}), sink->lines);
  EXPECT_EQ((Texts{L"Log.LogFile := ''", L"Log.Ativar := False", L"Log.DebugLog '" + kLineWithoutConnection + L"'"}),
            *calls);
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
  EXPECT_EQ((Failure{kTypeMismatch, L"KodraRpt", L"Tipos incompatíveis"}), TakeFailure(hr, report_));
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
