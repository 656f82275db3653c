#include "siblings/obtedor_de_tipos_operadores.h"

#include "values/numbers.h"

namespace kodra::siblings {
namespace {

struct Type {
  double code;
  std::wstring_view description;
};

constexpr Type kTypes[] = {
    {0, L"Consulta"}, {1, L"Administrador"}, {2, L"Arquivista"}, {3, L"Digitalizador"}, {12, L"Auditor"},
};

double CodeIn(const Value& value) {
  if (value.Is<double>()) return value.As<double>();
  return values::ParseNumber(values::ToText(value)).value_or(0);
}

}  // namespace

std::wstring OperatorType(double code) {
  for (const Type& type : kTypes) {
    if (type.code == code) return std::wstring(type.description);
  }
  return L"Tipo desconhecido (" + values::NumberToText(code) + L")";
}

Value ObtedorDeTiposOperadores::ObtemDescricao(std::span<const Value> arguments) {
  return OperatorType(CodeIn(arguments[0]));
}

std::span<const Member<ObtedorDeTiposOperadores>> ObtedorDeTiposOperadores::Members() {
  static const Member<ObtedorDeTiposOperadores> kMembers[] = {
      Property<&ObtedorDeTiposOperadores::stringConexao_>(L"StringConexao"),
      Method<&ObtedorDeTiposOperadores::ObtemDescricao, 1>(L"ObtemDescricao"),
  };
  return kMembers;
}

}  // namespace kodra::siblings
