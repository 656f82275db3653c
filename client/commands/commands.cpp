#include "client/commands/commands.h"

namespace kodra::client {

void AddCommands(Program& program) {
  AddLista(program);
  AddDescreve(program);
  AddExecuta(program);
  AddSql(program);
  AddVerifica(program);
}

}  // namespace kodra::client
