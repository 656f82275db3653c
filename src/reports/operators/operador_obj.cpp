#include "reports/operators/operador_obj.h"

#include "values/convert.h"

namespace kodra::reports {

std::wstring OperadorObj::ToString() const {
  std::wstring text = L"Descr_Operador: " + Descr_Operador;
  text += L", Nome_Completo: " + Nome_Completo;
  text += L", Tipo: " + Tipo;
  text += L", Descr_Depto: " + Descr_Depto;
  text += L", Chapa: " + Chapa;
  text += L", Ramal: " + Ramal;
  text += L", Descr_Grupo_Op: " + Descr_Grupo_Op;
  text += L", Ativo: " + values::ToText(Ativo);
  text += L", Desabilitado_AD: " + Desabilitado_AD;
  text += L", Existe_AD: " + Existe_AD;
  return text;
}

}  // namespace kodra::reports
