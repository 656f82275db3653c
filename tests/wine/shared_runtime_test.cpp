// The component in a process with the shared library of its compiler's runtime, which programs and ODBC drivers of the
// same compiler load: its errors stay intact, whatever else is loaded.
#include <gtest/gtest.h>

#include "tests/wine/commands.h"
#include "tests/wine/environment.h"

namespace kodra::face {
namespace {

// The output of a client of programs/.
std::string OutputOfClient(const std::wstring& commandLine) {
  const std::wstring program = ProgramPath();
  return OutputOf(program.substr(0, program.rfind(L'\\') + 1) + commandLine);
}

const std::string kError =
    "80041FAB KodraRpt.CDeptoRpt::RelatorioDeptos Erro ao gerar dados para o relatório: É preciso definir a "
    "propriedade \"StringConexao\".\n";

TEST(SharedRuntime, LoadedBeforeTheComponentLeavesItsErrorsWhole) {
  EXPECT_EQ(kError + kError + "unloaded\n" + kError + kError + "the client's own exception\n",
            OutputOfClient(L"kodra_shared_client.exe"));
}

TEST(SharedRuntime, LoadedAfterTheComponentLeavesItsErrorsWhole) {
  EXPECT_EQ(kError + "library loaded\n" + kError + "unloaded\n" + kError + kError + "the client's own exception\n",
            OutputOfClient(L"kodra_static_client.exe libgcc_s_dw2-1.dll"));
}

}  // namespace
}  // namespace kodra::face
