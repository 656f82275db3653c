#include "siblings/ini_file.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/testbed/sqlite_reader.h"
#include "values/utf8.h"

namespace kodra::siblings {
namespace {

std::string FindIn(const IniFile& file, std::wstring_view section, std::wstring_view key) {
  const auto value = file.Find(section, key);
  return value ? values::ToUtf8(L"'" + *value + L"'") : "none";
}

TEST(IniFile, FindsAKeyInItsSectionInAnyLetterCase) {
  const IniFile file(L"[Nomes]\nGrupo=Fundo\n[Senha]\nGrupo=Outro\n");
  EXPECT_EQ(FindIn(file, L"NOMES", L"grupo"), "'Fundo'");
  EXPECT_EQ(FindIn(file, L"Senha", L"Grupo"), "'Outro'");
  EXPECT_EQ(FindIn(file, L"Geral", L"Grupo"), "none");
  EXPECT_EQ(FindIn(file, L"Nomes", L"Serie"), "none");
}

TEST(IniFile, IgnoresBlanksCommentsAndOtherLines) {
  const IniFile file(L"; Grupo=a\r\n\r\n  [ Nomes ]  \r\n# Grupo=b\r\nsem sinal\r\n\tGrupo =  Fundo geral \r\n");
  EXPECT_EQ(FindIn(file, L"Nomes", L"Grupo"), "'Fundo geral'");
}

TEST(IniFile, RemovesOnePairOfQuotes) {
  const IniFile file(L"[n]\na=\" x \"\nb='y'\nc=\"z'\nd=\"\"\ne=\"");
  EXPECT_EQ(FindIn(file, L"n", L"a"), "' x '");
  EXPECT_EQ(FindIn(file, L"n", L"b"), "'y'");
  EXPECT_EQ(FindIn(file, L"n", L"c"), "'\"z''");
  EXPECT_EQ(FindIn(file, L"n", L"d"), "''");
  EXPECT_EQ(FindIn(file, L"n", L"e"), "'\"'");
}

TEST(IniFile, UsesTheFirstOfTwoEqualKeysAndKeepsLaterEqualsSigns) {
  const IniFile file(L"[n]\na=1=2\nA=3");
  EXPECT_EQ(FindIn(file, L"n", L"a"), "'1=2'");
}

TEST(IniFile, ReadsUtf8WithAndWithoutAMark) {
  EXPECT_EQ(DecodeText("S\xc3\xa9rie"), L"Série");
  EXPECT_EQ(DecodeText("\xef\xbb\xbfS\xc3\xa9rie"), L"Série");
  EXPECT_EQ(DecodeText("\xe2\x82\xac"), L"€");
  EXPECT_EQ(DecodeText("\xf0\x9f\x93\x9a \xf4\x8f\xbf\xbf"), L"\U0001F4DA \U0010FFFF");
  EXPECT_EQ(DecodeText("\xef\xbf\xbd"), L"\uFFFD");
  EXPECT_EQ(DecodeText(std::string("a\0\xc3\xa9", 4)), std::wstring(L"a\0é", 3));
}

TEST(IniFile, ReadsBytesThatAreNotUtf8AsWindows1252) {
  EXPECT_EQ(DecodeText("S\xe9rie"), L"Série");
  EXPECT_EQ(DecodeText("Pre\xe7o em \x80 \x96 n\xe3o"), L"Preço em € – não");
  EXPECT_EQ(DecodeText("fim \xc3"), L"fim Ã");
  EXPECT_EQ(DecodeText("\xe2\x82"), L"â‚");
  EXPECT_EQ(DecodeText("\xef\xbf\xbd\xe9"), L"ï¿½é");
  EXPECT_EQ(DecodeText("\xbf"), L"¿");
  EXPECT_EQ(DecodeText("\xff\xfe"), L"ÿþ");
  // Longer forms of characters that have shorter ones.
  EXPECT_EQ(DecodeText("\xc0\xaf"), L"À¯");
  EXPECT_EQ(DecodeText("\xe0\x9f\xbf"), L"àŸ¿");
  EXPECT_EQ(DecodeText("\xf0\x8f\xbf\xbf"), L"ð\u008f¿¿");
  // Surrogates, and what is beyond the last character.
  EXPECT_EQ(DecodeText("\xed\xa0\x80"), L"í\u00a0€");
  EXPECT_EQ(DecodeText("\xed\xa0\xbd\xed\xb3\x9a"), L"í\u00a0½í³š");
  EXPECT_EQ(DecodeText("\xf4\x90\x80\x80"), L"ô\u0090€€");
}

TEST(IniFile, ReadsTheTextThatWasWrittenInUtf8) {
  const std::wstring text = L"São João d’Aliança, ½ página \U0001F4DA";
  EXPECT_EQ(DecodeText(values::ToUtf8(text)), text);
}

TEST(IniFile, ReadsAFileAtAPathWithAccents) {
  const testbed::TemporaryFile path("configuração.ini");
  std::ofstream(path.Path(), std::ios::binary) << "[Nomes]\r\nSerie=Dossi\xea\r\n";
  const auto file = IniFile::Read(DecodeText(path.Path()));
  ASSERT_TRUE(file.has_value());
  EXPECT_EQ(FindIn(*file, L"Nomes", L"Serie"), "'Dossiê'");
}

TEST(IniFile, IsNothingForAMissingFile) {
  EXPECT_FALSE(IniFile::Read(L"/no/such/file.ini").has_value());
  EXPECT_FALSE(IniFile::Read(L"/no/such/" + std::wstring(1, static_cast<wchar_t>(0xD800))).has_value());
}

}  // namespace
}  // namespace kodra::siblings
