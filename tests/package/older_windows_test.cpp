// The MSI on other versions of Windows, which Wine imitates.
#include <gtest/gtest.h>

#include "tests/package/command.h"
#include "tests/package/paths.h"

namespace kodra::package {
namespace {

// While it exists, Windows' installer runs on another version of Windows, which is given by Wine's name for it.
class InstallerVersion {
 public:
  explicit InstallerVersion(const std::wstring& version) {
    EXPECT_EQ(ERROR_SUCCESS, RegSetKeyValueW(HKEY_CURRENT_USER, kKey, L"Version", REG_SZ, version.c_str(),
                                             static_cast<DWORD>((version.size() + 1) * sizeof(wchar_t))));
  }
  InstallerVersion(const InstallerVersion&) = delete;
  InstallerVersion& operator=(const InstallerVersion&) = delete;
  ~InstallerVersion() { EXPECT_EQ(ERROR_SUCCESS, RegDeleteTreeW(HKEY_CURRENT_USER, kKey)); }

 private:
  static constexpr const wchar_t* kKey = L"Software\\Wine\\AppDefaults\\msiexec.exe";
};

bool IsInstalled() { return !BytesOf(Installed() + L"\\KodraRpt.dll").empty(); }

TEST(OlderWindows, VistaIsRefused) {
  const InstallerVersion vista(L"vista");
  EXPECT_EQ(static_cast<DWORD>(ERROR_INSTALL_FAILURE), Msiexec(L"/i", Installer()));
  EXPECT_FALSE(IsInstalled());
}

TEST(OlderWindows, SevenIsNotRefused) {
  const InstallerVersion seven(L"win7");
  EXPECT_EQ(static_cast<DWORD>(ERROR_SUCCESS), Msiexec(L"/i", Installer()));
  EXPECT_TRUE(IsInstalled());
  EXPECT_EQ(static_cast<DWORD>(ERROR_SUCCESS), Msiexec(L"/x", Installer()));
  EXPECT_FALSE(IsInstalled());
}

}  // namespace
}  // namespace kodra::package
