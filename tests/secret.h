// The one password of all tests. It is in no message, log line or event, and so in nothing that a test run prints:
// `./kodra test` looks for it in all logs.
#pragma once

#include <string>

namespace kodra::tests {

inline const std::wstring kSecret = L"NuncaMostrada";

}  // namespace kodra::tests
