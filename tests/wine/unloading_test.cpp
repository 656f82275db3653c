// A client that lets COM unload the component whenever it is idle loads it again and again: the DLL must free whatever
// it took from the process.
#include <kodrarpt.h>

#include <memory>
#include <thread>

#include "tests/wine/process_resources.h"
#include "tests/wine/server.h"

namespace kodra::face {
namespace {

// The resources that the process has left, and those that it holds.
struct Holdings {
  DWORD threadSlot;
  DWORD fiberSlot;
  std::size_t handles;
  std::size_t bytes;
  bool operator==(const Holdings&) const = default;
};

Holdings Held() {
  // The first slots of thread-local and fiber-local storage that are free.
  const DWORD threadSlot = TlsAlloc();
  const DWORD fiberSlot = FlsAlloc(nullptr);
  TlsFree(threadSlot);
  FlsFree(fiberSlot);
  return {threadSlot, fiberSlot, OpenHandles(), HeapBytes()};
}

void PrintTo(const Holdings& held, std::ostream* out) {
  *out << "slots " << held.threadSlot << " and " << held.fiberSlot << ", " << held.handles << " handles, " << held.bytes
       << " bytes";
}

class Unloading : public testing::Test {
 protected:
  // A copy, separate from the registered DLL, which COM may still hold.
  Unloading() : copy_(L"descarga.dll") {
    EXPECT_TRUE(CopyFileW(DllPath().c_str(), copy_.windowsPath().c_str(), FALSE));
  }

  // A report that fails: an exception is thrown and caught in the DLL.
  static void Throw(const Server& server) {
    const auto report = server.Create<ICDeptoRpt>(__uuidof(::CDeptoRpt));
    Ref<IDispatch> rows;
    EXPECT_EQ(static_cast<HRESULT>(0x80041FAB), report->RelatorioDeptos(nullptr, rows.put()));
    SetErrorInfo(0, nullptr);
  }

  bool IsLoaded() const { return GetModuleHandleW(copy_.windowsPath().c_str()) != nullptr; }

  // Runs rounds and compares what the process holds before and after. What Windows allocates now and then does not come
  // again; a leak comes again each time.
  template <class Round>
  void ExpectNothingLost(Round round) {
    constexpr int kRounds = 50;
    const auto runAll = [&] {
      for (int i = 0; i < kRounds && !HasFailure(); ++i) round();
    };
    runAll();
    Holdings before = Held();
    runAll();
    for (int again = 0; again < 3 && Held() != before; ++again) {
      before = Held();
      runAll();
    }
    EXPECT_EQ(before, Held());
    EXPECT_FALSE(IsLoaded());
  }

  OwnFile copy_;
};

TEST_F(Unloading, FreesWhatTheComponentTook) {
  ExpectNothingLost([this] { Throw(Server(copy_.windowsPath())); });
}

TEST_F(Unloading, MayBeDoneMoreOftenThanAProcessHasSlots) {
  constexpr int kSlots = 1088;
  for (int i = 0; i <= kSlots && !HasFailure(); ++i) Throw(Server(copy_.windowsPath()));
}

// A count that fell too low would end the library while another client has it; one that fell too early would make the
// library be read again for every object.
TEST_F(Unloading, TheTypeLibraryIsReleasedOnceAndWithTheLastObject) {
  const Server server(copy_.windowsPath());
  Ref<ITypeLib> library;
  // An object that has described itself by the component's library; nothing of the description is left.
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
  // In addition to the test's own reference: with spare references, a release too many shows as a wrong count and does
  // not end the library.
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
