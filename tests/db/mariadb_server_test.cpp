// What the client of the private server and the other users of the machine may not do.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "odbc/engine/recordset.h"
#include "testbed/mariadb/child_process.h"
#include "tests/db/mariadb.h"
#include "tests/db/temporary_folder.h"
#include "tests/odbc/print_value.h"
#include "tests/odbc/raised.h"
#include "tests/secret.h"

namespace kodra::testbed {
namespace {

namespace ad = platform::ad;
namespace fs = std::filesystem;

using tests::kSecret;
using tests::MariaDb;
using tests::Raised;
using tests::RaisedBy;

// The value of a key in a connection string.
std::wstring ValueOf(const std::wstring& connectionString, const std::wstring& key) {
  const std::size_t from = connectionString.find(key + L"=") + key.size() + 1;
  return connectionString.substr(from, connectionString.find(L';', from) - from);
}

class PrivateServer : public testing::Test {
 protected:
  static void SetUpTestSuite() { MariaDb().CreateDatabase(L"privado"); }

  PrivateServer() { cn.Open(text, L"", L"", ad::kUnspecified); }

  Value Selected(const std::wstring& expression) {
    odbc::Recordset rs;
    rs.Open(L"select " + expression, &cn, ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
    return rs.FieldValue(0);
  }
  // The server's message for a statement that it refuses.
  std::wstring Refusal(const std::wstring& statement) {
    const Raised raised = RaisedBy([&] { cn.Execute(statement, ad::kCmdText); });
    return raised.description.substr(raised.description.rfind(L']') + 1);
  }
  fs::path Path(const std::wstring& variable) { return Selected(L"@@" + variable).As<std::wstring>(); }
  static fs::path Socket() { return ValueOf(MariaDb().ConnectionString(L"privado"), L"Socket"); }

  const std::wstring text = MariaDb().ConnectionString(L"privado");
  odbc::Connection cn;
};

TEST_F(PrivateServer, IsNeverAProcessOfRoot) {
  std::string process;
  std::ifstream(Path(L"pid_file")) >> process;
  struct stat owner {};
  ASSERT_EQ(stat(("/proc/" + process).c_str(), &owner), 0) << process;
  EXPECT_NE(owner.st_uid, 0U);
  if (geteuid() != 0) EXPECT_EQ(owner.st_uid, geteuid());
}

TEST_F(PrivateServer, ListensOnNoPort) { EXPECT_EQ(Selected(L"@@skip_networking"), Value(std::int64_t{1})); }

TEST_F(PrivateServer, HasItsFilesInFoldersThatNoOtherUserMayRead) {
  for (const fs::path& folder : {Path(L"datadir"), Path(L"secure_file_priv"), Socket().parent_path()}) {
    struct stat status {};
    ASSERT_EQ(stat(folder.c_str(), &status), 0) << folder;
    EXPECT_EQ(status.st_mode & 0777U, 0700U) << folder;
  }
  // The group is the server's alone, which enters its own folder through this one.
  struct stat status {};
  ASSERT_EQ(stat(Socket().parent_path().parent_path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0767U, 0700U);
}

TEST_F(PrivateServer, LetsItsClientReadAndWriteNoFile) {
  const std::wstring file = (fs::temp_directory_path() / "kodra-escrito").wstring();
  EXPECT_EQ(Refusal(L"select 1 into outfile '" + file + L"'"),
            L"Access denied; you need (at least one of) the FILE privilege(s) for this operation");
  EXPECT_FALSE(fs::exists(file));
  EXPECT_EQ(Selected(L"load_file('/etc/os-release')"), Value(Null{}));
  cn.Execute(L"create or replace table T(X text)", ad::kCmdText);
  EXPECT_EQ(Refusal(L"load data local infile '/etc/os-release' into table T"),
            L"The used command is not allowed because the MariaDB server or client has disabled the local infile "
            L"capability");
  EXPECT_EQ(Selected(L"@@have_symlink"), Value(L"DISABLED"));
}

TEST_F(PrivateServer, LetsItsClientUseOnlyTheDatabasesMadeForIt) {
  EXPECT_EQ(Refusal(L"select * from mysql.user"),
            L"SELECT command denied to user 'arquivo'@'localhost' for table `mysql`.`user`");
  EXPECT_EQ(Refusal(L"create database outro"), L"Access denied for user 'arquivo'@'localhost' to database 'outro'");
  EXPECT_EQ(Refusal(L"create user ana"),
            L"Access denied; you need (at least one of) the CREATE USER privilege(s) for this operation");
  EXPECT_EQ(Refusal(L"create database privado_copia"), L"");
  EXPECT_EQ(Refusal(L"drop database privado_copia"), L"");
}

TEST_F(PrivateServer, HasAPasswordThatNoOtherServerHas) {
  const MariaDbServer other;
  const std::wstring password = ValueOf(text, L"Pwd");
  EXPECT_NE(password, ValueOf(other.ConnectionString(L"privado"), L"Pwd"));
  EXPECT_GE(password.size(), kSecret.size() + 32);
  // The test runs search their output for this beginning.
  EXPECT_TRUE(password.starts_with(kSecret));
}

TEST_F(PrivateServer, RefusesWhatTheSourceTells) {
  struct Account {
    const wchar_t* user;
    const wchar_t* password;
  };
  for (const Account& account : {Account{L"arquivo", L""}, {L"arquivo", L"NuncaMostrada"}, {L"root", L""}}) {
    odbc::Connection refused;
    const std::wstring server = text.substr(0, text.find(L"Uid="));
    RaisedBy([&] { refused.Open(server, account.user, account.password, ad::kUnspecified); });
    EXPECT_EQ(refused.State(), ad::kStateClosed) << testing::PrintToString(account.user);
    EXPECT_EQ(refused.NativeError(0), 1045);
  }
}

TEST_F(PrivateServer, IsOutOfReachForAnotherUserOfTheMachine) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can run a program as another user";
  const tests::TemporaryFolder folder;
  const fs::path output = folder / "saida";
  const int status = WaitFor(
      Spawn({.command = {"/usr/bin/setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", "/usr/bin/mariadb",
                         "--no-defaults", "--user=arquivo", "--socket=" + Socket().string(), "--execute=select 1"},
             .input = "/dev/null",
             .output = output}));
  std::ifstream file(output);
  const std::string message{std::istreambuf_iterator<char>(file), {}};
  EXPECT_EQ(status, 1);
  // 13 is EACCES.
  EXPECT_EQ(message,
            "ERROR 2002 (HY000): Can't connect to local server through socket '" + Socket().string() + "' (13)\n");
}

}  // namespace
}  // namespace kodra::testbed
