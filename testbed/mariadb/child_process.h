// Programs that this one starts and that end with it, however it ends.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace kodra::testbed {

struct ChildProcess {
  std::vector<std::string> command;  // the program, by its path or by its name in PATH, and its arguments
  // Files that the program reads and appends to. When they are empty, it uses this program's own streams.
  // This program opens them, with its own permissions.
  std::string input, output;
  // The user and group that the program runs as; only root may choose another one than its own.
  std::optional<uid_t> user = {};
  // The new program does not receive the signals of the terminal, such as Ctrl-C.
  bool background = false;
};

// Starts a program and returns its process id. A program that cannot be run ends with exit code 127. The new
// program starts with the default action for all signals, whatever this one handles or blocks.
// REQUIRES: called by a thread that lives as long as the program should.
pid_t Spawn(const ChildProcess& child);

// Waits for a program's end. Returns its exit code; 128 and the signal's number when a signal ended it, as shells do.
int WaitFor(pid_t process);

}  // namespace kodra::testbed
