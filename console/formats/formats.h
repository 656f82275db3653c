// The formats by their names on the command line.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "console/formats/csv_writer.h"
#include "console/formats/html/html_writer.h"
#include "console/formats/json_writer.h"

namespace kodra::console {

enum class Format { kTable, kCsv, kJson, kXlsx, kHtml };

struct FormatOptions {
  CsvOptions csv;
  JsonShape json = JsonShape::kArray;
  html::HtmlOptions html;
};

// The names, in the order of the help: "tabela, csv, json, xlsx, html".
std::string FormatNames();
// The format of a name; letter case does not matter. Raises UsageError with the nearest name of a wrong one.
Format FormatNamed(std::string_view name);
// Whether the format is for a file alone, and not for a terminal or a pipe.
bool NeedsFile(Format format);

// A writer to an output, which outlives it. A spreadsheet is written to the file at `path` instead.
std::unique_ptr<RowWriter> NewWriter(Format format, const FormatOptions& options, Output& output,
                                     const std::wstring& path);

}  // namespace kodra::console
