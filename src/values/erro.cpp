#include "values/erro.h"

#include <new>

namespace kodra {

std::wstring_view RuntimeText(std::int32_t number) {
  switch (static_cast<RuntimeError>(number)) {
    case RuntimeError::kOverflow:
      return L"Estouro";
    case RuntimeError::kOutOfMemory:
      return L"Memória insuficiente";
    case RuntimeError::kTypeMismatch:
      return L"Tipos incompatíveis";
    case RuntimeError::kObjectNotSet:
      return L"A variável do objeto ou a variável do bloco 'With' não foi definida";
    case RuntimeError::kInvalidUseOfNull:
      return L"Uso de 'Null' inválido";
    case RuntimeError::kObjectRequired:
      return L"O objeto é obrigatório";
    case RuntimeError::kCannotCreateObject:
      return L"O componente ActiveX não pode criar o objeto";
    case RuntimeError::kMemberNotFound:
      return L"O objeto não aceita esta propriedade ou método";
  }
  return {};
}

Erro MakeRuntimeError(RuntimeError error) {
  const auto number = static_cast<std::int32_t>(error);
  return {number, std::wstring(kApplicationTitle), std::wstring(RuntimeText(number))};
}

MemberNotFound::MemberNotFound() : Erro(MakeRuntimeError(RuntimeError::kMemberNotFound)) {}

Erro CurrentErro() {
  constexpr std::int32_t kInternalError = 51;
  try {
    throw;
  } catch (const Erro& erro) {
    return erro;
  } catch (const std::bad_alloc&) {
    return MakeRuntimeError(RuntimeError::kOutOfMemory);
  } catch (...) {
    return {kInternalError, std::wstring(kApplicationTitle), L"Erro interno"};
  }
}

}  // namespace kodra
