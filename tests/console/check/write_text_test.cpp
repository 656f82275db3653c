// What verifica writes about databases that the tests do not have.
#include <gtest/gtest.h>

#include <sstream>

#include "console/check/findings.h"

namespace kodra::console {
namespace {

std::string TextOf(const Findings& findings) {
  std::ostringstream text;
  WriteText(findings, text);
  return text.str();
}

TEST(WriteTextTest, SaysThatTheConnectionComponentIsMissing) {
  Findings findings;
  findings.database.unknownBecause = "KodraConexao.StrCon: Não foi possível criar objeto da classe";
  EXPECT_EQ(TextOf(findings),
            "Banco de dados: não identificado (KodraConexao.StrCon: Não foi possível criar objeto da classe)\n"
            "\n"
            "\n"
            "0 de 0 relatórios prontos\n");
}

TEST(WriteTextTest, SaysWhatCouldNotBeChecked) {
  Findings findings;
  findings.database = {.code = 1, .unknownBecause = "", .name = "oracle", .title = "Oracle"};
  findings.unchecked = {
      "as instruções e os índices: isso só é possível com um driver ODBC, e esta conexão usa um provedor OLE DB",
      "os índices de CAIXA: o banco não respondeu\x1b"};
  EXPECT_EQ(TextOf(findings),
            "Banco de dados: Oracle (tipo 1)\n"
            "\n"
            "\n"
            "0 de 0 relatórios prontos\n"
            "\n"
            "Não foi possível conferir:\n"
            "  - as instruções e os índices: isso só é possível com um driver ODBC, e esta conexão usa um provedor OLE "
            "DB.\n"
            "  - os índices de CAIXA: o banco não respondeu\uFFFD.\n");
}

}  // namespace
}  // namespace kodra::console
