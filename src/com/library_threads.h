// The threads of the C++ library, which is part of the DLL.
#pragma once

namespace kodra::com {

// Frees what the library keeps for each thread that has run in the DLL.
// REQUIRES: from here on nothing in the DLL throws an exception or reads a thread_local.
void ReleaseThreadValues();

}  // namespace kodra::com
