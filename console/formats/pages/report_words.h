// What the pages of a report say about it in words.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "console/formats/pages/printout.h"
#include "console/formats/row_writer.h"
#include "console/reports/guide.h"

namespace kodra::console::pages {

// The filters that were given: "Armazenados até 29/02/2024 · departamento 001". Empty without any.
std::wstring FilterText(const guide::Report& report, const Heading& heading);

// "Nenhum registro", "1 registro", "1.234 registros".
std::wstring RowCountText(std::uint64_t rows);

// The legends of the codes that the page shows, and the notes that keep its figures from misleading.
std::vector<Fact> NotesOf(const guide::Report& report, const Heading& heading);

}  // namespace kodra::console::pages
