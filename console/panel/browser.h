// The browser of the person at this computer.
#pragma once

#include <string>

namespace kodra::console::panel {

// Asks the system to open the address in the default browser. Returns false where that is not possible.
bool OpenBrowser(const std::string& address);

}  // namespace kodra::console::panel
