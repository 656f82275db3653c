// What a person reads when a report fails: what happened, and what to do.
#pragma once

#include <string>

#include "values/erro.h"

namespace kodra::console {

// A message of several lines, without "kodrarpt: " before and a line end after it:
//   o relatório CDeptoRpt.RelatorioDeptos não pôde ser gerado: …
//   Resposta do banco ou do driver: no such table: DEPTO (1)
//   O que fazer: confira a conexão; "kodrarpt verifica" mostra tudo o que falta.
//   Com --detalhes, sai também a mensagem do componente.
// Where the guide does not know the error, the first line ends before the colon, and the second one is "Mensagem
// recebida: …". With details, the last line is the component's whole message instead, with its number and source. A
// ConnectionError is told as such.
std::string ErrorMessage(const Erro& error, bool withDetails);

}  // namespace kodra::console
