// KodraBsnV3.ObtedorDeTiposOperadores: describes the types of operators.
//
// Members: StringConexao (text, read and written), ObtemDescricao (method: the type's code as a number; returns a
// text).
//
//   0 "Consulta"   1 "Administrador"   2 "Arquivista"   3 "Digitalizador"   12 "Auditor"
//
// Any other code returns "Tipo desconhecido (<code>)". The types are the component's own: no database contains them.
#pragma once

#include <string>

#include "siblings/sibling.h"

namespace kodra::siblings {

// The description of a type of operators.
std::wstring OperatorType(double code);

class ObtedorDeTiposOperadores final : public Sibling<ObtedorDeTiposOperadores> {
 public:
  static std::span<const Member<ObtedorDeTiposOperadores>> Members();

 private:
  Value ObtemDescricao(std::span<const Value> arguments);

  std::wstring stringConexao_;
};

}  // namespace kodra::siblings
