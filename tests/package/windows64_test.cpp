// The MSI on a 64-bit Windows.
#include <gtest/gtest.h>

#include "tests/package/command.h"
#include "tests/package/paths.h"

namespace kodra::package {
namespace {

// The folder where a 64-bit Windows installs 32-bit programs.
std::wstring InstalledOn64Bits() { return face::Variable(L"ProgramFiles(x86)") + L"\\KodraRpt"; }

TEST(Installer, HasTheConsoleProgramsOfBothKindsOn64BitWindowsAndLeavesNothing) {
  Msiexec(L"/x", Installer());  // An interrupted run leaves it installed.
  ASSERT_EQ(0U, Msiexec(L"/i", Installer()));
  const std::wstring program = InstalledOn64Bits() + L"\\x64\\console\\kodrarpt.exe";
  EXPECT_TRUE(BytesOf(program) == BytesOf(Unpacked() + L"\\console\\kodrarpt.exe"));
  EXPECT_EQ("kodrarpt 1.0.49\n", face::OutputOf(face::Quoted(program) + L" --version"));
  EXPECT_EQ(BytesOf(Unpacked() + L"\\console\\LICENCAS.txt"),
            BytesOf(InstalledOn64Bits() + L"\\x64\\console\\LICENCAS.txt"));
  EXPECT_TRUE(BytesOf(InstalledOn64Bits() + L"\\console\\kodrarpt.exe") ==
              BytesOf(Unpacked() + L"\\..\\console\\kodrarpt.exe"));
  EXPECT_EQ(0U, Msiexec(L"/x", Installer()));
  EXPECT_EQ(std::vector<std::wstring>{}, Listing(InstalledOn64Bits()));
}

}  // namespace
}  // namespace kodra::package
