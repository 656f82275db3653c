// Runs kodrarpt etiquetas on an archive of modules, and reads the labels that it prints as HTML.
#pragma once

#include <string>
#include <vector>

#include "tests/console/run.h"

namespace kodra::console {

using Texts = std::vector<std::string>;

// The connection string of an archive with two hundred modules, AA001 to AA200, in two departments; some have
// subordinates, documents and a place.
std::string LabelArchive();

RunResult RunLabels(const std::string& connection, const std::vector<std::string>& arguments);

// On LabelArchive and a roll, for which there is no warning.
RunResult RunOnRoll(std::vector<std::string> arguments);

// The texts on each page.
std::vector<Texts> PagesOf(const std::string& html);

}  // namespace kodra::console
