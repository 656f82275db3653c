// The help texts of the type library.
#include "tools/reference/member_texts.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace kodra::console::reference {
namespace {

std::string LibraryOf(const std::string& members) {
  return "    [object, uuid(1), dual]\n"
         "    interface ICCaixaRptObj : IDispatch\n"
         "    {\n" +
         members +
         "    };\n"
         "    [uuid(2)]\n"
         "    coclass CCaixaRptObj\n"
         "    {\n"
         "        [default] interface ICCaixaRptObj;\n"
         "    };\n";
}

TEST(HelpTextsTest, AreAddedToTheGetOfAPropertyAndChangeNothingElse) {
  EXPECT_EQ(WithHelpTexts(LibraryOf("        [id(4), propget] HRESULT Modulo3([out, retval] BSTR* valor);\n"
                                    "        [id(4), propput] HRESULT Modulo3([in] BSTR valor);\n")),
            LibraryOf("        [id(4), propget, helpstring(\"Código do terceiro módulo; vazio não traz nenhum\")] "
                      "HRESULT Modulo3([out, retval] BSTR* valor);\n"
                      "        [id(4), propput] HRESULT Modulo3([in] BSTR valor);\n"));
}

TEST(HelpTextsTest, ReplaceThoseThatAreThere) {
  EXPECT_EQ(WithHelpTexts(LibraryOf(
                "        [id(9), propget, helpstring(\"antigo\")] HRESULT CodSerie([out, retval] BSTR* valor);\n")),
            LibraryOf("        [id(9), propget, helpstring(\"Nenhum relatório lê esta propriedade\")] HRESULT "
                      "CodSerie([out, retval] BSTR* valor);\n"));
}

TEST(HelpTextsTest, SayThatAPropertyMeansSomethingElseInOtherReports) {
  EXPECT_EQ(
      WithHelpTexts(LibraryOf("        [id(2), propget] HRESULT Modulo1([out, retval] BSTR* valor);\n")),
      LibraryOf("        [id(2), propget, helpstring(\"Código do primeiro módulo: 5 caracteres, ou 7 com Tipo S (muda "
                "conforme o relatório)\")] HRESULT Modulo1([out, retval] BSTR* valor);\n"));
}

// Every member of the real IDL has a text, and none has a quotation mark, which would end it.
TEST(HelpTextsTest, ExistForEveryMemberOfTheComponent) {
  std::ifstream idl(KODRA_SOURCE_DIR "/idl/kodrarpt.idl");
  int texts = 0;
  for (const Class& of : ReadIdl(idl)) {
    for (const Member& member : of.members) {
      const std::string text = HelpText(of, member);
      EXPECT_FALSE(text.empty()) << of.name << "." << member.name;
      EXPECT_EQ(text.find('"'), std::string::npos) << text;
      ++texts;
    }
  }
  EXPECT_GT(texts, 150);
}

}  // namespace
}  // namespace kodra::console::reference
