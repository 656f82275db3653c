// KodraBsnV3.ModulosFiltro: which subordinate modules KodraBsnV3.ObtedorDeModulos is to give.
//
// Members, read and written: NumCaixa (text, the parent module's number), Fechados (whole number: 0, as it starts, all
// subordinates, 1 the closed ones, 2 the open ones).
#pragma once

#include <string>

#include "siblings/sibling.h"

namespace kodra::siblings {

inline constexpr std::int32_t kClosedModules = 1;
inline constexpr std::int32_t kOpenModules = 2;

class ModulosFiltro final : public Sibling<ModulosFiltro> {
 public:
  static std::span<const Member<ModulosFiltro>> Members() {
    static const Member<ModulosFiltro> kMembers[] = {
        Property<&ModulosFiltro::numCaixa_>(L"NumCaixa"),
        Property<&ModulosFiltro::fechados_>(L"Fechados"),
    };
    return kMembers;
  }

 private:
  std::wstring numCaixa_;
  std::int32_t fechados_ = 0;
};

}  // namespace kodra::siblings
