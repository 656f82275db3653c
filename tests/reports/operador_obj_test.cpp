// The operator record.
#include "reports/operators/operador_obj.h"

#include <gtest/gtest.h>

#include "tests/recorder/journal.h"

namespace kodra::reports {
namespace {

using recorder::Utf8;

TEST(OperadorObjTest, WritesEveryPropertyInOneLine) {
  const OperadorObj record = {
      .Descr_Operador = L"MARIA",
      .Nome_Completo = L"Maria da Conceição",
      .Tipo = L"2",
      .Descr_Depto = L"Jurídico",
      .Chapa = L"00017",
      .Ramal = L"4321",
      .Descr_Grupo_Op = L"Arquivistas",
      .Ativo = true,
      .Desabilitado_AD = L"N",
      .Existe_AD = L"S",
  };
  EXPECT_EQ(Utf8(record.ToString()),
            "Descr_Operador: MARIA, Nome_Completo: Maria da Conceição, Tipo: 2, Descr_Depto: Jurídico, Chapa: 00017, "
            "Ramal: 4321, Descr_Grupo_Op: Arquivistas, Ativo: Verdadeiro, Desabilitado_AD: N, Existe_AD: S");
}

TEST(OperadorObjTest, WritesTheNamesOfEmptyPropertiesToo) {
  EXPECT_EQ(Utf8(OperadorObj().ToString()),
            "Descr_Operador: , Nome_Completo: , Tipo: , Descr_Depto: , Chapa: , "
            "Ramal: , Descr_Grupo_Op: , Ativo: Falso, Desabilitado_AD: , Existe_AD: ");
}

}  // namespace
}  // namespace kodra::reports
