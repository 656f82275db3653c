// KodraBsnV3.ObtedorDeModulos: finds the subordinate modules of a module.
//
// Members: StringConexao and LogFile (texts, read and written), Conexao (object, set by reference: an open ADO
// connection, which is then used instead of StringConexao), and two methods that return a collection (collection.h):
//   ObtemSubordinados(filter)               those that match a KodraBsnV3.ModulosFiltro (or an object like it)
//   ObtemUltimosSubordinadosFechados(code)  those closed on the latest closing day of the module's subordinates
// Both return nothing when the archive has no such module, and an empty collection when no subordinate qualifies. A
// module is closed when it has a closing date.
//
// Each member of a collection, in the order of their numbers, has the readable members NumCaixa (the 7-character code),
// NumSeq, DocInicial, DocFinal, DataVencimento, DataFechamento, TipoGuarda and AnosVencimento, as the database contains
// them. LogFile is kept for clients that set it; nothing is logged here.
#pragma once

#include <string>

#include "platform/surroundings.h"
#include "siblings/database.h"
#include "siblings/sibling.h"

namespace kodra::siblings {

class ObtedorDeModulos final : public Sibling<ObtedorDeModulos> {
 public:
  // REQUIRES: `surroundings` outlives the object.
  explicit ObtedorDeModulos(platform::Surroundings& surroundings) : surroundings_(surroundings) {}

  static std::span<const Member<ObtedorDeModulos>> Members();

 private:
  Value ObtemSubordinados(std::span<const Value> arguments);
  Value ObtemUltimosSubordinadosFechados(std::span<const Value> arguments);

  // The subordinates of a module under a further condition, which starts with " AND " unless it is empty.
  Value Find(const std::wstring& module, const std::wstring& condition) const;

  platform::Surroundings& surroundings_;
  std::wstring stringConexao_;
  std::wstring logFile_;
  ObjectRef conexao_;
};

}  // namespace kodra::siblings
