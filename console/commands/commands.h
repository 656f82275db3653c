// The commands of kodrarpt. Each function adds one command to the program, with its options and its help.
#pragma once

#include "console/command_line/program.h"

namespace kodra::console {

// Adds all commands, in the order of the help.
void AddCommands(Program& program);

void AddLista(Program& program);
void AddDescreve(Program& program);
void AddExecuta(Program& program);
void AddEtiquetas(Program& program);
void AddSql(Program& program);
void AddPapel(Program& program);
void AddConfere(Program& program);
void AddVerifica(Program& program);
void AddEsquema(Program& program);
void AddPerfil(Program& program);
void AddRotina(Program& program);
void AddPainel(Program& program);

}  // namespace kodra::console
