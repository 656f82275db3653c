// What the page knows of the reports, the labels and the papers, as JSON.
#pragma once

#include <string>

namespace kodra::console::panel {

// One object: `version`, `databases` (name, title) and `families` (title, reports), family by family. A
// report has its name, purpose, parameters (name, type, what it does, its few values), columns and oddities. `labels`
// has the kinds, stocks (measures in millimetres) and codes to choose from, and `papers` each paper with its
// parameters.
const std::string& CatalogueJson();

}  // namespace kodra::console::panel
