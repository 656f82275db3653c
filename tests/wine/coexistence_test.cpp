// The component beside other modules of a process: a second copy of itself, as in a program that brings its own and
// meets the installed one, and the shared library of its compiler's runtime, which programs and ODBC drivers of the
// same compiler load.
#include <kodrarpt.h>

#include "tests/wine/commands.h"
#include "tests/wine/rows.h"
#include "tests/wine/server.h"

namespace kodra::face {
namespace {

class TwoCopies : public testing::Test {
 protected:
  ~TwoCopies() override {
    EXPECT_EQ(S_OK, one_->CanUnloadNow());
    EXPECT_EQ(S_OK, other_->CanUnloadNow());
  }

  // Runs the report on document models of one copy with a parameter object.
  static Outcome Models(const ServerCopy& copy, const Ref<IDispatch>& parameters) {
    const auto report = copy->Create<IDispatch>(__uuidof(::CModeloRpt));
    EXPECT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
    return Call(report, L"RelatorioModelos", {Var(parameters.get())});
  }
  // Parameters that choose one model.
  static Ref<IDispatch> OneModel(const ServerCopy& copy) {
    const auto parameters = copy->Create<IDispatch>(__uuidof(::CModeloRptObj));
    EXPECT_EQ(S_OK, Put(parameters, L"CodModelo", L"MODELO-0002").hr);
    return parameters;
  }

  const ServerCopy one_{L"uma.dll"};
  const ServerCopy other_{L"outra.dll"};
};

TEST_F(TwoCopies, EachReadsTheOthersParameterObjects) {
  const auto expected = ReadAll(Got(Models(one_, OneModel(one_))).object()).rows;
  ASSERT_EQ(1U, expected.size());
  EXPECT_EQ(expected, ReadAll(Got(Models(one_, OneModel(other_))).object()).rows);
  EXPECT_EQ(expected, ReadAll(Got(Models(other_, OneModel(one_))).object()).rows);
}

TEST_F(TwoCopies, EachRaisesTheWholeErrorOfTheOthersParameterObject) {
  const Failure absent =
      Framed(L"CModeloRpt::RelatorioModelos", L"O objeto de parâmetros não tem a propriedade \"CodModelo\".");
  EXPECT_EQ(absent, Models(one_, one_->Create<IDispatch>(__uuidof(::CDeptoRptObj))).failure);
  EXPECT_EQ(absent, Models(one_, other_->Create<IDispatch>(__uuidof(::CDeptoRptObj))).failure);
  EXPECT_EQ(absent, Models(other_, one_->Create<IDispatch>(__uuidof(::CDeptoRptObj))).failure);
}

// The output of a client of programs/, which prints each error that it receives.
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
