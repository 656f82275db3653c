// What the registration of ADO for Wine writes into the class registry, and removes again.
//
// The tests use the registered DLL; meanwhile it writes into a key that replaces HKEY_LOCAL_MACHINE.
#include <set>

#include "tests/wine/ado_support.h"

namespace kodra::wine {
namespace {

constexpr wchar_t kStandIn[] = L"Software\\KodraTesteRegistro";
constexpr wchar_t kServer[] = L"Software\\Classes\\CLSID\\{00000535-0000-0010-8000-00AA006D2EA4}\\InprocServer32";

std::wstring TextOf(HKEY root, const std::wstring& path, const wchar_t* name = nullptr) {
  wchar_t text[MAX_PATH] = L"";
  DWORD bytes = sizeof(text);
  if (RegGetValueW(root, path.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &bytes) != ERROR_SUCCESS) return L"(none)";
  return text;
}

class AdoRegistration : public testing::Test {
 protected:
  void SetUp() override {
    path_ = TextOf(HKEY_LOCAL_MACHINE, kServer);
    dll_ = LoadLibraryW(path_.c_str());
    ASSERT_NE(nullptr, dll_);
    RegDeleteTreeW(HKEY_CURRENT_USER, kStandIn);
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyW(HKEY_CURRENT_USER, kStandIn, &standIn_));
    ASSERT_EQ(ERROR_SUCCESS, RegOverridePredefKey(HKEY_LOCAL_MACHINE, standIn_));
  }
  void TearDown() override {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    if (standIn_ != nullptr) RegCloseKey(standIn_);
    RegDeleteTreeW(HKEY_CURRENT_USER, kStandIn);
    if (dll_ != nullptr) FreeLibrary(dll_);
  }

  HRESULT Run(const char* entryPoint) const {
    const FARPROC found = GetProcAddress(dll_, entryPoint);
    if (found == nullptr) return E_FAIL;
    return reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(found))();
  }

  std::set<std::wstring> KeysBelow(const wchar_t* path) const {
    std::set<std::wstring> names;
    HKEY key = nullptr;
    if (RegOpenKeyW(standIn_, path, &key) != ERROR_SUCCESS) return names;
    wchar_t name[256];
    for (DWORD i = 0; RegEnumKeyW(key, i, name, 256) == ERROR_SUCCESS; ++i) names.insert(name);
    RegCloseKey(key);
    return names;
  }

  std::wstring path_;
  HMODULE dll_ = nullptr;
  HKEY standIn_ = nullptr;
};

const std::set<std::wstring> kClassesKeys{L"ADODB.Command",        L"ADODB.Command.2.8",   L"ADODB.Connection",
                                          L"ADODB.Connection.2.8", L"ADODB.Parameter",     L"ADODB.Parameter.2.8",
                                          L"ADODB.Recordset",      L"ADODB.Recordset.2.8", L"CLSID"};

TEST_F(AdoRegistration, WritesItsClassesAndRemovesAllOfThem) {
  ASSERT_EQ(S_OK, Run("DllRegisterServer"));
  EXPECT_EQ(kClassesKeys, KeysBelow(L"Software\\Classes"));
  EXPECT_EQ(
      (std::set<std::wstring>{L"{00000507-0000-0010-8000-00AA006D2EA4}", L"{0000050B-0000-0010-8000-00AA006D2EA4}",
                              L"{00000514-0000-0010-8000-00AA006D2EA4}", L"{00000535-0000-0010-8000-00AA006D2EA4}"}),
      KeysBelow(L"Software\\Classes\\CLSID"));
  EXPECT_EQ(path_, TextOf(standIn_, kServer));
  EXPECT_EQ(L"Both", TextOf(standIn_, kServer, L"ThreadingModel"));
  EXPECT_EQ(L"{00000535-0000-0010-8000-00AA006D2EA4}",
            TextOf(standIn_, L"Software\\Classes\\ADODB.Recordset.2.8\\CLSID"));
  ASSERT_EQ(S_OK, Run("DllUnregisterServer"));
  EXPECT_EQ(std::set<std::wstring>{L"CLSID"}, KeysBelow(L"Software\\Classes"));
  EXPECT_EQ(std::set<std::wstring>{}, KeysBelow(L"Software\\Classes\\CLSID"));
}

TEST_F(AdoRegistration, RestoresTheServerThatWasRegisteredBefore) {
  const wchar_t before[] = L"C:\\windows\\system32\\msado15.dll";
  ASSERT_EQ(ERROR_SUCCESS, RegSetKeyValueW(standIn_, kServer, nullptr, REG_SZ, before, sizeof(before)));
  const wchar_t model[] = L"Apartment";
  ASSERT_EQ(ERROR_SUCCESS, RegSetKeyValueW(standIn_, kServer, L"ThreadingModel", REG_SZ, model, sizeof(model)));
  ASSERT_EQ(S_OK, Run("DllRegisterServer"));
  EXPECT_EQ(path_, TextOf(standIn_, kServer));
  EXPECT_EQ(L"Both", TextOf(standIn_, kServer, L"ThreadingModel"));
  ASSERT_EQ(S_OK, Run("DllRegisterServer"));
  ASSERT_EQ(S_OK, Run("DllUnregisterServer"));
  EXPECT_EQ(before, TextOf(standIn_, kServer));
  EXPECT_EQ(model, TextOf(standIn_, kServer, L"ThreadingModel"));
  EXPECT_EQ(L"(none)", TextOf(standIn_, kServer, L"KodraReplaced"));
  EXPECT_EQ(L"(none)", TextOf(standIn_, kServer, L"KodraReplacedModel"));
}

TEST_F(AdoRegistration, UnregisteringWhatIsNotRegisteredIsNoError) { EXPECT_EQ(S_OK, Run("DllUnregisterServer")); }

TEST(AdoModule, IsHeldByEveryObjectAndByNothingElse) {
  const std::wstring path = TextOf(HKEY_LOCAL_MACHINE, kServer);
  const HMODULE dll = LoadLibraryW(path.c_str());
  ASSERT_NE(nullptr, dll);
  const auto canUnload =
      reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(GetProcAddress(dll, "DllCanUnloadNow")));
  ASSERT_NE(nullptr, canUnload);
  auto rows = NewRecordset();
  com_ptr<Fields> fields;
  ASSERT_EQ(S_OK, rows->get_Fields(fields.put()));
  rows = nullptr;
  EXPECT_EQ(S_FALSE, canUnload());
  fields = nullptr;
  EXPECT_EQ(S_OK, canUnload());
  FreeLibrary(dll);
}

}  // namespace
}  // namespace kodra::wine
