// The MariaDB server of the test program: started at first use, ended with the program.
#pragma once

#include "mariadb/mariadb_server.h"

namespace kodra::tests {

inline const support::MariaDbServer& MariaDb() {
  static const support::MariaDbServer server;
  return server;
}

}  // namespace kodra::tests
