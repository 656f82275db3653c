// A network that only this program and what it starts can use.
#pragma once

namespace kodra::testbed {

// Moves this thread, and every thread and program that it starts from now on, into a network that consists of a
// loopback interface. Its ports need not be free on the machine, and no other program of the machine can reach them.
// The network ends with its last program. REQUIRES: root's rights on the machine or in a user namespace; without them
// it raises std::system_error.
void EnterPrivateNetwork();

}  // namespace kodra::testbed
