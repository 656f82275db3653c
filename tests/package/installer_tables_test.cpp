// The tables and the summary of the MSI, of which Windows reads more than Wine does.
#include <gtest/gtest.h>
// clang-format off
#include <windows.h>
#include <msi.h>
#include <msiquery.h>
// clang-format on

#include "tests/package/paths.h"

namespace kodra::package {
namespace {

// Properties of the summary.
constexpr UINT kCodePage = 1;
constexpr UINT kTemplate = 7;

class Database {
 public:
  Database() { EXPECT_EQ(0U, MsiOpenDatabaseW(Installer().c_str(), nullptr, &database_)); }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database() { MsiCloseHandle(database_); }

  // The first column of the first row; the empty text when there is no row.
  std::wstring Value(const std::wstring& query) const {
    MSIHANDLE view = 0;
    MSIHANDLE row = 0;
    wchar_t text[256] = {};
    DWORD size = 256;
    if (MsiDatabaseOpenViewW(database_, query.c_str(), &view) == 0 && MsiViewExecute(view, 0) == 0 &&
        MsiViewFetch(view, &row) == 0)
      MsiRecordGetStringW(row, 1, text, &size);
    MsiCloseHandle(row);
    MsiCloseHandle(view);
    return text;
  }
  std::wstring Property(const std::wstring& name) const {
    return Value(L"SELECT `Value` FROM `Property` WHERE `Property`='" + name + L"'");
  }
  std::wstring Summary(UINT property) const {
    MSIHANDLE summary = 0;
    EXPECT_EQ(0U, MsiGetSummaryInformationW(database_, nullptr, 0, &summary));
    wchar_t text[256] = {};
    DWORD size = 256;
    UINT type = 0;
    INT number = 0;
    EXPECT_EQ(0U, MsiSummaryInfoGetPropertyW(summary, property, &type, &number, nullptr, text, &size));
    MsiCloseHandle(summary);
    return type == VT_LPSTR ? text : std::to_wstring(number);
  }

 private:
  MSIHANDLE database_ = 0;
};

TEST(InstallerTables, ArePortugueseInItsCodePage) {
  const Database database;
  EXPECT_EQ(L"1046", database.Property(L"ProductLanguage"));
  EXPECT_EQ(L"1252", database.Summary(kCodePage));
  EXPECT_EQ(L"Intel;1046", database.Summary(kTemplate));
}

TEST(InstallerTables, AreOfAProductForAllUsersThatLaterOnesUpgrade) {
  const Database database;
  EXPECT_EQ(L"1", database.Property(L"ALLUSERS"));
  EXPECT_EQ(L"1.0.49", database.Property(L"ProductVersion"));
  EXPECT_EQ(L"{6C6A3C0B-7B52-4E5C-9B0E-7F6D2E2B9A41}", database.Property(L"UpgradeCode"));
}

TEST(InstallerTables, RefuseAWindowsOlderThanSeven) {
  const Database database;
  EXPECT_EQ(L"O [ProductName] precisa do Windows 7 ou de um mais novo.",
            database.Value(L"SELECT `Description` FROM `LaunchCondition`"
                           L" WHERE `Condition`='Installed OR VersionNT >= 601'"));
  // Only the search for installed versions comes before this action.
  for (const wchar_t* sequence : {L"InstallExecuteSequence", L"InstallUISequence"})
    EXPECT_EQ(L"100", database.Value(L"SELECT `Sequence` FROM `" + std::wstring(sequence) +
                                     L"` WHERE `Action`='LaunchConditions'"));
}

// Where the package names no version, an upgrade on Windows keeps the installed file, which has one, and then removes
// it together with the earlier product.
TEST(InstallerTables, NameTheVersionOfTheDllAndOfTheConsolePrograms) {
  const Database database;
  for (const std::wstring name : {L"KodraRpt.dll", L"kodrarpt.exe"}) {
    const std::wstring rows = L" FROM `File` WHERE `FileName`='" + name + L"'";
    EXPECT_EQ(L"1.0.0.49", database.Value(L"SELECT `Version`" + rows));
    EXPECT_EQ(L"", database.Value(L"SELECT `File`" + rows + L" AND `Version` IS NULL"));
  }
}

}  // namespace
}  // namespace kodra::package
