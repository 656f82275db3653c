// The component's one exception type, and the conversion of other exceptions to it.
#include "values/erro.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "tests/recorder/raised.h"

namespace kodra::platform {
namespace {

using recorder::Raised;

// The result of CurrentErro for an exception.
template <class Exception>
Raised CaughtAs(const Exception& exception) {
  try {
    throw exception;
  } catch (...) {
    return Raised(CurrentErro());
  }
}

TEST(ErroTest, CarriesItsThreeParts) {
  const Erro erro(kErrBase + 1, L"Fonte", L"Descrição");
  EXPECT_EQ(erro.Number(), -2147221503);
  EXPECT_EQ(erro.Source(), L"Fonte");
  EXPECT_EQ(erro.Description(), L"Descrição");
}

TEST(ErroTest, CountsFromTheCustomErrorBase) { EXPECT_EQ(kErrBase, -2147221504); }

TEST(ErroTest, HasANumberAndATextForEveryRuntimeError) {
  const std::pair<RuntimeError, Raised> kErrors[] = {
      {RuntimeError::kOverflow, {6, "KodraRpt", "Estouro"}},
      {RuntimeError::kOutOfMemory, {7, "KodraRpt", "Memória insuficiente"}},
      {RuntimeError::kTypeMismatch, {13, "KodraRpt", "Tipos incompatíveis"}},
      {RuntimeError::kObjectNotSet,
       {91, "KodraRpt", "A variável do objeto ou a variável do bloco 'With' não foi definida"}},
      {RuntimeError::kInvalidUseOfNull, {94, "KodraRpt", "Uso de 'Null' inválido"}},
      {RuntimeError::kObjectRequired, {424, "KodraRpt", "O objeto é obrigatório"}},
      {RuntimeError::kCannotCreateObject, {429, "KodraRpt", "O componente ActiveX não pode criar o objeto"}},
      {RuntimeError::kMemberNotFound, {438, "KodraRpt", "O objeto não aceita esta propriedade ou método"}},
  };
  for (const auto& [error, expected] : kErrors) EXPECT_EQ(Raised(MakeRuntimeError(error)), expected);
}

TEST(ErroTest, IsCaughtAsItIs) {
  EXPECT_EQ(CaughtAs(Erro(-5, L"Fonte", L"Descrição")), (Raised{-5, "Fonte", "Descrição"}));
}

TEST(ErroTest, CurrentErroIsOutOfMemoryForABadAlloc) {
  EXPECT_EQ(CaughtAs(std::bad_alloc()), (Raised{7, "KodraRpt", "Memória insuficiente"}));
  EXPECT_EQ(CaughtAs(std::bad_array_new_length()), (Raised{7, "KodraRpt", "Memória insuficiente"}));
}

TEST(ErroTest, CurrentErroIsAnInternalErrorForAnyOtherException) {
  EXPECT_EQ(CaughtAs(std::runtime_error("unexpected")), (Raised{51, "KodraRpt", "Erro interno"}));
  EXPECT_EQ(CaughtAs(5), (Raised{51, "KodraRpt", "Erro interno"}));
}

}  // namespace
}  // namespace kodra::platform
