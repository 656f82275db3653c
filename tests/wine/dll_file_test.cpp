// KodraRpt.dll as a file: its kind, its exports, its imports from Windows and its version resource.
#include <gtest/gtest.h>

#include "tests/wine/component_imports.h"
#include "tests/wine/environment.h"
#include "tests/wine/pe_file.h"
#include "tests/wine/version_resource.h"

namespace kodra::face {
namespace {

constexpr bool kIs64Bit = sizeof(void*) == 8;

TEST(DllFile, IsADllForProgramsOfItsKind) {
  const PeFile file(DllPath());
  const auto& headers = file.Headers();
  EXPECT_EQ(static_cast<DWORD>(IMAGE_NT_SIGNATURE), headers.Signature);
  EXPECT_EQ(kIs64Bit ? IMAGE_FILE_MACHINE_AMD64 : IMAGE_FILE_MACHINE_I386, headers.FileHeader.Machine);
  EXPECT_EQ(kIs64Bit ? IMAGE_NT_OPTIONAL_HDR64_MAGIC : IMAGE_NT_OPTIONAL_HDR32_MAGIC, headers.OptionalHeader.Magic);
  EXPECT_NE(0, headers.FileHeader.Characteristics & IMAGE_FILE_DLL);
}

TEST(DllFile, IsAtMostOneMillionBytes) { EXPECT_LE(PeFile(DllPath()).Size(), 1'000'000U); }

TEST(DllFile, CanBeLoadedAtAnyAddressAndExecutesNoData) {
  const PeFile file(DllPath());
  const auto& headers = file.Headers();
  EXPECT_NE(0, headers.OptionalHeader.DllCharacteristics & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE);
  EXPECT_NE(0, headers.OptionalHeader.DllCharacteristics & IMAGE_DLLCHARACTERISTICS_NX_COMPAT);
  // It can only be moved if it contains its relocations.
  EXPECT_EQ(0, headers.FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED);
  EXPECT_NE(0U, headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_BASERELOC].Size);
}

TEST(DllFile, ShowsNeitherWhenNorWhereItWasBuilt) {
  const PeFile file(DllPath());
  EXPECT_EQ(0U, file.Headers().FileHeader.TimeDateStamp);
  EXPECT_FALSE(file.Contains(".cpp"));
  // The type library says when and where it was compiled.
  EXPECT_TRUE(file.Contains(" at Thu Jan  1 00:00:00 1970"));
  EXPECT_TRUE(file.Contains("KodraRpt.dll"));
}

TEST(DllFile, RequiresNoLaterWindowsThanSeven) {
  const PeFile file(DllPath());
  const auto& header = file.Headers().OptionalHeader;
  EXPECT_LE(header.MajorSubsystemVersion * 100 + header.MinorSubsystemVersion, 601);
  EXPECT_LE(header.MajorOperatingSystemVersion * 100 + header.MinorOperatingSystemVersion, 601);
}

// The four entry points of a server that registers itself, and the one that registers it for one user.
TEST(DllFile, ExportsItsEntryPointsAndNothingElse) {
  EXPECT_EQ((std::vector<std::string>{"DllCanUnloadNow", "DllGetClassObject", "DllInstall", "DllRegisterServer",
                                      "DllUnregisterServer"}),
            PeFile(DllPath()).Exports());
}

TEST(DllFile, ImportsOnlyFunctionsOfWindowsSeven) {
  const auto imports = PeFile(DllPath()).Imports();
  EXPECT_FALSE(imports.empty());
  for (const auto& [dll, functions] : imports)
    for (const auto& function : functions) EXPECT_TRUE(IsComponentImport(dll, function)) << dll << " " << function;
}

TEST(DllFile, ContainsItsTypeLibrary) {
  HMODULE module = LoadLibraryExW(DllPath().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  ASSERT_NE(nullptr, module);
  HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(1), L"TYPELIB");
  EXPECT_NE(nullptr, resource);
  EXPECT_LT(4096U, SizeofResource(module, resource));
  FreeLibrary(module);
}

TEST(DllFile, HasTheVersionOfTheRelease) {
  VersionResource resource(DllPath());
  ExpectVersionOfRelease(resource, VFT_DLL);
  EXPECT_EQ(L"KodraRpt.dll", resource.Text(L"OriginalFilename"));
  EXPECT_EQ(L"Dados dos relatórios do arquivo", resource.Text(L"FileDescription"));
}

}  // namespace
}  // namespace kodra::face
