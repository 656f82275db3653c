// `regsvr32 /n /i:user`: the component registered for the current user, and unregistered.
#include "tests/package/command.h"
#include "tests/package/registry.h"
#include "tests/wine/environment.h"
#include "tests/wine/server.h"

namespace kodra::package {
namespace {

RegistryLines DumpUserClasses() { return Dump(HKEY_CURRENT_USER, L"Software\\Classes"); }

// Dumps the classes before anything is registered, and unregisters after each test.
class UserRegistration : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    // All components of a user share this key, which a new user does not have yet.
    HKEY shared = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\Classes\\CLSID", &shared));
    RegCloseKey(shared);
    user_ = DumpUserClasses();
    machine_ = DumpClasses();
  }
  ~UserRegistration() override { EXPECT_EQ(S_OK, server_.Install(FALSE, L"user")); }

  static DWORD Regsvr32(const std::wstring& options) {
    return RunCommand(L"regsvr32 /s " + options + L" " + Quoted(face::DllPath()));
  }

  static RegistryLines user_;
  static RegistryLines machine_;
  const face::Server server_;
};
RegistryLines UserRegistration::user_;
RegistryLines UserRegistration::machine_;

TEST_F(UserRegistration, WritesTheRowsOfEveryClassForTheUser) {
  ASSERT_EQ(0U, Regsvr32(L"/n /i:user"));
  EXPECT_EQ(RegistryLines(), Without(user_, DumpUserClasses()));
  ExpectSame(Sorted(face::ClassRows(face::DllPath())), Without(DumpUserClasses(), user_));
}

// Windows writes the type library only for the user as well. Wine always writes it for all users.
TEST_F(UserRegistration, WritesNoClassForAllUsers) {
  ASSERT_EQ(0U, Regsvr32(L"/n /i:user"));
  EXPECT_EQ(RegistryLines(), Without(machine_, DumpClasses()));
  ExpectSame(Sorted(face::LibraryRows(face::DllPath())), Without(DumpClasses(), machine_));
}

TEST_F(UserRegistration, IsRemovedCompletely) {
  ASSERT_EQ(0U, Regsvr32(L"/n /i:user"));
  ASSERT_NE(user_, DumpUserClasses());
  ASSERT_EQ(0U, Regsvr32(L"/u /n /i:user"));
  ExpectSame(user_, DumpUserClasses());
  ExpectSame(machine_, DumpClasses());
}

TEST_F(UserRegistration, OfAnotherFileStays) {
  const face::ServerCopy earlier(L"anterior.dll");
  ASSERT_EQ(S_OK, earlier->Install(TRUE, L"user"));
  ASSERT_EQ(0U, Regsvr32(L"/n /i:user"));
  const RegistryLines user = DumpUserClasses();
  const RegistryLines machine = DumpClasses();
  EXPECT_EQ(S_OK, earlier->Install(FALSE, L"user"));
  ExpectSame(user, DumpUserClasses());
  ExpectSame(machine, DumpClasses());
}

TEST_F(UserRegistration, RemovalLeavesAnotherFileOfAllUsers) {
  const face::ServerCopy shared(L"de-todos.dll");
  ASSERT_EQ(S_OK, shared->Install(TRUE, nullptr));
  const RegistryLines machine = DumpClasses();
  ASSERT_EQ(0U, Regsvr32(L"/u /n /i:user"));
  ExpectSame(machine, DumpClasses());
  ASSERT_EQ(S_OK, shared->Install(FALSE, nullptr));
  ExpectSame(machine_, DumpClasses());
}

TEST_F(UserRegistration, WithoutAUserIsThatOfAllUsers) {
  ASSERT_EQ(0U, Regsvr32(L"/n /i"));
  ExpectSame(user_, DumpUserClasses());
  ExpectSame(Sorted(face::ClassRows(face::DllPath()), face::LibraryRows(face::DllPath())),
             Without(DumpClasses(), machine_));
  ASSERT_EQ(0U, Regsvr32(L"/u /n /i"));
  ExpectSame(machine_, DumpClasses());
}

TEST_F(UserRegistration, AcceptsTheWordInAnyLetterCaseAndRefusesAnother) {
  EXPECT_EQ(E_INVALIDARG, server_.Install(TRUE, L"users"));
  EXPECT_EQ(E_INVALIDARG, server_.Install(TRUE, L"machine"));
  EXPECT_EQ(E_INVALIDARG, server_.Install(FALSE, L"users"));
  EXPECT_EQ(user_, DumpUserClasses());
  EXPECT_EQ(S_OK, server_.Install(TRUE, L"User"));
  EXPECT_NE(user_, DumpUserClasses());
}

}  // namespace
}  // namespace kodra::package
