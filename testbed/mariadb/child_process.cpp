#include "testbed/mariadb/child_process.h"

#include <fcntl.h>
#include <grp.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace kodra::testbed {
namespace {

// The group of the same number, and no other.
bool Become(uid_t user) { return setgroups(0, nullptr) == 0 && setgid(user) == 0 && setuid(user) == 0; }

// After fork, in the new process: calls only what may be called there.
[[noreturn]] void Run(const ChildProcess& child, char* const* arguments, pid_t parent) {
  if (!child.input.empty()) dup2(open(child.input.c_str(), O_RDONLY | O_CLOEXEC), STDIN_FILENO);
  if (!child.output.empty()) {
    const int output = open(child.output.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
  }
  if (child.user && !Become(*child.user)) _exit(127);
  // A change of user would cancel it.
  prctl(PR_SET_PDEATHSIG, child.background ? SIGKILL : SIGTERM);
  if (getppid() != parent) _exit(127);
  if (child.background) setpgid(0, 0);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  execvp(arguments[0], arguments);
  _exit(127);
}

}  // namespace

pid_t Spawn(const ChildProcess& child) {
  std::vector<char*> arguments;
  arguments.reserve(child.command.size() + 1);
  for (const std::string& argument : child.command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  const pid_t parent = getpid();
  const pid_t process = fork();
  if (process == 0) Run(child, arguments.data(), parent);
  if (process < 0)
    throw std::system_error(errno, std::generic_category(), "não foi possível iniciar " + child.command.front());
  return process;
}

int WaitFor(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0) {
    if (errno != EINTR)
      throw std::system_error(errno, std::generic_category(), "não foi possível esperar o fim de um processo");
  }
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace kodra::testbed
