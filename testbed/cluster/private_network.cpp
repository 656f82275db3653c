#include "testbed/cluster/private_network.h"

#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

namespace kodra::testbed {
namespace {

void Require(bool succeeded) {
  if (!succeeded) throw std::system_error(errno, std::generic_category(), "não foi possível criar uma rede própria");
}

void StartLoopback() {
  const int any = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  Require(any >= 0);
  ifreq loopback{};
  std::strcpy(loopback.ifr_name, "lo");
  loopback.ifr_flags = IFF_UP;
  const int result = ioctl(any, SIOCSIFFLAGS, &loopback);
  close(any);
  Require(result == 0);
}

}  // namespace

void EnterPrivateNetwork() {
  Require(unshare(CLONE_NEWNET) == 0);
  StartLoopback();
}

}  // namespace kodra::testbed
