// What a piece of code raised, in a form that a test compares and prints whole.
//
//   EXPECT_EQ(RaisedBy([&] { report.RelatorioDeptos(nullptr); }),
//             (Raised{frame::kReportError, "KodraRpt.CDeptoRpt::RelatorioDeptos", "Erro ao …"}));
#pragma once

#include <cstdint>
#include <ostream>
#include <string>

#include "frame/report_call.h"
#include "tests/recorder/journal.h"
#include "values/erro.h"

namespace kodra::recorder {

struct Raised {
  std::int32_t number = 0;
  std::string source;
  std::string description;
  bool operator==(const Raised&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Raised& raised) {
  return out << raised.number << " from \"" << raised.source << "\": " << raised.description;
}

inline Raised ToRaised(const Erro& erro) { return {erro.Number(), Utf8(erro.Source()), Utf8(erro.Description())}; }

// Any exception but an Erro goes on to the test.
template <class Body>
Raised RaisedBy(Body body) {
  try {
    body();
  } catch (const Erro& erro) {
    return ToRaised(erro);
  }
  return {0, "", "nothing was raised"};
}

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
