// ADO as VBScript uses it, in a process of its own.
#include "tests/wine/ado_support.h"
#include "tests/wine/commands.h"

namespace kodra::wine {
namespace {

class AdoScript : public AdoTest {};

TEST_F(AdoScript, EveryIdiomOfAScriptWorks) {
  EXPECT_EQ(
      "state 1\n"
      "changed 2\n"
      "COD DESCR ANDAR 3 COD\n"
      "00001 Arquivo 1 00001\n"
      "Biblioteca True False\n"
      "end True\n"
      "00001\n"
      "0\n"
      "00001\n"
      "00002\n"
      "3\n"
      "1 00002 Biblioteca\n"
      "Arquivo\n"
      "2 True\n"
      "1 1 00002 True\n"
      "x7 2 True\n"
      "y4\n"
      "5000000000\n"
      "80040E14 Microsoft OLE DB Provider for ODBC Drivers\n"
      "1 1 True\n"
      "3704 ADODB.Recordset: Operation is not allowed when the object is closed.\n"
      "3265\n"
      "80004001 ADODB: Recordset.Sort is not implemented by this ADO over ODBC.\n"
      "0 0\n",
      face::OutputOf(L"cscript.exe //nologo scripts\\ado.vbs " + DatabasePath()));
}

}  // namespace
}  // namespace kodra::wine
