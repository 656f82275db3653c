// The threads of the C++ library, which is part of the DLL.
#pragma once

namespace kodra::com {

// Frees what the library keeps for each thread that has run in the DLL.
// REQUIRES: nothing in the DLL throws an exception or reads a thread_local any more.
void ReleaseThreadValues();

}  // namespace kodra::com
