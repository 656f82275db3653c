#include "console/run/standard_streams.h"

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace kodra::console {

#ifdef _WIN32

// The runtime library never reuses the numbers of the standard streams for another file.
void OccupyClosedStreams() {}

#else

void OccupyClosedStreams() {
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    if (fcntl(stream, F_GETFD) != -1) continue;
    // A new file gets the lowest free number, which is this one. It is opened for the wrong direction, so that using it
    // fails.
    open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

#endif

}  // namespace kodra::console
