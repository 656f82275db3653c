// What a command raises when the database cannot be reached or refuses the user; the program ends with
// ExitCode::kConnection.
#pragma once

#include "platform/erro.h"

namespace kodra::client {

class ConnectionError : public platform::Erro {
 public:
  explicit ConnectionError(const platform::Erro& cause) : Erro(cause) {}
};

}  // namespace kodra::client
