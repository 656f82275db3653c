#include "data/create_object.h"

#include "platform/erro.h"

namespace kodra::data {

platform::ObjectRef CriaObjeto(const std::wstring& progId, const std::wstring& callerSource,
                               platform::Surroundings& surroundings) {
  constexpr auto kCannotCreate = static_cast<std::int32_t>(platform::RuntimeError::kCannotCreateObject);
  try {
    return surroundings.CreateObject(progId);
  } catch (const platform::Erro& erro) {
    if (erro.Number() != kCannotCreate) return nullptr;
  }
  throw platform::Erro(kCannotCreate, callerSource, L"Não foi possível criar objeto da classe \"" + progId + L"\".");
}

}  // namespace kodra::data
