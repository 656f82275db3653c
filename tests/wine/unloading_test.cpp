// The unloading of the component. A client that lets COM unload idle DLLs loads it again and again, so that it must
// free everything that it allocated.
#include <kodrarpt.h>

#include <memory>
#include <thread>

#include "tests/wine/process_resources.h"
#include "tests/wine/server.h"

namespace kodra::face {
namespace {

// Resources of the process.
struct Resources {
  // The first free slots of thread-local and fiber-local storage.
  DWORD threadSlot;
  DWORD fiberSlot;
  std::size_t handles;
  std::size_t bytes;
  bool operator==(const Resources&) const = default;
};

Resources CurrentResources() {
  const DWORD threadSlot = TlsAlloc();
  const DWORD fiberSlot = FlsAlloc(nullptr);
  TlsFree(threadSlot);
  FlsFree(fiberSlot);
  return {threadSlot, fiberSlot, OpenHandles(), HeapBytes()};
}

void PrintTo(const Resources& resources, std::ostream* out) {
  *out << "slots " << resources.threadSlot << " and " << resources.fiberSlot << ", " << resources.handles
       << " handles, " << resources.bytes << " bytes";
}

class Unloading : public testing::Test {
 protected:
  // A copy, because COM may still hold the registered DLL.
  Unloading() : copy_(L"descarga.dll") {
    EXPECT_TRUE(CopyFileW(DllPath().c_str(), copy_.windowsPath().c_str(), FALSE));
  }

  // A report that fails: an exception is thrown and caught in the DLL.
  static void Throw(const Server& server) {
    const auto report = server.Create<ICDeptoRpt>(__uuidof(::CDeptoRpt));
    Ref<IDispatch> rows;
    EXPECT_EQ(kReportError, report->RelatorioDeptos(nullptr, rows.put()));
    SetErrorInfo(0, nullptr);
  }

  bool IsLoaded() const { return GetModuleHandleW(copy_.windowsPath().c_str()) != nullptr; }

  // Runs rounds and expects the same resources before and after. Now and then Windows itself allocates something, once;
  // a leak occurs in each round.
  template <class Round>
  void ExpectNothingLost(Round round) {
    constexpr int kRounds = 50;
    const auto runAll = [&] {
      for (int i = 0; i < kRounds && !HasFailure(); ++i) round();
    };
    runAll();
    Resources before = CurrentResources();
    runAll();
    for (int again = 0; again < 3 && CurrentResources() != before; ++again) {
      before = CurrentResources();
      runAll();
    }
    EXPECT_EQ(before, CurrentResources());
    EXPECT_FALSE(IsLoaded());
  }

  TemporaryFile copy_;
};

TEST_F(Unloading, FreesWhatTheComponentTook) {
  ExpectNothingLost([this] { Throw(Server(copy_.windowsPath())); });
}

TEST_F(Unloading, MayBeDoneMoreOftenThanAProcessHasSlots) {
  constexpr int kSlots = 1088;
  for (int i = 0; i <= kSlots && !HasFailure(); ++i) Throw(Server(copy_.windowsPath()));
}

// One release too many would end the library while another client uses it; a release before the last object ends would
// make the component read the library again for every object.
TEST_F(Unloading, TheTypeLibraryIsReleasedOnceAndWithTheLastObject) {
  const Server server(copy_.windowsPath());
  Ref<ITypeLib> library;
  // An object whose type information, which is released again, has made the component read its library.
  const auto describe = [&server, &library] {
    auto report = server.Create<IDispatch>(__uuidof(::CDeptoRpt));
    Ref<ITypeInfo> info;
    EXPECT_EQ(S_OK, report->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()));
    UINT index = 0;
    Ref<ITypeLib> own;
    EXPECT_EQ(S_OK, info->GetContainingTypeLib(own.put(), &index));
    if (!library) library = own;
    EXPECT_EQ(library.get(), own.get());
    return report;
  };
  const auto references = [&library] {
    library->AddRef();
    return library->Release();
  };
  auto report = describe();
  // With spare references in addition to the test's own, a release too many shows as a wrong count and does not end the
  // library.
  for (int spare = 0; spare < 9; ++spare) library->AddRef();
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(11U, references());
    server.Create<IDispatch>(__uuidof(::CDeptoRpt));
    EXPECT_EQ(11U, references());
    EXPECT_EQ(0U, report.Release());
    EXPECT_EQ(S_OK, server.CanUnloadNow());
    EXPECT_EQ(10U, references());
    report = describe();
  }
  if (HasFailure()) return;
  for (int spare = 0; spare < 9; ++spare) library->Release();
}

TEST_F(Unloading, FreesWhatItTookForThreadsThatHaveEnded) {
  ExpectNothingLost([this] {
    const Server server(copy_.windowsPath());
    std::thread([&server] { Throw(server); }).join();
  });
}

TEST_F(Unloading, FreesWhatItTookForThreadsThatAreStillRunning) {
  ExpectNothingLost([this] {
    HANDLE used = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE unloaded = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    auto server = std::make_unique<Server>(copy_.windowsPath());
    std::thread other([&] {
      Throw(*server);
      SetEvent(used);
      WaitForSingleObject(unloaded, INFINITE);
    });
    WaitForSingleObject(used, INFINITE);
    server.reset();
    EXPECT_FALSE(IsLoaded());
    SetEvent(unloaded);
    other.join();
    CloseHandle(used);
    CloseHandle(unloaded);
  });
}

}  // namespace
}  // namespace kodra::face
