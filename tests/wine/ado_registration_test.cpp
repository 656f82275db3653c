// What the registration of ADO for Wine writes into the class registry and removes again. The registered DLL writes
// into a key of the test.
#include <set>

#include "tests/wine/ado_support.h"
#include "tests/wine/registry_redirection.h"
#include "tests/wine/server.h"

namespace kodra::face {
namespace {

constexpr wchar_t kServer[] = L"Software\\Classes\\CLSID\\{00000535-0000-0010-8000-00AA006D2EA4}\\InprocServer32";

// The path of the DLL that is registered as ADO.
std::wstring RegisteredPath() { return RegistryText(HKEY_LOCAL_MACHINE, kServer); }

class AdoRegistration : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(registry_.IsActive()); }

  const std::wstring path_ = RegisteredPath();
  const Server server_{path_};
  const RegistryRedirection registry_;
};

const std::set<std::wstring> kClassKeys{L"ADODB.Command",        L"ADODB.Command.2.8",   L"ADODB.Connection",
                                        L"ADODB.Connection.2.8", L"ADODB.Parameter",     L"ADODB.Parameter.2.8",
                                        L"ADODB.Recordset",      L"ADODB.Recordset.2.8", L"CLSID"};

TEST_F(AdoRegistration, WritesItsClassesAndRemovesAllOfThem) {
  ASSERT_EQ(S_OK, server_.Register());
  EXPECT_EQ(kClassKeys, registry_.KeysBelow(L"Software\\Classes"));
  EXPECT_EQ(
      (std::set<std::wstring>{L"{00000507-0000-0010-8000-00AA006D2EA4}", L"{0000050B-0000-0010-8000-00AA006D2EA4}",
                              L"{00000514-0000-0010-8000-00AA006D2EA4}", L"{00000535-0000-0010-8000-00AA006D2EA4}"}),
      registry_.KeysBelow(L"Software\\Classes\\CLSID"));
  EXPECT_EQ(path_, registry_.Text(kServer));
  EXPECT_EQ(L"Both", registry_.Text(kServer, L"ThreadingModel"));
  EXPECT_EQ(L"{00000535-0000-0010-8000-00AA006D2EA4}",
            registry_.Text(L"Software\\Classes\\ADODB.Recordset.2.8\\CLSID"));
  ASSERT_EQ(S_OK, server_.Unregister());
  EXPECT_EQ(std::set<std::wstring>{L"CLSID"}, registry_.KeysBelow(L"Software\\Classes"));
  EXPECT_EQ(std::set<std::wstring>{}, registry_.KeysBelow(L"Software\\Classes\\CLSID"));
}

TEST_F(AdoRegistration, RestoresTheServerThatWasRegisteredBefore) {
  const wchar_t before[] = L"C:\\windows\\system32\\msado15.dll";
  ASSERT_EQ(ERROR_SUCCESS, registry_.SetText(kServer, nullptr, before));
  const wchar_t model[] = L"Apartment";
  ASSERT_EQ(ERROR_SUCCESS, registry_.SetText(kServer, L"ThreadingModel", model));
  ASSERT_EQ(S_OK, server_.Register());
  EXPECT_EQ(path_, registry_.Text(kServer));
  EXPECT_EQ(L"Both", registry_.Text(kServer, L"ThreadingModel"));
  ASSERT_EQ(S_OK, server_.Register());
  ASSERT_EQ(S_OK, server_.Unregister());
  EXPECT_EQ(before, registry_.Text(kServer));
  EXPECT_EQ(model, registry_.Text(kServer, L"ThreadingModel"));
  EXPECT_EQ(L"(none)", registry_.Text(kServer, L"KodraReplaced"));
  EXPECT_EQ(L"(none)", registry_.Text(kServer, L"KodraReplacedModel"));
}

TEST_F(AdoRegistration, UnregisteringWhatIsNotRegisteredIsNoError) { EXPECT_EQ(S_OK, server_.Unregister()); }

TEST(AdoModule, IsHeldByEveryObjectAndByNothingElse) {
  const Server server(RegisteredPath());
  auto rows = NewRecordset();
  auto fields = FieldsOf(rows);
  rows = {};
  EXPECT_EQ(S_FALSE, server.CanUnloadNow());
  fields = {};
  EXPECT_EQ(S_OK, server.CanUnloadNow());
}

}  // namespace
}  // namespace kodra::face
