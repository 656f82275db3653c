#include "console/ini/ini_file.h"

#include <gtest/gtest.h>

#include "tests/console/failing.h"

namespace kodra::console {
namespace {

// "[section]key=value;" for each entry, in order.
std::string Shown(const IniFile& file) {
  std::string shown;
  for (const IniSection& section : file.Sections()) {
    shown += "[" + section.name + "]";
    for (const IniEntry& entry : section.entries) shown += entry.key + "=" + entry.value + "|";
  }
  return shown;
}

std::string Read(const std::string& text) { return Shown(IniFile(text, "a.ini")); }

TEST(IniFile, ReadsSectionsAndEntriesInTheOrderOfTheFile) {
  EXPECT_EQ(Read("[z]\nb = 1\na = 2\n[a]\nc=3\n"), "[z]b=1|a=2|[a]c=3|");
}

TEST(IniFile, KeepsWhatAValueContains) {
  EXPECT_EQ(Read("[ação]\n conexao =  Driver={SQLite3};Database=a = b.db \r\nnome=\"c\"\n"),
            "[ação]conexao=Driver={SQLite3};Database=a = b.db|nome=\"c\"|");
}

TEST(IniFile, PassesOverCommentsEmptyLinesAndAByteOrderMark) {
  EXPECT_EQ(Read("\xEF\xBB\xBF; um\n\n[a]\n# dois\n  ; três\nb = 1\n"), "[a]b=1|");
}

TEST(IniFile, ShowsARepeatedKeyEachTime) { EXPECT_EQ(Read("[a]\nb=1\nB=2\n[A]\nb=3\n"), "[a]b=1|b=2|b=3|"); }

TEST(IniFile, ShowsEntriesOutsideOfSectionsAndEmptyOnes) { EXPECT_EQ(Read("b=1\n[a]\n[c]\nd=\n"), "[]b=1|[a][c]d=|"); }

TEST(IniFile, NamesTheLineThatItDoesNotUnderstand) {
  constexpr const char* kAdvice =
      ": deve ser uma seção, como [nome], uma linha com chave = valor, ou um comentário com ; ou #";
  for (const char* const line : {"[b", "[]", "[ ]", "b", "=1", "  = 1"})
    EXPECT_EQ(RefusalOf([&] { Read(std::string("[a]\r\nb=1\r\n") + line + "\r\nc=2\r\n"); }),
              std::string("\"a.ini\", linha 3") + kAdvice)
        << line;
}

TEST(IniFile, RefusesATextThatIsNotUtf8) {
  constexpr const char* kRefusal = "\"a.ini\" não é um texto em UTF-8: grave-o de novo nessa codificação";
  EXPECT_EQ(RefusalOf([] { Read("[a]\nb=m\xEAs passado\n"); }), kRefusal);
  EXPECT_EQ(RefusalOf([] { Read(std::string("[a]\nb=\0\n", 8)); }), kRefusal);
}

TEST(IniFile, WritesChangesAndKeepsComments) {
  IniFile file("; do setor\n\n; um\n[a]\n; chave\nb = 1\n\n; dois\n[c]\nd = 2\n", "a.ini");
  file.Set("e", "f", "3");
  file.Set("a", "g", "4");
  file.Remove("c");
  const std::string text = file.Text();
  EXPECT_EQ(Read(text), "[a]b=1|g=4|[e]f=3|");
  EXPECT_EQ(text, "; do setor\n\n\n; um\n[a]\n\n; chave\nb = 1\ng = 4\n\n\n[e]\nf = 3\n");
}

}  // namespace
}  // namespace kodra::console
