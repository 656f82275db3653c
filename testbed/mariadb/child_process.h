// Programs that this one starts, and that end with it whichever way it ends.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace kodra::testbed {

struct ChildProcess {
  std::vector<std::string> command;  // the program, by its path or by its name in PATH, and its arguments
  // Files that the program reads and appends to in place of this one's own streams, which it has when they are empty.
  std::string input, output;
  // The program is beyond the reach of the keys that interrupt this one.
  bool background = false;
};

// Starts a program and gives its process id. A program that cannot be run ends with exit code 127. Whatever signals
// this program handles or blocks, the new one starts with the usual answers to all of them.
// REQUIRES: called by a thread that lives as long as the program should.
pid_t Spawn(const ChildProcess& child);

// Waits for a program's end. Gives its exit code; 128 and the signal's number when a signal ended it, as shells do.
int WaitFor(pid_t process);

}  // namespace kodra::testbed
