// Why the system did not open, read or write a file, in Portuguese and without a full stop: "o disco está cheio; libere
// espaço ou use outro". A rare reason is only its number, because the system has it in another language.
#pragma once

#include <string>
#include <system_error>

namespace kodra::console {

std::wstring SystemReason(std::error_code error);

}  // namespace kodra::console
