// The MariaDB server of the test program: started at first use, ended with the program.
#pragma once

#include "testbed/mariadb/mariadb_server.h"

namespace kodra::tests {

inline const testbed::MariaDbServer& MariaDb() {
  static const testbed::MariaDbServer server;
  return server;
}

}  // namespace kodra::tests
