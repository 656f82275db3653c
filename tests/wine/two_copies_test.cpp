// Two copies of the component in one process, as in a program that brings its own and meets the installed one: each may
// receive the other's objects.
#include <kodrarpt.h>

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

  // Runs the report on document models of one copy on a parameter object.
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
  const Failure absent = {0x80041FAB, L"KodraRpt.CModeloRpt::RelatorioModelos",
                          L"Erro ao gerar dados para o relatório: O objeto de parâmetros não tem a propriedade "
                          L"\"CodModelo\"."};
  EXPECT_EQ(absent, Models(one_, one_->Create<IDispatch>(__uuidof(::CDeptoRptObj))).failure);
  EXPECT_EQ(absent, Models(one_, other_->Create<IDispatch>(__uuidof(::CDeptoRptObj))).failure);
  EXPECT_EQ(absent, Models(other_, one_->Create<IDispatch>(__uuidof(::CDeptoRptObj))).failure);
}

}  // namespace
}  // namespace kodra::face
