#include "client/commands/commands.h"

namespace kodra::client {

void AddCommands(Program& program) { AddLista(program); }

}  // namespace kodra::client
