// What the page knows of the reports: the guide's entries as JSON.
#pragma once

#include <string>

namespace kodra::console::panel {

// One object: `version`, `databases` (name, title), `formats`, and `families` (title, reports), family by family. A
// report has its name, purpose, parameters (name, type, what it does, its few values), columns and oddities.
std::string CatalogueJson();

}  // namespace kodra::console::panel
