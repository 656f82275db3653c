// What registration writes into the class registry, and that unregistering removes exactly that.
#include "tests/wine/registered_rows.h"
#include "tests/wine/registry_dump.h"
#include "tests/wine/server.h"

namespace kodra::face {
namespace {

// Dumps the registry once without and once with the component. Registers the component again after every test.
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

// The rows of a key and of everything below it.
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

TEST_F(Registration, WritesEveryClassByTheSameRuleAndTheTypeLibraryAndNothingElse) {
  ExpectSame(Sorted(ClassRows(DllPath()), LibraryRows(DllPath())), Added());
}

TEST_F(Registration, RemovesAndChangesNothingThatWasThereBefore) {
  EXPECT_EQ(RegistryLines(), Without(absent_, present_));
}

TEST_F(Registration, UnregisteringLeavesWhatWasThereBefore) {
  ASSERT_EQ(S_OK, server_.Unregister());
  ExpectSame(absent_, DumpClasses());
}

// Not even a trace that an earlier unregistering might have left.
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

TEST_F(Registration, UnregisteringAfterAPartialRemovalRemovesTheRest) {
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
  const TemporaryFile copy(L"outra.dll");
  ASSERT_TRUE(CopyFileW(DllPath().c_str(), copy.windowsPath().c_str(), FALSE));
  const Server other(copy.windowsPath());
  ASSERT_EQ(S_OK, other.Register());
  ASSERT_EQ(S_OK, server_.Register());
  ExpectSame(present_, DumpClasses());
}

// The path in 8.3 form.
std::wstring ShortPath(const std::wstring& path) {
  wchar_t text[MAX_PATH] = {};
  EXPECT_NE(0U, GetShortPathNameW(path.c_str(), text, MAX_PATH));
  EXPECT_NE(path, text);
  return text;
}

std::wstring InUpperCase(std::wstring text) {
  CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

const std::wstring kDepartmentsServer = L"CLSID\\{8EAFA4EE-8163-4508-872D-84D4E9420440}\\InprocServer32";
const std::wstring kGroupsServer = L"CLSID\\{257D4595-3AE2-4DAB-8106-F2A6614121DB}\\InprocServer32";
const std::wstring kLibraryFile =
    std::wstring(L"TypeLib\\") + kLibraryId + (sizeof(void*) == 8 ? L"\\1.0\\0\\win64" : L"\\1.0\\0\\win32");

// Writes the file of a class or of the type library into the registry.
void RegisterFile(const std::wstring& key, const std::wstring& file) {
  ASSERT_EQ(ERROR_SUCCESS, RegSetKeyValueW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + key).c_str(), nullptr, REG_SZ,
                                           file.c_str(), static_cast<DWORD>((file.size() + 1) * sizeof(wchar_t))));
}

TEST_F(Registration, UnregisteringAnEarlierFileLeavesTheOneThatReplacedIt) {
  const ServerCopy earlier(L"anterior.dll");
  ASSERT_EQ(S_OK, earlier->Register());
  ASSERT_EQ(S_OK, server_.Register());
  EXPECT_EQ(S_OK, earlier->Unregister());
  ExpectSame(present_, DumpClasses());
}

TEST_F(Registration, UnregisteringLeavesTheClassesOfAnotherFile) {
  const std::wstring elsewhere = L"C:\\Outra Pasta\\KodraRpt.dll";
  RegisterFile(kDepartmentsServer, elsewhere);
  ASSERT_EQ(S_OK, server_.Unregister());
  const RegistryLines rows = ClassRows(elsewhere);
  ExpectSame(Sorted(Under(Sorted(rows), L"KodraRpt.CDeptoRpt"),
                    Under(Sorted(rows), L"CLSID\\{8EAFA4EE-8163-4508-872D-84D4E9420440}")),
             Without(DumpClasses(), absent_));
  RegisterFile(kDepartmentsServer, DllPath());
  ASSERT_EQ(S_OK, server_.Unregister());
  ExpectSame(absent_, DumpClasses());
}

TEST_F(Registration, UnregisteringLeavesTheTypeLibraryOfAnotherFile) {
  const ServerCopy other(L"biblioteca.dll");
  ASSERT_EQ(S_OK, other->Register());
  for (const ClassEntry& entry : PublicClasses())
    RegisterFile(L"CLSID\\" + entry.clsid + L"\\InprocServer32", DllPath());
  ASSERT_EQ(S_OK, server_.Unregister());
  ExpectSame(Sorted(LibraryRows(other.path())), Without(DumpClasses(), absent_));
  ASSERT_EQ(S_OK, other->Unregister());
  ExpectSame(absent_, DumpClasses());
}

TEST_F(Registration, UnregisteringRecognisesItsFileByEveryName) {
  const ServerCopy other(L"um nome comprido.dll");
  ASSERT_EQ(S_OK, other->Register());
  RegisterFile(kDepartmentsServer, InUpperCase(other.path()));
  RegisterFile(kGroupsServer, ShortPath(other.path()));
  RegisterFile(kLibraryFile, ShortPath(InUpperCase(other.path())));
  ASSERT_EQ(S_OK, other->Unregister());
  ExpectSame(absent_, DumpClasses());
}

}  // namespace
}  // namespace kodra::face
