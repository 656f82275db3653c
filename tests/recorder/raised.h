// What a piece of code raised, in a form that a test compares and prints whole.
//
//   EXPECT_EQ(RaisedBy([&] { report.RelatorioDeptos(nullptr); }),
//             (Raised{kErrBase + 8107, "KodraRpt.CDeptoRpt::RelatorioDeptos", "Erro ao …"}));
#pragma once

#include <cstdint>
#include <ostream>
#include <string>

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

// The same for the frame of a report method.
inline Raised Framed(const std::string& classAndMethod, const std::string& cause) {
  return {kErrBase + 8107, "KodraRpt." + classAndMethod, "Erro ao gerar dados para o relatório: " + cause};
}

}  // namespace kodra::recorder
