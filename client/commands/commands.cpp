#include "client/commands/commands.h"

namespace kodra::client {

void AddCommands(Program& program) {
  AddLista(program);
  AddDescreve(program);
  AddSql(program);
}

}  // namespace kodra::client
