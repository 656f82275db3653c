// The standard streams of the process.
#pragma once

namespace kodra::console {

// Fills the place of standard streams that the caller closed (2>&-). Otherwise a file that is opened later would get
// such a stream's number, and the program's messages with it. Writing to the stream still fails. Called first in main.
void OccupyClosedStreams();

}  // namespace kodra::console
