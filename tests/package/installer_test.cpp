// The MSI: what it installs and registers, that the installed component works, and that its removal leaves nothing.
#include <objbase.h>

#include <sstream>

#include "tests/package/registry.h"
#include "tests/package/script_client.h"
#include "tests/wine/automation.h"
#include "tests/wine/server.h"

namespace kodra::package {
namespace {

// The registry of programs, of the machine and of the user.
RegistryLines DumpAll() { return Sorted(Dump(HKEY_LOCAL_MACHINE, L"Software"), Dump(HKEY_CURRENT_USER, L"Software")); }

// The rows without those in which the installer keeps its list of products.
RegistryLines OfComponent(RegistryLines lines) {
  std::erase_if(lines, [](const std::wstring& line) { return line.starts_with(L"Installer\\"); });
  return lines;
}

// The folders in the PATH of the machine, which new programs get. When Wine's installer removes a folder, it leaves the
// separator.
std::vector<std::wstring> MachinePath() {
  const std::wstring key = L"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment";
  wchar_t text[4096] = {};
  DWORD size = sizeof(text);
  constexpr DWORD kUnexpanded = RRF_RT_REG_EXPAND_SZ | RRF_RT_REG_SZ | RRF_NOEXPAND;
  EXPECT_EQ(ERROR_SUCCESS, RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"PATH", kUnexpanded, nullptr, text, &size));
  std::vector<std::wstring> folders;
  std::wistringstream path(text);
  for (std::wstring folder; std::getline(path, folder, L';');)
    if (!folder.empty()) folders.push_back(folder);
  return folders;
}

// Windows' installer creates these keys with the first package that it installs, and keeps them when they are empty.
void MakeInstallersOwnKeys() {
  for (const wchar_t* path :
       {L"Software\\Classes\\Installer\\Features", L"Software\\Classes\\Installer\\Products",
        L"Software\\Classes\\Installer\\UpgradeCodes",
        L"Software\\Microsoft\\Windows\\CurrentVersion\\Installer\\UpgradeCodes",
        L"Software\\Microsoft\\Windows\\CurrentVersion\\Installer\\UserData\\S-1-5-18\\Components",
        L"Software\\Microsoft\\Windows\\CurrentVersion\\Installer\\UserData\\S-1-5-18\\Products"}) {
    HKEY key = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyW(HKEY_LOCAL_MACHINE, path, &key));
    RegCloseKey(key);
  }
}

// Installs the package before each test, unless it is installed.
class InstalledPackage : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    MakeInstallersOwnKeys();
    registryBefore_ = DumpAll();
    classesBefore_ = DumpClasses();
    programsBefore_ = Listing(ProgramFolder());
    pathBefore_ = MachinePath();
  }
  void SetUp() override {
    if (!BytesOf(Installed() + L"\\KodraRpt.dll").empty()) return;
    ASSERT_EQ(0U, Msiexec(L"/i", Installer()));
  }
  static void TearDownTestSuite() { Msiexec(L"/x", Installer()); }

  static std::vector<std::wstring> PathWithConsole() {
    std::vector<std::wstring> folders = pathBefore_;
    folders.push_back(Installed() + L"\\console");
    return folders;
  }

  static RegistryLines registryBefore_;
  static RegistryLines classesBefore_;
  static std::vector<std::wstring> programsBefore_;
  static std::vector<std::wstring> pathBefore_;
};
RegistryLines InstalledPackage::registryBefore_;
RegistryLines InstalledPackage::classesBefore_;
std::vector<std::wstring> InstalledPackage::programsBefore_;
std::vector<std::wstring> InstalledPackage::pathBefore_;

// This Windows has 32 bits.
TEST_F(InstalledPackage, ContainsTheFilesOfTheZipExceptThoseForProgramsWithoutRegistrationOrOf64Bits) {
  std::vector<std::wstring> expected = Listing(Unpacked());
  std::erase_if(expected, [](const std::wstring& path) {
    return path.ends_with(L".manifest") || path.starts_with(L"x64\\") || path == L"SHA256SUMS";
  });
  EXPECT_EQ(expected, Listing(Installed()));
  for (const wchar_t* path : {L"KodraRpt.dll", L"LICENCAS.txt", L"console\\kodrarpt.exe", L"console\\LICENCAS.txt",
                              L"KodraRpt.tlb", L"LEIAME.txt", L"docs\\guia.pt-BR.html", L"exemplos\\cliente.vbs"})
    EXPECT_TRUE(std::binary_search(expected.begin(), expected.end(), path)) << testing::PrintToString(path);
  for (const std::wstring& path : expected)
    EXPECT_TRUE(BytesOf(Unpacked() + L"\\" + path) == BytesOf(Installed() + L"\\" + path))
        << testing::PrintToString(path);
}

TEST_F(InstalledPackage, IsRegisteredByTheSameRule) {
  const std::wstring dll = Installed() + L"\\KodraRpt.dll";
  ExpectSame(Sorted(face::ClassRows(dll), face::LibraryRows(dll)), OfComponent(Without(DumpClasses(), classesBefore_)));
}

// The DLL removes and writes again exactly what the installer wrote.
TEST_F(InstalledPackage, IsRegisteredAsTheDllRegistersItself) {
  const RegistryLines byInstaller = DumpClasses();
  const face::Server server(Installed() + L"\\KodraRpt.dll");
  ASSERT_EQ(S_OK, server.Unregister());
  ASSERT_EQ(S_OK, server.Register());
  ExpectSame(byInstaller, DumpClasses());
}

TEST_F(InstalledPackage, ServesTheScriptClient) {
  const RegisteredDependencies dependencies;
  ExpectServed(RunClient(L"cscript.exe", Installed()));
}

// About.Executavel returns the program that is beside the DLL and has its name, in any letter case. The console program
// must not be found there.
TEST_F(InstalledPackage, HasNoProgramNamedLikeTheDllBesideIt) {
  for (const std::wstring& folder : {Installed(), Unpacked(), Unpacked() + L"\\x64"}) {
    for (const std::wstring& name : Listing(folder))
      EXPECT_NE(0, _wcsicmp(L"KodraRpt.exe", name.c_str())) << testing::PrintToString(folder);
    EXPECT_NE(std::string(), BytesOf(folder + L"\\KodraRpt.dll")) << testing::PrintToString(folder);
  }
}

TEST_F(InstalledPackage, ReturnsTheDllAsItsOwnFile) {
  EXPECT_EQ(Installed() + L"\\KodraRpt.DLL",
            face::Got(face::Call(face::Create(L"KodraRpt.About"), L"Executavel")).text());
  CoFreeUnusedLibrariesEx(0, 0);
}

// A value that the list of installed programs shows.
std::wstring Listed(const std::wstring& name) {
  const std::wstring root = L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall";
  std::wstring found = L"(not listed)";
  for (const std::wstring& line : Dump(HKEY_LOCAL_MACHINE, root)) {
    const auto value = line.find(L"|" + name + L"=");
    if (value != std::wstring::npos) found = line.substr(value + name.size() + 2);
  }
  return found;
}

TEST_F(InstalledPackage, IsListedInPortuguese) {
  EXPECT_EQ(L"KodraRpt", Listed(L"DisplayName"));
  EXPECT_EQ(L"1.0.49", Listed(L"DisplayVersion"));
  EXPECT_EQ(L"Kodra", Listed(L"Publisher"));
  EXPECT_EQ(L"Dados dos relatórios do arquivo", Listed(L"Comments"));
  EXPECT_EQ(Installed() + L"\\", Listed(L"InstallLocation"));
  EXPECT_EQ(L"(type 4) 22 4 0 0", Listed(L"Language"));  // a DWORD: 1046, Brazilian Portuguese
}

TEST_F(InstalledPackage, LeavesThePathAlone) { EXPECT_EQ(pathBefore_, MachinePath()); }

TEST_F(InstalledPackage, PutsTheConsoleOnThePathIfAskedAndTakesItOffWhenRemoved) {
  ASSERT_EQ(0U, Msiexec(L"/x", Installer()));
  ASSERT_EQ(0U, Msiexec(L"/i", Installer(), L"KODRA_PATH=1"));
  EXPECT_EQ(PathWithConsole(), MachinePath());
  ASSERT_EQ(0U, Msiexec(L"/x", Installer()));
  EXPECT_EQ(pathBefore_, MachinePath());
  ExpectSame(registryBefore_, DumpAll());
  EXPECT_EQ(programsBefore_, Listing(ProgramFolder()));
}

TEST_F(InstalledPackage, KeepsTheConsoleOnThePathWhenItIsReplaced) {
  ASSERT_EQ(0U, Msiexec(L"/x", Installer()));
  ASSERT_EQ(0U, Msiexec(L"/i", Installer(), L"KODRA_PATH=1"));
  ASSERT_EQ(0U, Msiexec(L"/i", LaterInstaller()));
  EXPECT_EQ(PathWithConsole(), MachinePath());
  ASSERT_EQ(0U, Msiexec(L"/x", LaterInstaller()));
  EXPECT_EQ(pathBefore_, MachinePath());
  ExpectSame(registryBefore_, DumpAll());
  EXPECT_EQ(programsBefore_, Listing(ProgramFolder()));
}

TEST_F(InstalledPackage, LeavesRegistryAndFoldersAsBeforeWhenRemoved) {
  ASSERT_EQ(0U, Msiexec(L"/x", Installer()));
  ExpectSame(registryBefore_, DumpAll());
  EXPECT_EQ(programsBefore_, Listing(ProgramFolder()));
}

TEST_F(InstalledPackage, IsReplacedByALaterOneWhichRefusesADowngrade) {
  const RegistryLines classes = DumpClasses();
  ASSERT_EQ(0U, Msiexec(L"/i", LaterInstaller()));
  EXPECT_EQ(L"1.0.50", Listed(L"DisplayVersion"));
  EXPECT_NE(std::string(), BytesOf(Installed() + L"\\KodraRpt.dll"));
  ExpectSame(OfComponent(classes), OfComponent(DumpClasses()));

  EXPECT_NE(0U, Msiexec(L"/i", Installer()));
  EXPECT_EQ(L"1.0.50", Listed(L"DisplayVersion"));

  ASSERT_EQ(0U, Msiexec(L"/x", LaterInstaller()));
  ExpectSame(classesBefore_, DumpClasses());
  EXPECT_EQ(programsBefore_, Listing(ProgramFolder()));
}

}  // namespace
}  // namespace kodra::package
