#include "console/run/standard_streams.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace kodra::console {

#ifdef _WIN32

// The runtime library never reuses the numbers of the standard streams for another file.
void OccupyClosedStreams() {}

std::optional<std::size_t> TerminalWidth() {
  CONSOLE_SCREEN_BUFFER_INFO console;
  if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &console) == 0) return std::nullopt;
  // The last column stays free: after a character in it, the console is already on the next line.
  return static_cast<std::size_t>(console.srWindow.Right - console.srWindow.Left);
}

#else

void OccupyClosedStreams() {
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    if (fcntl(stream, F_GETFD) != -1) continue;
    // A new file gets the lowest free number, which is this one. It is opened for the wrong direction, so that using it
    // fails.
    open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

std::optional<std::size_t> TerminalWidth() {
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return std::nullopt;
  return size.ws_col;
}

#endif

}  // namespace kodra::console
