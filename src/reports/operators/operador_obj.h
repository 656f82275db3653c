// One operator (user) of the archive, as the operators report reads it.
#pragma once

#include <string>

namespace kodra::reports {

struct OperadorObj {
  std::wstring Descr_Operador;
  std::wstring Nome_Completo;
  std::wstring Tipo;  // the operator type code
  std::wstring Descr_Depto;
  std::wstring Chapa;
  std::wstring Ramal;
  std::wstring Descr_Grupo_Op;
  bool Ativo = false;
  std::wstring Desabilitado_AD;  // whether the directory account is disabled; not filled by reports
  std::wstring Existe_AD;        // whether there is a directory account; not filled by reports

  // All properties in one line, each as "Name: value", with ", " between them.
  std::wstring ToString() const;
};

}  // namespace kodra::reports
