// The standard streams of the process.
#pragma once

#include <cstddef>
#include <optional>

namespace kodra::console {

// Fills the place of standard streams that the caller closed (2>&-). Otherwise a file that is opened later would get
// such a stream's number, and the program's messages with it. Writing to the stream still fails. Called first in main.
void OccupyClosedStreams();

// The number of characters on a line of the terminal that the standard output is; nothing if it is another file, or a
// terminal of unknown width.
std::optional<std::size_t> TerminalWidth();

}  // namespace kodra::console
