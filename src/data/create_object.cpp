#include "data/create_object.h"

#include "values/erro.h"

namespace kodra::data {

ObjectRef CriaObjeto(const std::wstring& progId, const std::wstring& callerSource,
                     platform::Surroundings& surroundings) {
  constexpr auto kCannotCreate = static_cast<std::int32_t>(RuntimeError::kCannotCreateObject);
  try {
    return surroundings.CreateObject(progId);
  } catch (const Erro& erro) {
    if (erro.Number() != kCannotCreate) return nullptr;
  }
  throw Erro(kCannotCreate, callerSource, L"Não foi possível criar objeto da classe \"" + progId + L"\".");
}

}  // namespace kodra::data
