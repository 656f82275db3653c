// Raised when the database cannot be reached or refuses the user; the program ends with ExitCode::kConnection.
#pragma once

#include "values/erro.h"

namespace kodra::console {

class ConnectionError : public Erro {
 public:
  explicit ConnectionError(const Erro& cause) : Erro(cause) {}
};

}  // namespace kodra::console
