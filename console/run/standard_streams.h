// The standard streams of the process.
#pragma once

namespace kodra::console {

// Takes the place of standard streams that the caller closed (2>&-), so that no file that is opened later gets their
// numbers and with them the program's messages. Writing to such a stream still fails. Called first of all.
void OccupyClosedStreams();

}  // namespace kodra::console
