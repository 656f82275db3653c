#include "console/formats/formats.h"

#include <algorithm>
#include <array>

#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "console/formats/chosen_columns.h"
#include "console/formats/pages/pdf_writer.h"
#include "console/formats/table_writer.h"

namespace kodra::console {
namespace {

struct Named {
  std::string_view name;
  Format format;
};

constexpr auto kFormats = std::to_array<Named>({
    {"tabela", Format::kTable},
    {"csv", Format::kCsv},
    {"json", Format::kJson},
    {"xlsx", Format::kXlsx},
    {"html", Format::kHtml},
    {"pdf", Format::kPdf},
});

// A writer of all columns.
std::unique_ptr<RowWriter> NewFullWriter(Format format, const FormatOptions& options, Output& output,
                                         const std::wstring& path) {
  switch (format) {
    case Format::kTable:
      return std::make_unique<TableWriter>(output, options.terminalWidth);
    case Format::kCsv:
      return std::make_unique<CsvWriter>(output, options.csv);
    case Format::kJson:
      return std::make_unique<JsonWriter>(output, options.json);
    case Format::kXlsx:
      return NewXlsxWriter(path, options.xlsx);
    case Format::kHtml:
      return std::make_unique<html::HtmlWriter>(output, options.html);
    case Format::kPdf:
      return std::make_unique<pages::PdfWriter>(output, options.html.letterhead, options.html.labels);
  }
  return nullptr;
}

}  // namespace

std::string FormatNames() {
  std::string names;
  for (const Named& entry : kFormats) names.append(names.empty() ? "" : ", ").append(entry.name);
  return names;
}

Format FormatNamed(std::string_view name) {
  const std::string folded = Folded(name);
  const auto found = std::ranges::find(kFormats, folded, &Named::name);
  if (found != kFormats.end()) return found->format;
  std::vector<std::string> known;
  known.reserve(std::size(kFormats));
  for (const Named& entry : kFormats) known.emplace_back(entry.name);
  throw UsageError("o formato \"" + std::string(name) + "\" não existe" + DidYouMean(folded, known) +
                   "; escolha entre " + FormatNames());
}

std::string NameOf(Format format) { return std::string(std::ranges::find(kFormats, format, &Named::format)->name); }

Format FormatOfFile(std::string_view path) {
  const std::string folded = Folded(path);
  if (folded.ends_with(".htm")) return Format::kHtml;
  for (const Named& entry : kFormats) {
    if (folded.ends_with("." + std::string(entry.name))) return entry.format;
  }
  return Format::kTable;
}

bool NeedsFile(Format format) { return format == Format::kXlsx || format == Format::kPdf; }

std::unique_ptr<RowWriter> NewWriter(Format format, const FormatOptions& options, Output& output,
                                     const std::wstring& path) {
  std::unique_ptr<RowWriter> writer = NewFullWriter(format, options, output, path);
  if (options.columns.empty()) return writer;
  return std::make_unique<ChosenColumns>(std::move(writer), options.columns);
}

}  // namespace kodra::console
