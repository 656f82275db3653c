// What registration writes into the class registry, and that unregistering takes back that and nothing else.
#include "registered_rows.h"
#include "registry_dump.h"
#include "server.h"

namespace kodra::face {
namespace {

// Dumps the registry without and with the component once; leaves it registered, whatever a test did.
class Registration : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    const Server server;
    EXPECT_EQ(S_OK, server.Unregister());
    absent_ = DumpClasses();
    EXPECT_GT(absent_.size(), 1000U);
    EXPECT_EQ(S_OK, server.Register());
    present_ = DumpClasses();
  }
  ~Registration() override { EXPECT_EQ(S_OK, server_.Register()); }

  // The rows that registering adds.
  static RegistryLines Added() { return Without(present_, absent_); }

  static RegistryLines absent_;
  static RegistryLines present_;
  const Server server_;
};
RegistryLines Registration::absent_;
RegistryLines Registration::present_;

RegistryLines Under(const RegistryLines& lines, const std::wstring& key) {
  RegistryLines found;
  std::copy_if(lines.begin(), lines.end(), std::back_inserter(found), [&](const std::wstring& line) {
    return line.starts_with(key) &&
           (line.size() == key.size() || line[key.size()] == L'\\' || line[key.size()] == L'|');
  });
  return found;
}

TEST_F(Registration, WritesTheKeysOfTheDepartmentsReport) {
  const RegistryLines added = Added();
  EXPECT_EQ((RegistryLines{L"KodraRpt.CDeptoRpt",                                                 //
                           L"KodraRpt.CDeptoRpt\\CLSID",                                          //
                           L"KodraRpt.CDeptoRpt\\CLSID|={8EAFA4EE-8163-4508-872D-84D4E9420440}",  //
                           L"KodraRpt.CDeptoRpt|=KodraRpt.CDeptoRpt"}),
            Under(added, L"KodraRpt.CDeptoRpt"));
  const std::wstring key = L"CLSID\\{8EAFA4EE-8163-4508-872D-84D4E9420440}";
  EXPECT_EQ((RegistryLines{key,                                                         //
                           key + L"\\InprocServer32",                                   //
                           key + L"\\InprocServer32|=" + DllPath(),                     //
                           key + L"\\InprocServer32|ThreadingModel=Apartment",          //
                           key + L"\\ProgID",                                           //
                           key + L"\\ProgID|=KodraRpt.CDeptoRpt",                       //
                           key + L"\\TypeLib",                                          //
                           key + L"\\TypeLib|={C29A7A57-DBE5-4CE4-BD9A-0AF8EB978154}",  //
                           key + L"\\Version",                                          //
                           key + L"\\Version|=1.0",                                     //
                           key + L"|=KodraRpt.CDeptoRpt"}),
            Under(added, key));
}

TEST_F(Registration, WritesEveryClassByTheOneRuleAndTheTypeLibraryAndNothingElse) {
  ExpectSame(Sorted(ClassRows(DllPath()), LibraryRows(DllPath())), Added());
}

TEST_F(Registration, RemovesAndChangesNothingThatWasThereBefore) {
  EXPECT_EQ(RegistryLines(), Without(absent_, present_));
}

TEST_F(Registration, UnregisteringLeavesWhatWasThereBefore) {
  ASSERT_EQ(S_OK, server_.Unregister());
  ExpectSame(absent_, DumpClasses());
}

// Also what an earlier unregistering might have left behind.
TEST_F(Registration, UnregisteringLeavesNoTraceOfTheComponent) {
  RegistryLines traces = {L"KODRARPT", std::wstring(kLibraryId)};
  for (const ClassEntry& entry : PublicClasses()) traces.push_back(entry.clsid);
  for (const auto& [id, name, isDual] : Interfaces(DllPath())) traces.push_back(id);
  for (std::wstring line : absent_) {
    CharUpperBuffW(line.data(), static_cast<DWORD>(line.size()));
    for (const std::wstring& trace : traces)
      if (line.find(trace) != std::wstring::npos) ADD_FAILURE() << testing::PrintToString(line);
  }
}

TEST_F(Registration, RegisteringTwiceIsRegisteringOnce) {
  EXPECT_EQ(S_OK, server_.Register());
  ExpectSame(present_, DumpClasses());
}

TEST_F(Registration, UnregisteringWhatIsAbsentIsNoError) {
  EXPECT_EQ(S_OK, server_.Unregister());
  EXPECT_EQ(S_OK, server_.Unregister());
}

TEST_F(Registration, UnregisteringARemainderTakesTheRest) {
  ASSERT_EQ(ERROR_SUCCESS, RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\KodraRpt.CCDRpt"));
  EXPECT_EQ(S_OK, server_.Unregister());
  ExpectSame(absent_, DumpClasses());
}

TEST_F(Registration, WithoutItNoClassIsCreatedByName) {
  ASSERT_EQ(S_OK, server_.Unregister());
  for (const ClassEntry& entry : PublicClasses()) {
    CLSID id = {};
    EXPECT_EQ(CO_E_CLASSSTRING, CLSIDFromProgID(entry.progId().c_str(), &id)) << testing::PrintToString(entry.name);
  }
}

TEST_F(Registration, AnEarlierFileIsReplacedByTheOneThatRegisters) {
  const OwnFile copy(L"outra.dll");
  ASSERT_TRUE(CopyFileW(DllPath().c_str(), copy.windowsPath().c_str(), FALSE));
  const Server other(copy.windowsPath());
  ASSERT_EQ(S_OK, other.Register());
  ASSERT_EQ(S_OK, server_.Register());
  ExpectSame(present_, DumpClasses());
}

}  // namespace
}  // namespace kodra::face
