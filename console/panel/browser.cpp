#include "console/panel/browser.h"

#ifdef _WIN32
#include <windows.h>
// after windows.h
#include <shellapi.h>

#include "values/utf8.h"
#else
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>
#endif

namespace kodra::console::panel {

#ifdef _WIN32

bool OpenBrowser(const std::string& address) {
  const auto result =
      ShellExecuteW(nullptr, L"open", values::FromUtf8(address).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  // A greater number than 32 is success.
  return reinterpret_cast<INT_PTR>(result) > 32;
}

#else

namespace {

constexpr int kAttempts = 20;
constexpr std::chrono::milliseconds kInterval{50};

}  // namespace

bool OpenBrowser(const std::string& address) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  // What the browser prints must not appear among the lines of this program.
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_RDWR, 0);
  // Ctrl-C ends this program and not the browser.
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t ignored;
  sigemptyset(&ignored);
  sigaddset(&ignored, SIGPIPE);
  posix_spawnattr_setsigdefault(&attributes, &ignored);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF);
  std::string program = "xdg-open", argument = address;
  char* const arguments[] = {program.data(), argument.data(), nullptr};
  pid_t process = 0;
  const bool isStarted = posix_spawnp(&process, program.c_str(), &actions, &attributes, arguments, environ) == 0;
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  if (!isStarted) return false;
  // It ends soon if there is no browser, and may last as long as the browser if there is one.
  for (int i = 0; i < kAttempts; ++i) {
    int status = 0;
    if (waitpid(process, &status, WNOHANG) == process) return status == 0;
    std::this_thread::sleep_for(kInterval);
  }
  return true;
}

#endif

}  // namespace kodra::console::panel
