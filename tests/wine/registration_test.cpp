// What registration writes into the class registry, and that unregistering takes back that and nothing else.
#include "public_face.h"
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

// No difference, or both sides of it.
void ExpectSame(const RegistryLines& expected, const RegistryLines& actual) {
  EXPECT_EQ(RegistryLines(), Without(expected, actual)) << "missing";
  EXPECT_EQ(RegistryLines(), Without(actual, expected)) << "too much";
}

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

// Every row of the classes, by the one rule.
RegistryLines ClassRows() {
  RegistryLines rows;
  for (const ClassEntry& entry : PublicClasses()) {
    const std::wstring progId = entry.progId();
    const std::wstring key = L"CLSID\\" + entry.clsid;
    for (const std::wstring& row :
         {progId, progId + L"|=" + progId, progId + L"\\CLSID", progId + L"\\CLSID|=" + entry.clsid, key,
          key + L"|=" + progId, key + L"\\InprocServer32", key + L"\\InprocServer32|=" + DllPath(),
          key + L"\\InprocServer32|ThreadingModel=Apartment", key + L"\\ProgID", key + L"\\ProgID|=" + progId,
          key + L"\\TypeLib", key + L"\\TypeLib|=" + kLibraryId, key + L"\\Version", key + L"\\Version|=1.0"})
      rows.push_back(row);
  }
  return rows;
}

// An interface of the library, by its id.
struct Described {
  std::wstring id;
  std::wstring name;
  bool isDual;
};
std::vector<Described> Interfaces() {
  std::vector<Described> interfaces;
  Ref<ITypeLib> library;
  EXPECT_EQ(S_OK, LoadTypeLibEx(DllPath().c_str(), REGKIND_NONE, library.put()));
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    Ref<ITypeInfo> info;
    EXPECT_EQ(S_OK, library->GetTypeInfo(i, info.put()));
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(S_OK, info->GetTypeAttr(&attributes));
    if (attributes->typekind == TKIND_DISPATCH) {
      Bstr name;
      EXPECT_EQ(S_OK, info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr));
      wchar_t id[39] = {};
      StringFromGUID2(attributes->guid, id, 39);
      interfaces.push_back({id, name.text(), (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0});
    }
    info->ReleaseTypeAttr(attributes);
  }
  return interfaces;
}

// What automation writes for a type library and its interfaces.
RegistryLines LibraryRows() {
  constexpr const wchar_t* kReadFromAFile = L"8";
  const std::wstring root = std::wstring(L"TypeLib\\") + kLibraryId;
  const std::wstring version = root + L"\\1.0";
  const std::wstring folder = DllPath().substr(0, DllPath().rfind(L'\\'));
  RegistryLines rows = {root,
                        version,
                        version + L"|=KodraRpt 1.0 - dados para os impressos do arquivo",
                        version + L"\\0",
                        version + L"\\0\\win32",
                        version + L"\\0\\win32|=" + DllPath(),
                        version + L"\\FLAGS",
                        version + L"\\FLAGS|=" + kReadFromAFile,
                        version + L"\\HELPDIR",
                        version + L"\\HELPDIR|=" + folder};
  // By the type library, and by IDispatch alone.
  constexpr const wchar_t* kDualMarshaler = L"{00020424-0000-0000-C000-000000000046}";
  constexpr const wchar_t* kDispatchMarshaler = L"{00020420-0000-0000-C000-000000000046}";
  for (const auto& [id, name, isDual] : Interfaces()) {
    const std::wstring key = L"Interface\\" + id;
    const std::wstring marshaler = isDual ? kDualMarshaler : kDispatchMarshaler;
    for (const std::wstring& row :
         {key, key + L"|=" + name, key + L"\\ProxyStubClsid", key + L"\\ProxyStubClsid|=" + marshaler,
          key + L"\\ProxyStubClsid32", key + L"\\ProxyStubClsid32|=" + marshaler, key + L"\\TypeLib",
          key + L"\\TypeLib|=" + kLibraryId, key + L"\\TypeLib|Version=1.0"})
      rows.push_back(row);
  }
  return rows;
}

TEST_F(Registration, WritesEveryClassByTheOneRuleAndTheTypeLibraryAndNothingElse) {
  RegistryLines expected = ClassRows();
  const RegistryLines library = LibraryRows();
  expected.insert(expected.end(), library.begin(), library.end());
  std::sort(expected.begin(), expected.end());
  ExpectSame(expected, Added());
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
  for (const auto& [id, name, isDual] : Interfaces()) traces.push_back(id);
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
