#include "platform/erro.h"

#include <new>

namespace kodra::platform {
namespace {

std::wstring_view Text(RuntimeError error) {
  switch (error) {
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

constexpr std::int32_t kInternalError = 51;

}  // namespace

MemberNotFound::MemberNotFound() : Erro(MakeRuntimeError(RuntimeError::kMemberNotFound)) {}

Erro MakeRuntimeError(RuntimeError error) {
  return {static_cast<std::int32_t>(error), std::wstring(kApplicationTitle), std::wstring(Text(error))};
}

Erro CurrentErro() {
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

}  // namespace kodra::platform
