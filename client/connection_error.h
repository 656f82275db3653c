// What a command raises when the database cannot be reached or refuses the user; the program ends with
// ExitCode::kConnection.
#pragma once

#include "platform/erro.h"
#include "platform/password.h"

namespace kodra::client {

class ConnectionError : public platform::Erro {
 public:
  // What failed with that connection string, whose password is not shown.
  ConnectionError(const platform::Erro& cause, const std::wstring& connectionString)
      : Erro(cause.Number(), cause.Source(), platform::HidePassword(cause.Description(), connectionString)) {}
};

}  // namespace kodra::client
