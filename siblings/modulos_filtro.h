// KodraBsnV3.ModulosFiltro: selects the subordinate modules that KodraBsnV3.ObtedorDeModulos returns.
//
// Members, read and written: NumCaixa (text, the parent module's number), Fechados (whole number: 0, the default, for
// all subordinates, 1 for the closed ones, 2 for the open ones).
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
