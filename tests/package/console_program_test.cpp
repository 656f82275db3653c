// The console program of the zip, for 32-bit and for 64-bit Windows.
#include <gtest/gtest.h>

#include "tests/package/command.h"
#include "tests/package/paths.h"
#include "tests/wine/version_resource.h"

namespace kodra::package {
namespace {

TEST(ConsoleProgram, HasTheVersionOfTheRelease) {
  const std::wstring program = Unpacked() + L"\\console\\kodrarpt.exe";
  face::VersionResource resource(program);
  ExpectVersionOfRelease(resource, VFT_APP);
  EXPECT_EQ(L"kodrarpt.exe", resource.Text(L"OriginalFilename"));
  EXPECT_EQ(L"Relatórios do arquivo no prompt de comando", resource.Text(L"FileDescription"));
  EXPECT_EQ("kodrarpt 1.0.49\n", face::OutputOf(face::Quoted(program) + L" --version"));
}

}  // namespace
}  // namespace kodra::package
