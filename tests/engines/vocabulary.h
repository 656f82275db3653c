// The words that only some databases know. An engine may know more of them than the database whose dialect it runs.
#pragma once

#include <string>
#include <vector>

#include "tests/engines/engines.h"

namespace kodra::engines {

// The words of a statement that its database does not know, and functions that no database of ours is known to have.
std::vector<std::string> ForeignWords(const std::wstring& statement, Database database);

}  // namespace kodra::engines
