#include "client/commands/commands.h"

namespace kodra::client {

void AddCommands(Program& program) {
  AddLista(program);
  AddSql(program);
}

}  // namespace kodra::client
