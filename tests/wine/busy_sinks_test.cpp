// What sinks of the DebugLog event do to the list of sinks while the report calls or releases them.
// clang-format off
#include <windows.h>
#include <ocidl.h>
#include <olectl.h>
#include <kodrarpt.h>
// clang-format on

#include <functional>

#include "tests/wine/automation.h"
#include "tests/wine/client_object.h"

namespace kodra::face {
namespace {

// Counts the lines that it receives. The test's action runs at each line, and another one at its last release.
class BusySink final : public ClientObject {
 public:
  static Ref<BusySink> New() { return Ref<BusySink>::Owning(new BusySink); }

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    ++heard;
    atEachLine();
    return S_OK;
  }

  int heard = 0;
  std::function<void()> atEachLine = [] {};
  std::function<void()> atTheEnd = [] {};

 private:
  BusySink() = default;
  ~BusySink() override { atTheEnd(); }
};

class BusySinks : public testing::Test {
 protected:
  BusySinks() {
    EXPECT_EQ(S_OK, CoCreateInstance(__uuidof(::CCaixaRpt), nullptr, CLSCTX_INPROC_SERVER, __uuidof(ICCaixaRpt),
                                     report_.put_void()));
    EXPECT_EQ(S_OK,
              report_.As<IConnectionPointContainer>()->FindConnectionPoint(__uuidof(DCCaixaRptEvents), point_.put()));
  }

  DWORD Advise(const Ref<BusySink>& sink) {
    DWORD cookie = 0;
    EXPECT_EQ(S_OK, point_->Advise(sink.get(), &cookie));
    return cookie;
  }
  // Makes the report announce one line.
  void Fail() {
    Ref<IDispatch> rows;
    EXPECT_EQ(static_cast<HRESULT>(0x80041FAB), report_->EtiquetaDivisoria(nullptr, rows.put()));
  }

  Ref<ICCaixaRpt> report_;
  Ref<IConnectionPoint> point_;
};

TEST_F(BusySinks, OneThatAnotherUnadvisesStillReceivesTheCurrentLine) {
  const auto taking = BusySink::New();
  const auto taken = BusySink::New();
  Advise(taking);
  const DWORD cookie = Advise(taken);
  taking->atEachLine = [&] { point_->Unadvise(cookie); };
  Fail();
  EXPECT_EQ(1, taking->heard);
  EXPECT_EQ(1, taken->heard);
  EXPECT_EQ(1U, taken->References());
  Fail();
  EXPECT_EQ(2, taking->heard);
  EXPECT_EQ(1, taken->heard);
}

TEST_F(BusySinks, OneThatAnotherAdvisesReceivesTheLinesAfterTheCurrentOne) {
  const auto advising = BusySink::New();
  const auto advised = BusySink::New();
  Advise(advising);
  advising->atEachLine = [&] {
    if (advising->heard == 1) Advise(advised);
  };
  Fail();
  EXPECT_EQ(0, advised->heard);
  Fail();
  EXPECT_EQ(2, advising->heard);
  EXPECT_EQ(1, advised->heard);
}

TEST_F(BusySinks, OneThatUnadvisesItselfIsReleasedAfterItsCall) {
  auto sink = BusySink::New();
  const auto staying = BusySink::New();
  const DWORD cookie = Advise(sink);
  Advise(staying);
  bool gone = false;
  bool goneInItsCall = true;
  sink->atEachLine = [&] {
    bool& result = goneInItsCall;  // outlives the sink
    const bool& now = gone;
    point_->Unadvise(cookie);
    result = now;
  };
  sink->atTheEnd = [&] { gone = true; };
  sink.Release();
  Fail();
  EXPECT_FALSE(goneInItsCall);
  EXPECT_TRUE(gone);
  EXPECT_EQ(1, staying->heard);
}

TEST_F(BusySinks, OneThatUnadvisesInItsLastReleaseIsNotListedThen) {
  auto sink = BusySink::New();
  const auto other = BusySink::New();
  const auto staying = BusySink::New();
  const DWORD cookie = Advise(sink);
  const DWORD otherCookie = Advise(other);
  Advise(staying);
  HRESULT itself = E_UNEXPECTED;
  HRESULT another = E_UNEXPECTED;
  sink->atTheEnd = [&] {
    itself = point_->Unadvise(cookie);
    another = point_->Unadvise(otherCookie);
  };
  sink.Release();
  EXPECT_EQ(S_OK, point_->Unadvise(cookie));
  EXPECT_EQ(CONNECT_E_NOCONNECTION, itself);
  EXPECT_EQ(S_OK, another);
  EXPECT_EQ(1U, other->References());
  Fail();
  EXPECT_EQ(0, other->heard);
  EXPECT_EQ(1, staying->heard);
}

// The sinks know the report's connection point without a reference, so that they do not keep the report alive. One that
// was still listed would be released twice.
TEST_F(BusySinks, ThoseThatUnadviseWhenTheReportIsReleasedAreNotListedThen) {
  IConnectionPoint* const point = point_.get();
  HRESULT results[3] = {};
  for (HRESULT& result : results) {
    auto sink = BusySink::New();
    const DWORD cookie = Advise(sink);
    sink->atTheEnd = [&result, point, cookie] { result = point->Unadvise(cookie); };
    sink.Release();
  }
  EXPECT_EQ(1U, point_.Release());
  EXPECT_EQ(0U, report_.Release());
  for (const HRESULT result : results) EXPECT_EQ(CONNECT_E_NOCONNECTION, result);
}

}  // namespace
}  // namespace kodra::face
