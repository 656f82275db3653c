// KodraRegEvt.RegEvtFind: selects the events that KodraRegEvt.RegEvtDAO finds.
//
// Members, read and written: Acao, Cod_Docto, Maquina, Nome_Operador, Tipo_Evento (texts; an empty one filters
// nothing), DataInicial and DataFinal (dates; the zero date is no bound).
#pragma once

#include <string>

#include "siblings/sibling.h"

namespace kodra::siblings {

class RegEvtFind final : public Sibling<RegEvtFind> {
 public:
  static std::span<const Member<RegEvtFind>> Members() {
    static const Member<RegEvtFind> kMembers[] = {
        Property<&RegEvtFind::acao_>(L"Acao"),
        Property<&RegEvtFind::codDocto_>(L"Cod_Docto"),
        Property<&RegEvtFind::maquina_>(L"Maquina"),
        Property<&RegEvtFind::nomeOperador_>(L"Nome_Operador"),
        Property<&RegEvtFind::tipoEvento_>(L"Tipo_Evento"),
        Property<&RegEvtFind::dataInicial_>(L"DataInicial"),
        Property<&RegEvtFind::dataFinal_>(L"DataFinal"),
    };
    return kMembers;
  }

 private:
  std::wstring acao_;
  std::wstring codDocto_;
  std::wstring maquina_;
  std::wstring nomeOperador_;
  std::wstring tipoEvento_;
  Date dataInicial_;
  Date dataFinal_;
};

}  // namespace kodra::siblings
