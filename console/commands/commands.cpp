#include "console/commands/commands.h"

namespace kodra::console {

void AddCommands(Program& program) {
  AddLista(program);
  AddDescreve(program);
  AddExecuta(program);
  AddEtiquetas(program);
  AddSql(program);
  AddPapel(program);
  AddConfere(program);
  AddVerifica(program);
  AddEsquema(program);
  AddPerfil(program);
  AddRotina(program);
  AddPainel(program);
}

}  // namespace kodra::console
