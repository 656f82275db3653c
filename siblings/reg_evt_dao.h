// KodraRegEvt.RegEvtDAO: finds entries of the event log, table EVENTO.
//
// Members: StringConexao and Caller (texts, read and written; Caller names the program that asks and is only kept),
// Localiza (method: a KodraRegEvt.RegEvtFind or an object like it; returns a collection (collection.h), or nothing when
// no event matches).
//
// An event matches when it fits every member of the filter that is set: Acao is part of its text, Cod_Docto, Maquina,
// Nome_Operador and Tipo_Evento are its own as the database compares texts, and its time lies from DataInicial to
// DataFinal, both included. A DataFinal without a time of day means that whole day.
//
// The events are ordered by time, those of the same time by their codes. Each has the readable members DataInicial
// (date and time, the zero date for a null), Nome_Operador, Maquina, Cod_Docto, Tipo_Evento and Acao (texts, empty for
// a null).
//
// Without StringConexao, Localiza raises kErrBase + 1, source "KodraRegEvt.RegEvtDAO::Localiza".
#pragma once

#include <string>

#include "platform/surroundings.h"
#include "siblings/sibling.h"

namespace kodra::siblings {

class RegEvtDao final : public Sibling<RegEvtDao> {
 public:
  // REQUIRES: `surroundings` outlives the object.
  explicit RegEvtDao(platform::Surroundings& surroundings) : surroundings_(surroundings) {}

  static std::span<const Member<RegEvtDao>> Members();

 private:
  Value Localiza(std::span<const Value> arguments);

  platform::Surroundings& surroundings_;
  std::wstring stringConexao_;
  std::wstring caller_;
};

}  // namespace kodra::siblings
