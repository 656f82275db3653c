#include "siblings/obtedor_de_tipos_operadores.h"

#include <gtest/gtest.h>

namespace kodra::siblings {
namespace {

Value DescriptionOf(const Value& code) {
  ObtedorDeTiposOperadores types;
  types.Let(L"StringConexao", L"Driver={SQLite3};Database=a.db");
  return types.Call(L"ObtemDescricao", {&code, 1});
}

TEST(ObtedorDeTiposOperadores, DescribesEveryType) {
  EXPECT_EQ(DescriptionOf(0.0), Value(L"Consulta"));
  EXPECT_EQ(DescriptionOf(1.0), Value(L"Administrador"));
  EXPECT_EQ(DescriptionOf(2.0), Value(L"Arquivista"));
  EXPECT_EQ(DescriptionOf(3.0), Value(L"Digitalizador"));
  EXPECT_EQ(DescriptionOf(12.0), Value(L"Auditor"));
}

TEST(ObtedorDeTiposOperadores, NamesTheCodeOfAnUnknownType) {
  EXPECT_EQ(DescriptionOf(99.0), Value(L"Tipo desconhecido (99)"));
  EXPECT_EQ(DescriptionOf(1.5), Value(L"Tipo desconhecido (1,5)"));
  EXPECT_EQ(DescriptionOf(-1.0), Value(L"Tipo desconhecido (-1)"));
}

TEST(ObtedorDeTiposOperadores, TakesTheCodeInOtherKindsOfNumbersToo) {
  EXPECT_EQ(DescriptionOf(2), Value(L"Arquivista"));
  EXPECT_EQ(DescriptionOf(L"12"), Value(L"Auditor"));
}

}  // namespace
}  // namespace kodra::siblings
