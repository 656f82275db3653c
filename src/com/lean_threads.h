// What the C++ library keeps for the threads that have thrown an exception in the DLL.
#pragma once

namespace kodra::com {

// Gives it back, that of every thread. REQUIRES: nothing of the library runs any more.
void ReleaseThreadValues();

}  // namespace kodra::com
