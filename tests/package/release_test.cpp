// What the packages say about themselves: the version of each file, and the licences of the code in them.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>

#include "tests/package/command.h"
#include "tests/package/paths.h"
#include "tests/wine/version_resource.h"

namespace kodra::package {
namespace {

using face::VersionResource;

TEST(Release, BothDllsHaveItsVersion) {
  for (const wchar_t* dll : {L"\\KodraRpt.dll", L"\\x64\\KodraRpt.dll"}) {
    VersionResource resource(Unpacked() + dll);
    ExpectVersionOfRelease(resource, VFT_DLL);
    EXPECT_EQ(L"Dados dos relatórios do arquivo", resource.Text(L"FileDescription"));
  }
}

TEST(Release, TheReadMeFileNamesItsVersion) {
  EXPECT_TRUE(BytesOf(Unpacked() + L"\\LEIAME.txt").starts_with("KodraRpt 1.0.49 - "));
}

// The file's text, in code page 1252.
std::string ReadMe() { return BytesOf(Unpacked() + L"\\LEIAME.txt"); }

TEST(Release, TheReadMeFileSaysInTenLinesWhatToDoFirst) {
  const std::string text = ReadMe();
  const std::string heading = "\r\nO que fazer primeiro\r\n--------------------\r\n\r\n";
  const auto first = text.find(heading);
  ASSERT_NE(std::string::npos, first);
  const auto steps =
      text.substr(first + heading.size(), text.find("\r\n\r\n", first + heading.size()) - first - heading.size());
  EXPECT_EQ(9, std::ranges::count(steps, '\n')) << steps;
  for (const char* path : {"SHA256SUMS", "docs\\guia.pt-BR.html", "console\\kodrarpt.exe",
                           "exemplos\\vbscript\\acervo.vbs", "docs\\reference\\README.html"}) {
    EXPECT_NE(std::string::npos, steps.find(path)) << path;
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(Unpacked()) / path)) << path;
  }
}

TEST(Release, TheReadMeFileWarnsOfFoldersThatUsersCanWriteTo) {
  EXPECT_NE(std::string::npos,
            ReadMe().find(
                "\r\nATEN\xc7\xc3O: n\xe3o registre a DLL em uma pasta em que usu\xe1rios comuns possam gravar,\r\n"));
}

// A page of the documentation.
struct DocumentationPage {
  std::filesystem::path path;
  std::string text;
};

std::vector<DocumentationPage> Documentation() {
  std::vector<DocumentationPage> pages;
  for (const std::wstring& name : Listing(Unpacked()))
    if (name.ends_with(L".html")) pages.push_back({Unpacked() + L"\\" + name, BytesOf(Unpacked() + L"\\" + name)});
  return pages;
}

TEST(Release, HasItsDocumentationAsHtmlAlone) {
  EXPECT_GT(Documentation().size(), 50U);
  for (const std::wstring& name : Listing(Unpacked()))
    EXPECT_FALSE(name.ends_with(L".md")) << testing::PrintToString(name);
}

TEST(Release, TheLinksOfTheDocumentationLeadToPlacesInThePackage) {
  const std::regex link("(?:href|src)=\"([^\"#]*)(?:#([^\"]*))?\"");
  int links = 0;
  for (const DocumentationPage& page : Documentation()) {
    for (std::sregex_iterator at(page.text.begin(), page.text.end(), link), end; at != end; ++at, ++links) {
      const std::string target = (*at)[1];
      const std::filesystem::path path = target.empty() ? page.path : page.path.parent_path() / target;
      const std::string text = BytesOf(path.wstring());
      EXPECT_FALSE(text.empty()) << page.path << " " << target;
      if ((*at)[2].matched) {
        EXPECT_NE(std::string::npos, text.find(" id=\"" + (*at)[2].str() + "\"")) << page.path << " " << (*at)[0];
      }
    }
  }
  EXPECT_GT(links, 200);
}

// Expects a list of licences to name a library in a heading, and to contain a phrase of its licence.
void ExpectLicence(const std::string& list, const std::string& library, const std::string& phrase) {
  const auto heading = list.find("\r\n==== " + library + " (");
  ASSERT_NE(std::string::npos, heading) << library;
  const auto next = list.find("\r\n==== ", heading + 1);
  EXPECT_NE(std::string::npos, list.substr(heading, next - heading).find(phrase)) << library << ": " << phrase;
}

void ExpectLicencesOfTheCompiler(const std::string& list) {
  ExpectLicence(list, "libgcc, libstdc++", "GCC RUNTIME LIBRARY EXCEPTION");
  ExpectLicence(list, "libgcc, libstdc++", "TERMS AND CONDITIONS");  // of the GPL itself
  ExpectLicence(list, "mingw-w64, winpthreads", "License: ZPL-2.1");
  ExpectLicence(list, "mingw-w64, winpthreads", "Files: mingw-w64-libraries/winpthreads/*");
}

TEST(Release, HasTheLicencesOfTheCodeInTheDllBesideIt) {
  for (const wchar_t* list : {L"\\LICENCAS.txt", L"\\x64\\LICENCAS.txt"})
    ExpectLicencesOfTheCompiler(BytesOf(Unpacked() + list));
}

TEST(Release, HasTheLicencesOfTheCodeInTheConsoleProgramBesideIt) {
  const std::string list = BytesOf(Unpacked() + L"\\console\\LICENCAS.txt");
  EXPECT_EQ(list, BytesOf(Unpacked() + L"\\x64\\console\\LICENCAS.txt"));
  ExpectLicencesOfTheCompiler(list);
  ExpectLicence(list, "CLI11", "University of Cincinnati");
  ExpectLicence(list, "fmt", "Victor Zverovich");
  ExpectLicence(list, "nlohmann-json", "Niels Lohmann");
  ExpectLicence(list, "SimpleIni", "Brodie Thiesfield");
  ExpectLicence(list, "libxlsxwriter, minizip, tmpfileplus, md5", "John McNamara");
  ExpectLicence(list, "libxlsxwriter, minizip, tmpfileplus, md5", "Gilles Vollant");
  ExpectLicence(list, "libxlsxwriter, minizip, tmpfileplus, md5", "Mozilla Public License Version 2.0");
  ExpectLicence(list, "libxlsxwriter, minizip, tmpfileplus, md5", "Solar Designer");
  ExpectLicence(list, "libharu", "Takeshi Kanno");
  ExpectLicence(list, "zint", "Robin Stuart");
  ExpectLicence(list, "cpp-httplib", "Yuji Hirose");
  ExpectLicence(list, "stb", "Sean Barrett");
  ExpectLicence(list, "Liberation Sans", "SIL Open Font License");
  ExpectLicence(list, "zlib", "Jean-loup Gailly and Mark Adler");
}

}  // namespace
}  // namespace kodra::package
