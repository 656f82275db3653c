// The bare side of the lines export_…: RelatorioSintetico read from SQLite and written in a format by the least code,
// with the driver calls of the console and the bytes that it writes.
//
// What this code may assume is what makes it bare: it knows the eight columns and their types, that no text needs more
// than its buffer, and how the sample archive stores dates.
#pragma once

#include <string>

namespace kodra::bench {

// Writes the rows of the SQLite file `archive` to `target`. `format` is "csv", "json", "html" or "xlsx". What a page of
// HTML has above and below the rows is copied from `page`, a page that the console wrote; other formats ignore it.
// Raises std::runtime_error.
void BareExport(const std::string& format, const std::string& archive, const std::string& target,
                const std::string& page);

}  // namespace kodra::bench
