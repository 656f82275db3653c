// The component's version and file.
#include "frame/about.h"

#include <gtest/gtest.h>

#include "tests/recorder/fake_surroundings.h"

namespace kodra::frame {
namespace {

using recorder::FakeSurroundings;
using recorder::Lines;
using recorder::Utf8;

class AboutTest : public testing::Test {
 protected:
  std::string Executavel(const std::wstring& modulePath) { return Utf8(About(modulePath, around_).Executavel()); }

  FakeSurroundings around_;
};

TEST_F(AboutTest, ReturnsMajorMinorAndRevision) { EXPECT_EQ(About(L"", around_).Versao(), L"1.0.49"); }

TEST_F(AboutTest, FindsTheDLL) {
  around_.files[L"C:\\Kodra\\KodraRpt.DLL"] = 1;
  EXPECT_EQ(Executavel(L"C:\\Kodra\\KodraRpt.dll"), R"(C:\Kodra\KodraRpt.DLL)");
  EXPECT_EQ(around_.journal.Calls(), Lines({
                                         R"(IsFile("C:\Kodra\KodraRpt.EXE") -> False)",
                                         R"(IsFile("C:\Kodra\KodraRpt.DLL") -> True)",
                                     }));
}

TEST_F(AboutTest, PrefersAnExecutableOfTheSameNameBesideTheDLL) {
  around_.files[L"C:\\Kodra\\KodraRpt.EXE"] = 1;
  around_.files[L"C:\\Kodra\\KodraRpt.DLL"] = 1;
  EXPECT_EQ(Executavel(L"C:\\Kodra\\KodraRpt.dll"), R"(C:\Kodra\KodraRpt.EXE)");
}

TEST_F(AboutTest, FindsAnEmptyFileToo) {
  around_.files[L"C:\\Kodra\\KodraRpt.EXE"] = 0;
  EXPECT_EQ(Executavel(L"C:\\Kodra\\KodraRpt.dll"), R"(C:\Kodra\KodraRpt.EXE)");
}

TEST_F(AboutTest, IgnoresAFolderOfTheFilesName) {
  around_.folders = {L"C:\\Kodra\\KodraRpt.EXE", L"C:\\Kodra\\KodraRpt.DLL"};
  EXPECT_EQ(Executavel(L"C:\\Kodra\\KodraRpt.dll"), R"(C:\Kodra\KodraRpt)");
  around_.files[L"C:\\Kodra\\KodraRpt.OCX"] = 1;
  EXPECT_EQ(Executavel(L"C:\\Kodra\\KodraRpt.dll"), R"(C:\Kodra\KodraRpt.OCX)");
}

TEST_F(AboutTest, FindsAnOCXLast) {
  around_.files[L"C:\\Kodra\\KodraRpt.OCX"] = 1;
  EXPECT_EQ(Executavel(L"C:\\Kodra\\KodraRpt.ocx"), R"(C:\Kodra\KodraRpt.OCX)");
}

TEST_F(AboutTest, ReturnsTheNameWithoutExtensionWhereThereIsNoFile) {
  EXPECT_EQ(Executavel(L"C:\\Kodra\\KodraRpt.dll"), R"(C:\Kodra\KodraRpt)");
  EXPECT_EQ(around_.journal.Calls(), Lines({
                                         R"(IsFile("C:\Kodra\KodraRpt.EXE") -> False)",
                                         R"(IsFile("C:\Kodra\KodraRpt.DLL") -> False)",
                                         R"(IsFile("C:\Kodra\KodraRpt.OCX") -> False)",
                                     }));
}

TEST_F(AboutTest, EndsTheRootFolderWithOneBackslash) {
  around_.files[L"C:\\KodraRpt.DLL"] = 1;
  EXPECT_EQ(Executavel(L"C:\\KodraRpt.dll"), R"(C:\KodraRpt.DLL)");
}

TEST_F(AboutTest, RemovesTheLastExtensionOnly) {
  EXPECT_EQ(Executavel(L"C:\\Kodra 1.0\\Kodra.Rpt.dll"), R"(C:\Kodra 1.0\Kodra.Rpt)");
  EXPECT_EQ(Executavel(L"C:\\Kodra 1.0\\KodraRpt"), R"(C:\Kodra 1.0\KodraRpt)");
}

}  // namespace
}  // namespace kodra::frame
