// The output formats and their names on the command line.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "console/formats/csv_writer.h"
#include "console/formats/html/html_writer.h"
#include "console/formats/json_writer.h"
#include "console/formats/xlsx_writer.h"

namespace kodra::console {

enum class Format { kTable, kCsv, kJson, kXlsx, kHtml, kPdf };

struct FormatOptions {
  // The width of the terminal that a table is written to; nothing for a file or a pipe.
  std::optional<std::size_t> terminalWidth = {};
  CsvOptions csv;
  JsonShape json = JsonShape::kArray;
  html::HtmlOptions html;
  XlsxOptions xlsx = {};
  // The names of the columns to write, in this order; empty for all.
  std::vector<std::string> columns = {};
};

// The names, in the order of the help: "tabela, csv, json, xlsx, html, pdf".
std::string FormatNames();
// The format of that name, in any letter case. Raises UsageError for an unknown name, with the nearest known one.
Format FormatNamed(std::string_view name);
// The name of one format: "csv".
std::string NameOf(Format format);
// The format that the ending of the file's name asks for, in any letter case (.htm is html, too); the table for another
// ending or none.
Format FormatOfFile(std::string_view path);
// Whether the format can only be written to a file, not to a terminal or a pipe.
bool NeedsFile(Format format);

// Returns a writer to `output`; a spreadsheet is written to the file at `path` instead. REQUIRES: `output` outlives the
// writer.
std::unique_ptr<RowWriter> NewWriter(Format format, const FormatOptions& options, Output& output,
                                     const std::wstring& path);

}  // namespace kodra::console
