// What a piece of code raised, and the errors of the component that most tests expect.
#pragma once

#include <string>

#include "frame/report_call.h"
#include "tests/raised.h"

namespace kodra::recorder {

using tests::Raised;
using tests::RaisedBy;

// The errors of the automation runtime that most tests expect. tests/values/erro_test.cpp has all of them by their
// names.
inline const Raised kOverflow = {6, "KodraRpt", "Estouro"};
inline const Raised kOutOfMemory = {7, "KodraRpt", "Memória insuficiente"};
inline const Raised kTypeMismatch = {13, "KodraRpt", "Tipos incompatíveis"};
inline const Raised kInternalError = {51, "KodraRpt", "Erro interno"};
inline const Raised kObjectNotSet = {91, "KodraRpt",
                                     "A variável do objeto ou a variável do bloco 'With' não foi definida"};
inline const Raised kInvalidUseOfNull = {94, "KodraRpt", "Uso de 'Null' inválido"};
inline const Raised kObjectRequired = {424, "KodraRpt", "O objeto é obrigatório"};
inline const Raised kMemberNotFound = {438, "KodraRpt", "O objeto não aceita esta propriedade ou método"};

// What a framed report raises for a cause.
inline Raised Framed(const std::string& classAndMethod, const std::string& cause) {
  return {frame::kReportError, "KodraRpt." + classAndMethod, "Erro ao gerar dados para o relatório: " + cause};
}

}  // namespace kodra::recorder
