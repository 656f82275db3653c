// The commands of kodrarpt: each adds itself, with its options and its help, to the program.
#pragma once

#include "console/command_line/program.h"

namespace kodra::console {

// All of them, in the order of the help.
void AddCommands(Program& program);

void AddExecuta(Program& program);
void AddLista(Program& program);
void AddDescreve(Program& program);
void AddSql(Program& program);
void AddVerifica(Program& program);

}  // namespace kodra::console
